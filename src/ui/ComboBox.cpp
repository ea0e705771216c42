#include "ui/ComboBox.h"

#include "orvel/RuntimeError.h"
#include "ui/ControlConstants.h"

namespace orvel {

void ComboBox::SetStyle(int style) {
  if (style != vbComboDropdown && style != vbComboDropdownList) {
    throw RuntimeError(control_error::kInvalidPropertyValue,
                       "Neteisinga savybės reikšmė: Style " + std::to_string(style) + " (" + Name() + ")");
  }
  Assign(style_, style, "Style");
}

int ComboBox::AddItem(std::string text, int32_t itemData) {
  items_.push_back({std::move(text), itemData});
  newIndex_ = ListCount() - 1;
  Notify("List");
  return newIndex_;
}

void ComboBox::RemoveItem(int index) {
  At(index);  // checks the index
  items_.erase(items_.begin() + index);
  if (listIndex_ == index) {
    listIndex_ = -1;
    Notify("ListIndex");
  } else if (listIndex_ > index) {
    --listIndex_;
  }
  newIndex_ = -1;
  Notify("List");
}

void ComboBox::Clear() {
  items_.clear();
  newIndex_ = -1;
  Notify("List");
  Assign(listIndex_, -1, "ListIndex");
  SetShownText("");
}

std::string ComboBox::List(int index) const {
  if (index < 0 || index >= ListCount()) return {};
  return items_[static_cast<size_t>(index)].text;
}

int32_t ComboBox::ItemData(int index) const { return At(index).data; }

void ComboBox::SetItemData(int index, int32_t data) {
  At(index).data = data;
  Notify("List");
}

void ComboBox::SetListIndex(int index) {
  if (index < -1 || index >= ListCount()) {
    throw RuntimeError(
        control_error::kInvalidPropertyValue,
        "Neteisinga savybės reikšmė: ListIndex " + std::to_string(index) + " (" + Name() + ")");
  }
  if (!Assign(listIndex_, index, "ListIndex")) return;
  SetShownText(index < 0 ? std::string() : items_[static_cast<size_t>(index)].text);
  Raise(OnClick);
}

void ComboBox::SetText(std::string text) {
  int found = FindExact(text);
  if (style_ == vbComboDropdownList) {
    if (found < 0 && !text.empty()) {
      throw RuntimeError(control_error::kReadOnlyText,
                         "'Text' property is read-only: " + Name() + " has no row '" + text + "'");
    }
    SetListIndex(found);
    return;
  }
  if (Assign(text_, std::move(text), "Text")) Raise(OnChange);
  if (found >= 0) {
    SetListIndex(found);
  } else {
    Assign(listIndex_, -1, "ListIndex");
  }
}

void ComboBox::Pick(int index) {
  if (!Active() || index < 0) return;
  SetListIndex(index);
}

bool ComboBox::Edit(std::string text) {
  if (!Active() || style_ == vbComboDropdownList) return false;
  SetText(std::move(text));
  return true;
}

void ComboBox::LostFocus() {
  if (Active()) Raise(OnLostFocus);
}

int ComboBox::KeyPress(int keyAscii) {
  if (!Active()) return 0;
  Raise(OnKeyPress, keyAscii);
  return keyAscii;
}

const ComboBox::Item& ComboBox::At(int index) const {
  if (index < 0 || index >= ListCount()) {
    throw RuntimeError(control_error::kInvalidArrayIndex,
                       "Neteisingas savybės masyvo indeksas: " + std::to_string(index) + " (" + Name() + ")" +
                           " (eilučių: " + std::to_string(ListCount()) + ")");
  }
  return items_[static_cast<size_t>(index)];
}

ComboBox::Item& ComboBox::At(int index) {
  return const_cast<Item&>(static_cast<const ComboBox&>(*this).At(index));
}

int ComboBox::FindExact(const std::string& text) const {
  for (size_t i = 0; i < items_.size(); ++i) {
    if (items_[i].text == text) return static_cast<int>(i);
  }
  return -1;
}

void ComboBox::SetShownText(std::string text) { Assign(text_, std::move(text), "Text"); }

}  // namespace orvel
