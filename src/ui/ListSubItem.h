#pragma once

#include <cstdint>
#include <string>

#include "orvel/Variant.h"
#include "ui/KeyedList.h"

namespace orvel {

class ListView;

// One further column of a list row: text, a value of the module's own
// (Tag; Empty until set), bold and colour. Made by ListSubItems::Add and
// owned by its row. Changes notify the view's observer as "ListItems".
class ListSubItem {
 public:
  ListSubItem(ListView& view, std::string key, std::string text)
      : view_(view), key_(std::move(key)), text_(std::move(text)) {}
  ListSubItem(const ListSubItem&) = delete;
  ListSubItem& operator=(const ListSubItem&) = delete;

  int Index() const { return index_; }  // 1-based
  const std::string& Key() const { return key_; }
  const std::string& Text() const { return text_; }
  void SetText(std::string text);
  const Variant& Tag() const { return tag_; }
  void SetTag(Variant tag);
  bool Bold() const { return bold_; }
  void SetBold(bool bold);
  int32_t ForeColor() const { return foreColor_; }
  void SetForeColor(int32_t color);
  // The key of a small icon shown in this cell; "" for none.
  const std::string& ReportIcon() const { return reportIcon_; }
  void SetReportIcon(std::string key);

 private:
  friend class KeyedList<ListSubItem>;

  ListView& view_;
  std::string key_;
  std::string text_;
  Variant tag_;
  bool bold_ = false;
  int32_t foreColor_ = 0;
  int index_ = 0;
  std::string reportIcon_;
};

}  // namespace orvel
