#pragma once

#include <cstdint>
#include <string>

namespace orvel {

/// What Read, Save and OrvelObjectBO.ExecCall return. Number 0 is success.
struct OrvelStatus {
  int32_t Number = 0;
  std::string Text;
};

}  // namespace orvel
