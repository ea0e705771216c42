#pragma once

#include <cstdint>
#include <string>

#include "orvel/Variant.h"

namespace orvel {

/// What Properties, Methods and OrvelObjectManager.Call return. Number 0 is
/// success; callers test Number, never Text.
struct OrvelResult {
  int32_t Number = 0;
  std::string Text;
  Variant Value;
};

}  // namespace orvel
