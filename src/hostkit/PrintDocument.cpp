#include "hostkit/PrintDocument.h"

#include <algorithm>
#include <cmath>

#include "orvel/OrvelPrintColumns.h"
#include "orvel/OrvelPrintRow.h"
#include "orvel/OrvelPrintRows.h"
#include "orvel/OrvelPrintSection.h"
#include "orvel/OrvelPrintSections.h"
#include "host/Text.h"

namespace orvel {

namespace {

using Content = PrintDocument::Content;

// Each part holds the document and the index of what it writes into, so the
// parts stay valid however the vectors grow.
class RowPart : public OrvelPrintRow {
 public:
  RowPart(std::shared_ptr<Content> content, size_t section, size_t item)
      : content_(std::move(content)), section_(section), item_(item) {}
  void AddCell(int32_t column, const std::string& text, bool bold) override {
    content_->sections[section_].items[item_].cells.push_back({column, text, bold});
  }

 private:
  std::shared_ptr<Content> content_;
  size_t section_;
  size_t item_;
};

class RowsPart : public OrvelPrintRows {
 public:
  RowsPart(std::shared_ptr<Content> content, size_t section)
      : content_(std::move(content)), section_(section) {}
  void AddText(const std::string& text, bool bold, int32_t size, int32_t alignment) override {
    content_->sections[section_].items.push_back({false, text, bold, size, alignment, {}});
  }
  std::shared_ptr<OrvelPrintRow> AddRow() override {
    auto& items = content_->sections[section_].items;
    items.push_back({true, "", false, 0, 0, {}});
    return std::make_shared<RowPart>(content_, section_, items.size() - 1);
  }

 private:
  std::shared_ptr<Content> content_;
  size_t section_;
};

class ColumnsPart : public OrvelPrintColumns {
 public:
  ColumnsPart(std::shared_ptr<Content> content, size_t section)
      : content_(std::move(content)), section_(section) {}
  void Add(const std::string& caption, double width, int32_t alignment) override {
    content_->sections[section_].columns.push_back({caption, width, alignment});
  }

 private:
  std::shared_ptr<Content> content_;
  size_t section_;
};

class SectionPart : public OrvelPrintSection {
 public:
  SectionPart(std::shared_ptr<Content> content, size_t section)
      : content_(std::move(content)), section_(section) {}
  bool VerticalLines() override { return Get().verticalLines; }
  void SetVerticalLines(bool on) override { Get().verticalLines = on; }
  bool HorizontalLines() override { return Get().horizontalLines; }
  void SetHorizontalLines(bool on) override { Get().horizontalLines = on; }
  std::shared_ptr<OrvelPrintColumns> Columns() override {
    return std::make_shared<ColumnsPart>(content_, section_);
  }
  std::shared_ptr<OrvelPrintRows> Rows() override {
    return std::make_shared<RowsPart>(content_, section_);
  }

 private:
  PrintDocument::Section& Get() { return content_->sections[section_]; }
  std::shared_ptr<Content> content_;
  size_t section_;
};

class SectionsPart : public OrvelPrintSections {
 public:
  explicit SectionsPart(std::shared_ptr<Content> content) : content_(std::move(content)) {}
  std::shared_ptr<OrvelPrintSection> Add(int32_t kind) override {
    content_->sections.push_back({kind, false, false, {}, {}});
    return std::make_shared<SectionPart>(content_, content_->sections.size() - 1);
  }

 private:
  std::shared_ptr<Content> content_;
};

// `text` cut or padded to `width` characters, placed by the alignment.
std::string Fit(const std::string& text, int width, int32_t alignment) {
  std::string cut = Left(text, width);
  int pad = width - Len(cut);
  if (pad <= 0) return cut;
  if (alignment == 1) return std::string(static_cast<size_t>(pad), ' ') + cut;
  if (alignment == 2) {
    return std::string(static_cast<size_t>(pad / 2), ' ') + cut +
           std::string(static_cast<size_t>(pad - pad / 2), ' ');
  }
  return cut + std::string(static_cast<size_t>(pad), ' ');
}

constexpr double kCharsPerCentimetre = 4.0;
constexpr int kPageWidth = 72;

}  // namespace

PrintDocument::PrintDocument(Renderer renderer)
    : content_(std::make_shared<Content>()), renderer_(std::move(renderer)) {}

PrintDocument::~PrintDocument() = default;

std::shared_ptr<OrvelPrintSections> PrintDocument::Sections() {
  return std::make_shared<SectionsPart>(content_);
}

void PrintDocument::Print(bool preview) {
  if (renderer_) renderer_(*content_, preview);
}

std::string RenderAsText(const PrintDocument::Content& content) {
  std::string out;
  for (const auto& section : content.sections) {
    std::vector<int> widths;
    for (const auto& column : section.columns) {
      widths.push_back(
          std::max(3, static_cast<int>(std::lround(column.width * kCharsPerCentimetre))));
    }
    const std::string separator = section.verticalLines ? " | " : "  ";
    if (!section.columns.empty()) {
      std::string header;
      for (size_t c = 0; c < section.columns.size(); ++c) {
        header += (c ? separator : "") + Fit(section.columns[c].caption, widths[c], 0);
      }
      out += header + "\n" + std::string(static_cast<size_t>(Len(header)), '-') + "\n";
    }
    for (const auto& item : section.items) {
      if (!item.isRow) {
        out += Fit(item.text, item.alignment == 2 ? kPageWidth : Len(item.text), item.alignment);
        out += "\n";
        continue;
      }
      std::vector<std::string> cells(widths.size());
      for (const auto& cell : item.cells) {
        if (cell.column >= 0 && static_cast<size_t>(cell.column) < cells.size()) {
          cells[static_cast<size_t>(cell.column)] = cell.text;
        }
      }
      std::string line;
      for (size_t c = 0; c < cells.size(); ++c) {
        line += (c ? separator : "") + Fit(cells[c], widths[c], section.columns[c].alignment);
      }
      out += line + "\n";
    }
  }
  return out;
}

}  // namespace orvel
