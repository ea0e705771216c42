#include "ui/Timer.h"

#include <string>

#include "host/RuntimeError.h"
#include "ui/ControlConstants.h"

namespace orvel {

void Timer::SetInterval(int milliseconds) {
  if (milliseconds < 0 || milliseconds > 65535) {
    throw RuntimeError(
        control_error::kInvalidPropertyValue,
        "Invalid property value: Interval " + std::to_string(milliseconds) + " of " + Name());
  }
  Assign(interval_, milliseconds, "Interval");
}

}  // namespace orvel
