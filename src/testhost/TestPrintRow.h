#pragma once

#include <memory>
#include <string>
#include <vector>

#include "orvel/OrvelPrintRow.h"

namespace orvel {

// Records "Cell <column> <Bold|Plain> <text>".
class TestPrintRow : public OrvelPrintRow {
 public:
  explicit TestPrintRow(std::shared_ptr<std::vector<std::string>> lines)
      : lines_(std::move(lines)) {}
  void AddCell(int32_t column, const std::string& text, bool bold) override;

 private:
  std::shared_ptr<std::vector<std::string>> lines_;
};

}  // namespace orvel
