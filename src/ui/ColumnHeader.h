#pragma once

#include <string>

#include "ui/KeyedList.h"

namespace orvel {

class ListView;

enum ListColumnAlignment : int { lvwColumnLeft = 0, lvwColumnRight = 1, lvwColumnCenter = 2 };

// One column of a list view: its caption (Text), width in twips and
// alignment. Made by ColumnHeaders::Add and owned by the list view.
class ColumnHeader {
 public:
  ColumnHeader(ListView& view, std::string key, std::string text, int width, int alignment)
      : view_(view),
        key_(std::move(key)),
        text_(std::move(text)),
        width_(width),
        alignment_(alignment) {}
  ColumnHeader(const ColumnHeader&) = delete;
  ColumnHeader& operator=(const ColumnHeader&) = delete;

  int Index() const { return index_; }  // 1-based
  const std::string& Key() const { return key_; }
  const std::string& Text() const { return text_; }
  void SetText(std::string text);
  int Width() const { return width_; }
  void SetWidth(int width);
  int Alignment() const { return alignment_; }
  void SetAlignment(int alignment);

 private:
  friend class KeyedList<ColumnHeader>;

  ListView& view_;
  std::string key_;
  std::string text_;
  int width_;
  int alignment_;
  int index_ = 0;
};

}  // namespace orvel
