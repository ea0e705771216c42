#pragma once

#include <cstdint>
#include <string>

#include "orvel/Object.h"

namespace orvel {

/// The columns of a table section.
class OrvelPrintColumns : public Object {
 public:
  /// `width` in centimetres; `alignment` 0 left, 1 right, 2 centre.
  virtual void Add(const std::string& caption, double width, int32_t alignment) = 0;
};

}  // namespace orvel
