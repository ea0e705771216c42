#pragma once

#include <memory>
#include <string>
#include <vector>

#include "orvel/OrvelPrintSection.h"

namespace orvel {

// One section of a TestPrintDoc; its settings, columns and rows record into
// the document's lines.
class TestPrintSection : public OrvelPrintSection {
 public:
  explicit TestPrintSection(std::shared_ptr<std::vector<std::string>> lines)
      : lines_(std::move(lines)) {}
  bool VerticalLines() override { return vertical_; }
  void SetVerticalLines(bool on) override;
  bool HorizontalLines() override { return horizontal_; }
  void SetHorizontalLines(bool on) override;
  std::shared_ptr<OrvelPrintColumns> Columns() override;
  std::shared_ptr<OrvelPrintRows> Rows() override;

 private:
  std::shared_ptr<std::vector<std::string>> lines_;
  bool vertical_ = false;
  bool horizontal_ = false;
};

}  // namespace orvel
