#pragma once

#include <string>

#include "orvel/Variant.h"
#include "ui/KeyedList.h"

namespace orvel {

class ImageCombo;

// One row of an image combo: key, text and the key of its image. Made by
// ComboItems::Add and owned by the combo; a reference stays valid while the
// row is in the list.
class ComboItem {
 public:
  ComboItem(ImageCombo& combo, std::string key, std::string text, std::string image)
      : combo_(combo), key_(std::move(key)), text_(std::move(text)), image_(std::move(image)) {}
  ComboItem(const ComboItem&) = delete;
  ComboItem& operator=(const ComboItem&) = delete;

  int Index() const { return index_; }  // 1-based
  const std::string& Key() const { return key_; }
  const std::string& Text() const { return text_; }
  void SetText(std::string text);
  // The key of its picture in the combo's image list; "" for none.
  const std::string& Image() const { return image_; }
  void SetImage(std::string key);
  const Variant& Tag() const { return tag_; }
  void SetTag(Variant tag);
  bool Selected() const;

  ImageCombo& Combo() const { return combo_; }

 private:
  friend class KeyedList<ComboItem>;

  ImageCombo& combo_;
  std::string key_;
  std::string text_;
  std::string image_;
  Variant tag_;
  int index_ = 0;
};

}  // namespace orvel
