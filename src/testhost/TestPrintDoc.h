#pragma once

#include <memory>
#include <string>
#include <vector>

#include "orvel/OrvelPrintDoc.h"

namespace orvel {

class TestPrintSections;

// A print document that prints nothing and records everything it is told,
// one readable line per call, in order, so a test can assert a whole
// printout:
//   "Orientation 1", "FontSize 9", "PrintMode 1", "UserName Jonas",
//   "DateMode 1", "ExtraFlag True", "Section Text", "Section Table",
//   "VerticalLines True", "HorizontalLines False", "Column Kodas 2,5 Left",
//   "Text Bold 12 Center Bankai", "Row", "Cell 0 Bold Kodas", "Print False".
class TestPrintDoc : public OrvelPrintDoc {
 public:
  TestPrintDoc();

  const std::vector<std::string>& Lines() const { return *lines_; }

  void SetOrientation(int32_t orientation) override;
  void SetFontSize(uint8_t size) override;
  void SetPrintMode(uint8_t mode) override;
  void SetUserName(const std::string& name) override;
  void SetDateMode(uint8_t mode) override;
  void SetExtraFlag(bool flag) override;
  std::shared_ptr<OrvelPrintSections> Sections() override;
  void Print(bool preview) override;

 private:
  std::shared_ptr<std::vector<std::string>> lines_;
  std::shared_ptr<TestPrintSections> sections_;
};

}  // namespace orvel
