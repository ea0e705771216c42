#include "ui/TextBox.h"

#include "orvel/RuntimeError.h"
#include "host/Text.h"
#include "ui/ControlConstants.h"

namespace orvel {

void TextBox::SetText(std::string text) {
  if (maxLength_ > 0 && Len(text) > maxLength_) text = Left(text, maxLength_);
  if (Assign(text_, std::move(text), "Text")) {
    SetSelection(0, 0);
    Change();
  }
}

void TextBox::SelectAll() { SetSelection(0, static_cast<int>(Len(text_))); }

void TextBox::SetMaxLength(int length) {
  if (length < 0) {
    throw RuntimeError(
        control_error::kInvalidPropertyValue,
        "Neteisinga savybės reikšmė: MaxLength " + std::to_string(length) + " (" + Name() + ")");
  }
  Assign(maxLength_, length, "MaxLength");
}

bool TextBox::Edit(std::string text) {
  if (!Active() || locked_) return false;
  SetText(std::move(text));
  return true;
}

int TextBox::KeyPress(int keyAscii) {
  if (!Active()) return 0;
  Raise(OnKeyPress, keyAscii);
  return keyAscii;
}

int TextBox::KeyDown(int keyCode, int shift) {
  if (!Active()) return 0;
  Raise(OnKeyDown, keyCode, shift);
  return keyCode;
}

void TextBox::GotFocus() {
  if (Active()) Raise(OnGotFocus);
}

void TextBox::LostFocus() {
  if (Active()) Raise(OnLostFocus);
}

void TextBox::DblClick() {
  if (Active()) Raise(OnDblClick);
}

}  // namespace orvel
