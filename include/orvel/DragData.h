#pragma once

#include <string>

#include "orvel/Object.h"

namespace orvel {

/// What a drag over a list carries: the dragged object's OIDR in its text
/// format. The host's data object implements it.
class DragData : public Object {
 public:
  virtual std::string GetText() = 0;
};

}  // namespace orvel
