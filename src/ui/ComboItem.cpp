#include "ui/ComboItem.h"

#include "ui/ImageCombo.h"

namespace orvel {

void ComboItem::SetText(std::string text) {
  if (text_ == text) return;
  text_ = std::move(text);
  combo_.Notify("ComboItems");
}

void ComboItem::SetImage(std::string key) {
  if (image_ == key) return;
  image_ = std::move(key);
  combo_.Notify("ComboItems");
}

void ComboItem::SetTag(Variant tag) {
  if (tag_ == tag) return;
  tag_ = std::move(tag);
  combo_.Notify("ComboItems");
}

bool ComboItem::Selected() const { return combo_.SelectedItem() == this; }

}  // namespace orvel
