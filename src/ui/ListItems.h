#pragma once

#include <string>
#include <string_view>

#include "ui/KeyedList.h"
#include "ui/ListItem.h"

namespace orvel {

class ListView;

// The rows of a list view, 1-based, optionally keyed (keys unique, compared
// exactly). Adding, removing and clearing notify the view's observer as
// "ListItems"; a row that goes takes the selection with it.
class ListItems {
 public:
  explicit ListItems(ListView& view) : view_(view) {}
  ListItems(const ListItems&) = delete;
  ListItems& operator=(const ListItems&) = delete;

  int Count() const { return rows_.Count(); }
  // Inserts a row at `index` (1-based; 0 or less appends). A duplicate
  // non-empty key is RuntimeError 35602 ("Raktas kolekcijoje nėra unikalus"),
  // an index past Count()+1 35600; either leaves the list unchanged.
  ListItem& Add(int index, std::string key, std::string text, std::string smallIcon = {});
  ListItem& Item(int index) const { return rows_.At(index); }  // 1-based; else 35600
  // A missing key is RuntimeError 35601 ("Elementas nerastas").
  ListItem& Item(std::string_view key) const { return rows_.At(key); }
  // Null when no row has the key.
  ListItem* Find(std::string_view key) const { return rows_.Find(key); }
  void Remove(int index);
  void Remove(std::string_view key);
  void Clear();

  auto begin() const { return rows_.begin(); }
  auto end() const { return rows_.end(); }

 private:
  friend class ListView;

  void Removing(const ListItem& row);

  ListView& view_;
  KeyedList<ListItem> rows_;
};

}  // namespace orvel
