#include "ui/ListSubItems.h"

#include <memory>

#include "ui/ListView.h"

namespace orvel {

ListSubItem& ListSubItems::Add(int index, std::string key, std::string text) {
  ListSubItem& added =
      items_.Insert(index, std::make_unique<ListSubItem>(view_, std::move(key), std::move(text)));
  view_.Notify("ListItems");
  return added;
}

void ListSubItems::Remove(int index) {
  items_.Remove(index);
  view_.Notify("ListItems");
}

void ListSubItems::Remove(std::string_view key) {
  items_.Remove(key);
  view_.Notify("ListItems");
}

void ListSubItems::Clear() {
  if (items_.Empty()) return;
  items_.Clear();
  view_.Notify("ListItems");
}

}  // namespace orvel
