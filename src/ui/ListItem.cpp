#include "ui/ListItem.h"

#include "ui/ListView.h"

namespace orvel {

void ListItem::Changed() { view_.Notify("ListItems"); }

void ListItem::SetText(std::string text) {
  if (text_ == text) return;
  text_ = std::move(text);
  Changed();
}

void ListItem::SetTag(Variant tag) {
  if (tag_ == tag) return;
  tag_ = std::move(tag);
  Changed();
}

void ListItem::SetSmallIcon(std::string key) {
  if (smallIcon_ == key) return;
  smallIcon_ = std::move(key);
  Changed();
}

void ListItem::SetForeColor(int32_t color) {
  if (foreColor_ == color) return;
  foreColor_ = color;
  Changed();
}

void ListItem::SetBold(bool bold) {
  if (bold_ == bold) return;
  bold_ = bold;
  Changed();
}

void ListItem::SetChecked(bool checked) {
  if (checked_ == checked) return;
  checked_ = checked;
  Changed();
}

bool ListItem::Selected() const { return view_.SelectedItem() == this; }

void ListItem::SetSelected(bool selected) {
  if (selected) {
    view_.SetSelectedItem(this);
  } else if (Selected()) {
    view_.SetSelectedItem(nullptr);
  }
}

}  // namespace orvel
