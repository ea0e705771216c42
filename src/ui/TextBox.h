#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "ui/Control.h"

namespace orvel {

// A text box. Setting Text from code raises Change when the text differs, as
// the platform does, whatever Enabled or Locked say; a text longer than
// MaxLength characters is cut to it. Locked keeps the user from editing, not
// the code.
class TextBox : public Control {
 public:
  using Control::Control;

  const std::string& Text() const { return text_; }
  void SetText(std::string text);
  bool Locked() const { return locked_; }
  void SetLocked(bool locked) { Assign(locked_, locked, "Locked"); }
  // Characters, not bytes; 0 is no limit. A negative length is
  // RuntimeError 380 (invalid property value). A shorter limit does not cut
  // the text already there.
  int MaxLength() const { return maxLength_; }
  void SetMaxLength(int length);
  // The selected part, in characters from the start; a new text clears it.
  int SelStart() const { return selStart_; }
  int SelLength() const { return selLength_; }
  void SetSelection(int start, int length) {
    Assign(selStart_, start, "SelStart");
    Assign(selLength_, length, "SelLength");
  }
  // Selects the whole text, as a number box does on focus.
  void SelectAll();
  // The colour of the text (0x00BBGGRR); a note's priority colours it.
  int32_t ForeColor() const { return foreColor_; }
  void SetForeColor(int32_t color) { Assign(foreColor_, color, "ForeColor"); }

  std::function<void()> OnChange;
  std::function<void(int& keyAscii)> OnKeyPress;
  std::function<void(int& keyCode, int shift)> OnKeyDown;
  std::function<void()> OnGotFocus;
  std::function<void()> OnLostFocus;
  std::function<void()> OnDblClick;

  // The user replacing the text: refused (false) while the box is disabled,
  // hidden or locked; otherwise as SetText.
  bool Edit(std::string text);
  // Raises Change.
  void Change() { Raise(OnChange); }
  // A typed character. Returns the character after the handler: 0 when the
  // handler swallowed it, and 0 when the box takes no input.
  int KeyPress(int keyAscii);
  // A key going down. Returns the key code after the handler (0: swallowed).
  int KeyDown(int keyCode, int shift = 0);
  void GotFocus();
  void LostFocus();
  void DblClick();

  void FocusEntered() override { GotFocus(); }
  void FocusLeft() override { LostFocus(); }
  int KeyTyped(int keyAscii) override { return KeyPress(keyAscii); }

 private:
  std::string text_;
  bool locked_ = false;
  int maxLength_ = 0;
  int selStart_ = 0;
  int selLength_ = 0;
  int32_t foreColor_ = 0;
};

}  // namespace orvel
