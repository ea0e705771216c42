#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "orvel/Object.h"

namespace orvel {

/// One entry of a catalogue context menu. Caption "-" is a separator; "&"
/// marks the access key. Key is the sKey that ClickMenu receives.
struct OrvelMenuItem {
  std::string Caption;
  std::string Key;
  std::shared_ptr<orvel::Object> Tag;  ///< left empty by this module
  int32_t Flags = 0;                   ///< left zero by this module

  friend bool operator==(const OrvelMenuItem&, const OrvelMenuItem&) = default;
};

using OrvelMenuItems = std::vector<OrvelMenuItem>;

}  // namespace orvel
