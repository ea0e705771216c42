#include "ui/ListItems.h"

#include <memory>

#include "ui/ListView.h"

namespace orvel {

ListItem& ListItems::Add(int index, std::string key, std::string text, std::string smallIcon) {
  ListItem& added = rows_.Insert(
      index,
      std::make_unique<ListItem>(view_, std::move(key), std::move(text), std::move(smallIcon)));
  view_.Notify("ListItems");
  return added;
}

void ListItems::Remove(int index) {
  Removing(rows_.At(index));
  rows_.Remove(index);
  view_.Notify("ListItems");
}

void ListItems::Remove(std::string_view key) {
  Removing(rows_.At(key));
  rows_.Remove(key);
  view_.Notify("ListItems");
}

void ListItems::Clear() {
  if (view_.selected_) view_.SetSelectedItem(nullptr);
  if (rows_.Empty()) return;
  rows_.Clear();
  view_.Notify("ListItems");
}

void ListItems::Removing(const ListItem& row) {
  if (view_.selected_ == &row) view_.SetSelectedItem(nullptr);
}

}  // namespace orvel
