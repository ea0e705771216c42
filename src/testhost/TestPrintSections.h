#pragma once

#include <memory>
#include <string>
#include <vector>

#include "orvel/OrvelPrintSections.h"

namespace orvel {

// The sections of a TestPrintDoc; adding one records "Section Text" or
// "Section Table" in the document's lines.
class TestPrintSections : public OrvelPrintSections {
 public:
  explicit TestPrintSections(std::shared_ptr<std::vector<std::string>> lines)
      : lines_(std::move(lines)) {}
  std::shared_ptr<OrvelPrintSection> Add(int32_t kind) override;

 private:
  std::shared_ptr<std::vector<std::string>> lines_;
};

}  // namespace orvel
