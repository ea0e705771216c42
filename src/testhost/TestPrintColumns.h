#pragma once

#include <memory>
#include <string>
#include <vector>

#include "orvel/OrvelPrintColumns.h"

namespace orvel {

// Records "Column <caption> <width> <Left|Right|Center>", the width with one
// decimal and a comma.
class TestPrintColumns : public OrvelPrintColumns {
 public:
  explicit TestPrintColumns(std::shared_ptr<std::vector<std::string>> lines)
      : lines_(std::move(lines)) {}
  void Add(const std::string& caption, double width, int32_t alignment) override;

 private:
  std::shared_ptr<std::vector<std::string>> lines_;
};

}  // namespace orvel
