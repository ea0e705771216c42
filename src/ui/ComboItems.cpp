#include "ui/ComboItems.h"

#include <memory>

#include "ui/ImageCombo.h"

namespace orvel {

ComboItem& ComboItems::Add(std::string key, std::string text, std::string image) {
  ComboItem& added = items_.Insert(
      0, std::make_unique<ComboItem>(combo_, std::move(key), std::move(text), std::move(image)));
  combo_.Notify("ComboItems");
  return added;
}

void ComboItems::Remove(int index) {
  Removing(items_.At(index));
  items_.Remove(index);
  combo_.Notify("ComboItems");
}

void ComboItems::Remove(std::string_view key) {
  Removing(items_.At(key));
  items_.Remove(key);
  combo_.Notify("ComboItems");
}

void ComboItems::Clear() {
  if (combo_.selected_) Removing(*combo_.selected_);
  if (items_.Empty()) return;
  items_.Clear();
  combo_.Notify("ComboItems");
}

void ComboItems::Removing(const ComboItem& item) {
  if (combo_.selected_ != &item) return;
  combo_.selected_ = nullptr;
  combo_.Notify("SelectedItem");
}

}  // namespace orvel
