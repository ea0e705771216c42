#pragma once

#include <functional>
#include <string>

#include "ui/Control.h"

namespace orvel {

enum CheckBoxValue : int { vbUnchecked = 0, vbChecked = 1, vbGrayed = 2 };

// A check box. Value is 0, 1 or 2 (grayed); any change of it, from code or
// the user, raises Click, as on the platform.
class CheckBox : public Control {
 public:
  using Control::Control;

  const std::string& Caption() const { return caption_; }
  void SetCaption(std::string caption) { Assign(caption_, std::move(caption), "Caption"); }
  int Value() const { return value_; }
  // A value other than 0, 1, 2 is RuntimeError 380 and changes nothing.
  void SetValue(int value);

  std::function<void()> OnClick;
  // The user's click: a checked or grayed box becomes unchecked, an
  // unchecked one checked. Nothing while disabled or hidden.
  void Click();

 private:
  std::string caption_;
  int value_ = vbUnchecked;
};

}  // namespace orvel
