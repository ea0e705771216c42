#pragma once

#include <string>
#include <string_view>

#include "ui/ColumnHeader.h"
#include "ui/KeyedList.h"

namespace orvel {

class ListView;

// The columns of a list view. Changes notify the view's observer as
// "ColumnHeaders".
class ColumnHeaders {
 public:
  explicit ColumnHeaders(ListView& view) : view_(view) {}
  ColumnHeaders(const ColumnHeaders&) = delete;
  ColumnHeaders& operator=(const ColumnHeaders&) = delete;

  int Count() const { return columns_.Count(); }
  // Inserts a column at `index` (1-based; 0 or less appends). A width below
  // zero or an alignment other than lvwColumnLeft/Right/Center is
  // RuntimeError 380; a duplicate non-empty key 35602; an index past
  // Count()+1 35600. A failed Add changes nothing.
  ColumnHeader& Add(int index, std::string key, std::string caption, int width = 1440,
                    int alignment = lvwColumnLeft);
  ColumnHeader& Item(int index) const { return columns_.At(index); }  // 1-based
  ColumnHeader& Item(std::string_view key) const { return columns_.At(key); }
  void Remove(int index);
  void Clear();

  auto begin() const { return columns_.begin(); }
  auto end() const { return columns_.end(); }

 private:
  ListView& view_;
  KeyedList<ColumnHeader> columns_;
};

}  // namespace orvel
