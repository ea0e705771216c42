#pragma once

namespace orvel {

// The hourglass while a scope runs: set on entry (with the waiting events let
// through first when `pumpEvents`), the default pointer back on every way out.
class BusyPointer {
 public:
  explicit BusyPointer(bool pumpEvents = false);
  ~BusyPointer();
  BusyPointer(const BusyPointer&) = delete;
  BusyPointer& operator=(const BusyPointer&) = delete;
};

}  // namespace orvel
