#pragma once

#include <functional>

#include "ui/Control.h"

namespace orvel {

// A timer. A renderer ticks it every Interval milliseconds while it is
// enabled (an Interval of 0 never ticks, as on the platform); a test calls
// Tick() itself, which raises Timer only while the timer is enabled.
// A timer starts enabled, as the platform's does.
class Timer : public Control {
 public:
  using Control::Control;

  int Interval() const { return interval_; }
  // 0 to 65535 milliseconds, else RuntimeError 380.
  void SetInterval(int milliseconds);

  std::function<void()> OnTimer;
  void Tick() {
    if (Enabled()) Raise(OnTimer);
  }

 private:
  int interval_ = 0;
};

}  // namespace orvel
