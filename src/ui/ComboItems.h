#pragma once

#include <string>
#include <string_view>

#include "ui/ComboItem.h"
#include "ui/KeyedList.h"

namespace orvel {

class ImageCombo;

// The rows of an image combo, 1-based, optionally keyed. Changes notify the
// combo's observer as "ComboItems"; a row that goes takes the selection with it.
class ComboItems {
 public:
  explicit ComboItems(ImageCombo& combo) : combo_(combo) {}
  ComboItems(const ComboItems&) = delete;
  ComboItems& operator=(const ComboItems&) = delete;

  int Count() const { return items_.Count(); }
  // Appends a row. A duplicate non-empty key is RuntimeError 35602 and adds
  // nothing.
  ComboItem& Add(std::string key, std::string text, std::string image = {});
  ComboItem& Item(int index) const { return items_.At(index); }           // 1-based; else 35600
  ComboItem& Item(std::string_view key) const { return items_.At(key); }  // else 35601
  ComboItem* Find(std::string_view key) const { return items_.Find(key); }
  void Remove(int index);
  void Remove(std::string_view key);
  void Clear();

  auto begin() const { return items_.begin(); }
  auto end() const { return items_.end(); }

 private:
  void Removing(const ComboItem& item);

  ImageCombo& combo_;
  KeyedList<ComboItem> items_;
};

}  // namespace orvel
