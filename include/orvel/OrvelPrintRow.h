#pragma once

#include <cstdint>
#include <string>

#include "orvel/Object.h"

namespace orvel {

/// One row of a table section. A column left without a cell prints empty.
class OrvelPrintRow : public Object {
 public:
  /// `column` 0-based, in the order the columns were added.
  virtual void AddCell(int32_t column, const std::string& text, bool bold) = 0;
};

}  // namespace orvel
