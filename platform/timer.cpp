#include "platform/timer.h"

#include <QTimer>
#include <utility>
#include <vector>

namespace platform {

struct Timer::Clock {
  QTimer ticker;
  int interval = 0;
  bool enabled = false;
  bool in_handler = false;

  /// Starts or stops Qt's timer, so that it runs exactly when this one is to fire.
  void Apply();

  static std::vector<Clock*> all;
  static int pauses;
};

std::vector<Timer::Clock*> Timer::Clock::all;
int Timer::Clock::pauses = 0;

void Timer::Clock::Apply() {
  if (enabled && interval > 0 && pauses == 0) {
    ticker.start(interval);
  } else {
    ticker.stop();
  }
}

namespace {

/// Sets a flag for as long as it exists, also when the handler throws.
struct Flag {
  explicit Flag(bool& raised) : flag(raised) { flag = true; }
  ~Flag() { flag = false; }
  Flag(const Flag&) = delete;
  Flag& operator=(const Flag&) = delete;
  bool& flag;
};

}  // namespace

Timer::Timer(int interval, std::function<void()> handler)
    : on_timer(std::move(handler)), clock_(std::make_unique<Clock>()) {
  clock_->interval = interval;
  clock_->ticker.setTimerType(Qt::PreciseTimer);
  QObject::connect(&clock_->ticker, &QTimer::timeout, [this] {
    if (clock_->in_handler || !on_timer) return;
    const Flag flag(clock_->in_handler);
    on_timer();
  });
  Clock::all.push_back(clock_.get());
}

Timer::~Timer() { std::erase(Clock::all, clock_.get()); }

int Timer::interval() const { return clock_->interval; }

void Timer::set_interval(int milliseconds) {
  clock_->interval = milliseconds;
  clock_->Apply();
}

bool Timer::enabled() const { return clock_->enabled; }

void Timer::Start() {
  // A start of a running timer changes nothing: its next firing stays where it is.
  if (clock_->enabled) return;
  clock_->enabled = true;
  clock_->Apply();
}

void Timer::Stop() {
  clock_->enabled = false;
  clock_->Apply();
}

TimerPause::TimerPause() {
  if (++Timer::Clock::pauses > 1) return;
  for (Timer::Clock* clock : Timer::Clock::all) clock->Apply();
}

TimerPause::~TimerPause() {
  if (--Timer::Clock::pauses > 0) return;
  for (Timer::Clock* clock : Timer::Clock::all) clock->Apply();
}

}  // namespace platform
