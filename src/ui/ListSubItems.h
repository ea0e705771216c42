#pragma once

#include <string>
#include <string_view>

#include "ui/KeyedList.h"
#include "ui/ListSubItem.h"

namespace orvel {

class ListView;

// The further columns of one list row, 1-based, optionally keyed (keys
// unique within the row).
class ListSubItems {
 public:
  explicit ListSubItems(ListView& view) : view_(view) {}
  ListSubItems(const ListSubItems&) = delete;
  ListSubItems& operator=(const ListSubItems&) = delete;

  int Count() const { return items_.Count(); }
  // Inserts at `index` (1-based; 0 or less appends). A duplicate non-empty
  // key is RuntimeError 35602, an index past Count()+1 35600; either leaves
  // the row unchanged.
  ListSubItem& Add(int index, std::string key, std::string text);
  ListSubItem& Item(int index) const { return items_.At(index); }  // 1-based
  // A missing key is RuntimeError 35601 ("Elementas nerastas").
  ListSubItem& Item(std::string_view key) const { return items_.At(key); }
  ListSubItem* Find(std::string_view key) const { return items_.Find(key); }
  void Remove(int index);
  void Remove(std::string_view key);
  void Clear();

  auto begin() const { return items_.begin(); }
  auto end() const { return items_.end(); }

 private:
  ListView& view_;
  KeyedList<ListSubItem> items_;
};

}  // namespace orvel
