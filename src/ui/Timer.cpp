#include "ui/Timer.h"

#include <string>

#include "orvel/RuntimeError.h"
#include "ui/ControlConstants.h"

namespace orvel {

void Timer::SetInterval(int milliseconds) {
  if (milliseconds < 0 || milliseconds > 65535) {
    throw RuntimeError(
        control_error::kInvalidPropertyValue,
        "Neteisinga savybės reikšmė: Interval " + std::to_string(milliseconds) + " (" + Name() + ")");
  }
  Assign(interval_, milliseconds, "Interval");
}

}  // namespace orvel
