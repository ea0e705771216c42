// The recording print document and its parts.
#include "testhost/TestPrintDoc.h"

#include <cstdio>

#include "testhost/TestPrintColumns.h"
#include "testhost/TestPrintRow.h"
#include "testhost/TestPrintRows.h"
#include "testhost/TestPrintSection.h"
#include "testhost/TestPrintSections.h"

namespace orvel {

namespace {
const char* TrueFalse(bool b) { return b ? "True" : "False"; }
const char* Weight(bool bold) { return bold ? "Bold" : "Plain"; }
std::string AlignmentName(int32_t alignment) {
  switch (alignment) {
    case 0:
      return "Left";
    case 1:
      return "Right";
    case 2:
      return "Center";
    default:
      return "Alignment" + std::to_string(alignment);
  }
}
}  // namespace

TestPrintDoc::TestPrintDoc()
    : lines_(std::make_shared<std::vector<std::string>>()),
      sections_(std::make_shared<TestPrintSections>(lines_)) {}

void TestPrintDoc::SetOrientation(int32_t orientation) {
  lines_->push_back("Orientation " + std::to_string(orientation));
}
void TestPrintDoc::SetFontSize(uint8_t size) {
  lines_->push_back("FontSize " + std::to_string(size));
}
void TestPrintDoc::SetPrintMode(uint8_t mode) {
  lines_->push_back("PrintMode " + std::to_string(mode));
}
void TestPrintDoc::SetUserName(const std::string& name) { lines_->push_back("UserName " + name); }
void TestPrintDoc::SetDateMode(uint8_t mode) {
  lines_->push_back("DateMode " + std::to_string(mode));
}
void TestPrintDoc::SetExtraFlag(bool flag) {
  lines_->push_back(std::string("ExtraFlag ") + TrueFalse(flag));
}
std::shared_ptr<OrvelPrintSections> TestPrintDoc::Sections() { return sections_; }
void TestPrintDoc::Print(bool preview) {
  lines_->push_back(std::string("Print ") + TrueFalse(preview));
}

std::shared_ptr<OrvelPrintSection> TestPrintSections::Add(int32_t kind) {
  lines_->push_back(kind == kTable  ? "Section Table"
                    : kind == kText ? "Section Text"
                                    : "Section " + std::to_string(kind));
  return std::make_shared<TestPrintSection>(lines_);
}

void TestPrintSection::SetVerticalLines(bool on) {
  vertical_ = on;
  lines_->push_back(std::string("VerticalLines ") + TrueFalse(on));
}
void TestPrintSection::SetHorizontalLines(bool on) {
  horizontal_ = on;
  lines_->push_back(std::string("HorizontalLines ") + TrueFalse(on));
}
std::shared_ptr<OrvelPrintColumns> TestPrintSection::Columns() {
  return std::make_shared<TestPrintColumns>(lines_);
}
std::shared_ptr<OrvelPrintRows> TestPrintSection::Rows() {
  return std::make_shared<TestPrintRows>(lines_);
}

void TestPrintColumns::Add(const std::string& caption, double width, int32_t alignment) {
  char text[32];
  std::snprintf(text, sizeof text, "%.1f", width);
  std::string w = text;
  for (char& c : w) {
    if (c == '.') c = ',';
  }
  lines_->push_back("Column " + caption + " " + w + " " + AlignmentName(alignment));
}

void TestPrintRows::AddText(const std::string& text, bool bold, int32_t size, int32_t alignment) {
  lines_->push_back(std::string("Text ") + Weight(bold) + " " + std::to_string(size) + " " +
                    AlignmentName(alignment) + " " + text);
}
std::shared_ptr<OrvelPrintRow> TestPrintRows::AddRow() {
  lines_->push_back("Row");
  return std::make_shared<TestPrintRow>(lines_);
}

void TestPrintRow::AddCell(int32_t column, const std::string& text, bool bold) {
  lines_->push_back("Cell " + std::to_string(column) + " " + Weight(bold) + " " + text);
}

}  // namespace orvel
