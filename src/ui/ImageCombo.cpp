#include "ui/ImageCombo.h"

#include "orvel/RuntimeError.h"
#include "ui/ControlConstants.h"

namespace orvel {

ImageCombo::ImageCombo(std::string name) : Control(std::move(name)) {}

void ImageCombo::SetSelectedItem(ComboItem* item) {
  if (item && &item->Combo() != this) {
    throw RuntimeError(
        control_error::kInvalidPropertyValue,
        "Neteisinga savybės reikšmė: eilutės „" + item->Text() + "“ nėra sąraše " + Name());
  }
  if (selected_ == item) return;
  selected_ = item;
  Notify("SelectedItem");
  if (item) Assign(text_, item->Text(), "Text");
  Raise(OnClick);
}

void ImageCombo::SetText(std::string text) {
  if (!Assign(text_, std::move(text), "Text")) return;
  ComboItem* match = nullptr;
  for (const auto& item : items_) {
    if (item->Text() == text_) {
      match = item.get();
      break;
    }
  }
  if (selected_ != match) {
    selected_ = match;
    Notify("SelectedItem");
  }
  Raise(OnChange);
}

void ImageCombo::SetImageList(std::shared_ptr<Object> images) {
  if (imageList_ == images) return;
  imageList_ = std::move(images);
  Notify("ImageList");
}

void ImageCombo::Pick(ComboItem& item) {
  if (!Active() || locked_ || &item.Combo() != this) return;
  SetSelectedItem(&item);
}

}  // namespace orvel
