#pragma once

#include <functional>
#include <memory>

namespace platform {

/// Calls on_timer at an interval, from the event loop. It never re-enters its own running handler, and firings that
/// were missed do not queue up: when a handler takes longer than the interval, the next call follows as soon as the
/// waiting events have been handled. Made stopped. It has to outlive its handler.
class Timer {
 public:
  /// interval: milliseconds from 1; at 0 the timer never fires.
  explicit Timer(int interval = 0, std::function<void()> handler = {});
  ~Timer();
  Timer(const Timer&) = delete;
  Timer& operator=(const Timer&) = delete;

  int interval() const;
  /// A running timer starts the new interval now.
  void set_interval(int milliseconds);
  bool enabled() const;
  void Start();
  void Stop();
  void set_enabled(bool enabled) { enabled ? Start() : Stop(); }

  std::function<void()> on_timer;

 private:
  friend class TimerPause;
  struct Clock;
  std::unique_ptr<Clock> clock_;
};

/// While one exists no timer fires. Timers keep their enabled state and start a full interval when the last one goes.
class TimerPause {
 public:
  TimerPause();
  ~TimerPause();
  TimerPause(const TimerPause&) = delete;
  TimerPause& operator=(const TimerPause&) = delete;
};

}  // namespace platform
