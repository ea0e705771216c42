#pragma once

#include <cstdint>

#include "orvel/Variant.h"

namespace orvel {

/// What ClickMenu tells the host to do next.
struct OrvelMenuResult {
  enum Action : int32_t {
    kNothing = 0,      ///< Value empty
    kShowWindow = 1,   ///< Value: the window object
    kRemoved = 2,      ///< the object was removed; drop it from the view
    kReplaceList = 4,  ///< Value: Array(new Recordset, selection text)
  };
  int32_t Action = kNothing;
  Variant Value;
};

}  // namespace orvel
