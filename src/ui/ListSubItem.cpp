#include "ui/ListSubItem.h"

#include "ui/ListView.h"

namespace orvel {

void ListSubItem::SetText(std::string text) {
  if (text_ == text) return;
  text_ = std::move(text);
  view_.Notify("ListItems");
}

void ListSubItem::SetTag(Variant tag) {
  if (tag_ == tag) return;
  tag_ = std::move(tag);
  view_.Notify("ListItems");
}

void ListSubItem::SetBold(bool bold) {
  if (bold_ == bold) return;
  bold_ = bold;
  view_.Notify("ListItems");
}

void ListSubItem::SetForeColor(int32_t color) {
  if (foreColor_ == color) return;
  foreColor_ = color;
  view_.Notify("ListItems");
}

void ListSubItem::SetReportIcon(std::string key) {
  if (reportIcon_ == key) return;
  reportIcon_ = std::move(key);
  view_.Notify("ListItems");
}

}  // namespace orvel
