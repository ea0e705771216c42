#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "orvel/Object.h"

namespace orvel {

class OrvelPrintRow;

/// The rows of a section: lines of text in a text section, table rows in a
/// table section.
class OrvelPrintRows : public Object {
 public:
  /// `size` 0 keeps the document's font size; `alignment` 0 left, 1 right, 2 centre.
  virtual void AddText(const std::string& text, bool bold, int32_t size, int32_t alignment) = 0;
  virtual std::shared_ptr<OrvelPrintRow> AddRow() = 0;
};

}  // namespace orvel
