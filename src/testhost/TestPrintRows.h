#pragma once

#include <memory>
#include <string>
#include <vector>

#include "orvel/OrvelPrintRows.h"

namespace orvel {

// Records "Text <Bold|Plain> <size> <Left|Right|Center> <text>" and "Row".
class TestPrintRows : public OrvelPrintRows {
 public:
  explicit TestPrintRows(std::shared_ptr<std::vector<std::string>> lines)
      : lines_(std::move(lines)) {}
  void AddText(const std::string& text, bool bold, int32_t size, int32_t alignment) override;
  std::shared_ptr<OrvelPrintRow> AddRow() override;

 private:
  std::shared_ptr<std::vector<std::string>> lines_;
};

}  // namespace orvel
