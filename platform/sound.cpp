#include "platform/sound.h"

#include <chrono>
#include <condition_variable>
#include <cstdlib>
#include <deque>
#include <exception>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>

#include "platform/samples.h"
#include "platform/sdl.h"
#include "platform/sound_device.h"

namespace platform {

namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;
using std::chrono::seconds;

constexpr std::size_t kMostOrders = 32;  // waiting while a slow device opens; older ones are too late anyway
constexpr seconds kRest{30};             // without a sound: the device is let go, so that it can sleep
constexpr seconds kNextTry{30};          // after a device could not be opened
constexpr milliseconds kPatience{500};   // for the thread to end

struct Order {
  std::string path;
  bool yielding = false;
};

/// Plays what it is told to in a thread of its own, for reading a file and opening a device take their time.
class Player {
 public:
  void Take(Order order) {
    const std::lock_guard lock(mutex_);
    if (orders_.size() == kMostOrders) orders_.pop_front();
    orders_.push_back(std::move(order));
    wake_.notify_all();
  }

  void AskToEnd() {
    const std::lock_guard lock(mutex_);
    ending_ = true;
    wake_.notify_all();
  }

  /// False when the thread has not ended after a while.
  bool WaitForEnd() {
    std::unique_lock lock(mutex_);
    return wake_.wait_for(lock, kPatience, [this] { return ended_; });
  }

  /// The thread.
  void Run() {
    while (const std::optional<Order> order = Next()) {
      try {
        Obey(*order);
      } catch (const std::exception&) {
        // A file that cannot be read, or no memory for it: silence.
      }
    }
    device_.Close();
    SDL_TLSCleanup();  // what SDL kept for this thread
    const std::lock_guard lock(mutex_);
    ended_ = true;
    wake_.notify_all();
  }

 private:
  /// Waits for the next order; none at the end.
  std::optional<Order> Next() {
    std::unique_lock lock(mutex_);
    const auto ready = [this] { return ending_ || !orders_.empty(); };
    while (!wake_.wait_for(lock, kRest, ready)) {
      lock.unlock();
      if (!device_.sounding()) device_.Close();
      lock.lock();
    }
    if (ending_) return {};
    Order order = std::move(orders_.front());
    orders_.pop_front();
    return order;
  }

  void Obey(const Order& order) {
    const Samples& wave = Wave(order.path);
    if (wave.empty() || !OpenDevice() || (order.yielding && device_.sounding())) return;
    device_.Play(wave);
  }

  /// The wave of a file, empty if it has none; read once.
  const Samples& Wave(const std::string& path) {
    const auto [place, fresh] = waves_.try_emplace(path);
    if (fresh) place->second = LoadWave(path);
    return place->second;
  }

  bool OpenDevice() {
    if (failed_ && Clock::now() - *failed_ < kNextTry) return false;
    failed_.reset();
    if (device_.Open()) return true;
    failed_ = Clock::now();
    return false;
  }

  std::mutex mutex_;  // of the next four
  std::condition_variable wake_;
  std::deque<Order> orders_;
  bool ending_ = false;
  bool ended_ = false;

  // Of the thread alone.
  std::map<std::string, Samples> waves_;
  SoundDevice device_;
  std::optional<Clock::time_point> failed_;  // when the device could not be opened
};

/// The player at work, if there is one, and its thread, which owns it as well.
struct Work {
  std::mutex mutex;
  std::shared_ptr<Player> player;
  std::thread thread;
};

// Never destroyed: a sound may still be asked for while the program ends.
Work& TheWork() {
  static Work& work = *new Work;
  return work;
}

void StopAtExit() {
  static const bool registered = std::atexit(StopSound) == 0 && std::at_quick_exit(StopSound) == 0;
  static_cast<void>(registered);
}

}  // namespace

void PlayWave(const std::string& path, bool yielding) {
  try {
    Work& work = TheWork();
    const std::lock_guard lock(work.mutex);
    if (!work.player) {
      StopAtExit();
      auto player = std::make_shared<Player>();
      work.thread = std::thread([player] { player->Run(); });
      work.player = std::move(player);
    }
    work.player->Take({path, yielding});
  } catch (const std::exception&) {
    // No thread or no memory to be had: silence.
  }
}

// A thread that hangs in the system is left to itself: it ends, with its player, when the system lets it go.
void StopSound() {
  Work& work = TheWork();
  const std::lock_guard lock(work.mutex);
  if (!work.player) return;
  work.player->AskToEnd();
  if (work.player->WaitForEnd()) {
    work.thread.join();
  } else {
    work.thread.detach();
  }
  work.player.reset();
}

}  // namespace platform
