#pragma once

#include <memory>

#include "orvel/Object.h"

namespace orvel {

class OrvelPrintColumns;
class OrvelPrintRows;

/// One section of a print document: lines of text, or a table with columns,
/// rows and optional grid lines.
class OrvelPrintSection : public Object {
 public:
  virtual bool VerticalLines() = 0;
  virtual void SetVerticalLines(bool on) = 0;
  virtual bool HorizontalLines() = 0;
  virtual void SetHorizontalLines(bool on) = 0;
  virtual std::shared_ptr<OrvelPrintColumns> Columns() = 0;
  virtual std::shared_ptr<OrvelPrintRows> Rows() = 0;
};

}  // namespace orvel
