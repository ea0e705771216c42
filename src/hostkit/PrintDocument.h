#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "orvel/OrvelPrintDoc.h"

namespace orvel {

// A print document as a model: the page settings and the sections the module
// built, kept until Print hands the whole document to the host's renderer
// (plain text in the terminal, PDF in the window host).
class PrintDocument : public OrvelPrintDoc {
 public:
  struct Column {
    std::string caption;
    double width = 0;  // centimetres
    int32_t alignment = 0;
  };
  struct Cell {
    int32_t column = 0;
    std::string text;
    bool bold = false;
  };
  // A line of text (cells empty) or a table row (text empty).
  struct Item {
    bool isRow = false;
    std::string text;
    bool bold = false;
    int32_t size = 0;
    int32_t alignment = 0;
    std::vector<Cell> cells;
  };
  struct Section {
    int32_t kind = 0;  // 0 text, 1 table
    bool verticalLines = false;
    bool horizontalLines = false;
    std::vector<Column> columns;
    std::vector<Item> items;
  };
  struct Content {
    int32_t orientation = kPortrait;
    uint8_t fontSize = 9;
    uint8_t printMode = 0;
    std::string userName;
    uint8_t dateMode = 0;
    bool extraFlag = false;
    std::vector<Section> sections;
  };
  // Called by Print with the finished document and the preview flag.
  using Renderer = std::function<void(const Content& content, bool preview)>;

  explicit PrintDocument(Renderer renderer);
  ~PrintDocument() override;

  const Content& Document() const { return *content_; }

  void SetOrientation(int32_t orientation) override { content_->orientation = orientation; }
  void SetFontSize(uint8_t size) override { content_->fontSize = size; }
  void SetPrintMode(uint8_t mode) override { content_->printMode = mode; }
  void SetUserName(const std::string& name) override { content_->userName = name; }
  void SetDateMode(uint8_t mode) override { content_->dateMode = mode; }
  void SetExtraFlag(bool flag) override { content_->extraFlag = flag; }
  std::shared_ptr<OrvelPrintSections> Sections() override;
  void Print(bool preview) override;

 private:
  std::shared_ptr<Content> content_;
  Renderer renderer_;
};

// The document as plain text: headings centred, tables in columns of their
// widths (about four characters a centimetre), cells cut to fit.
std::string RenderAsText(const PrintDocument::Content& content);

}  // namespace orvel
