#pragma once

#include <functional>
#include <optional>

#include "orvel/Variant.h"
#include "ui/Control.h"

namespace orvel {

// A date picker. Value is a Date, or Null while the picker shows a check box
// (CheckBox) that is off. Setting Null without the check box, or anything but
// a Date or Null, is RuntimeError 380 and changes nothing. Change is raised
// whenever Value changes, from code or the user.
class DTPicker : public Control {
 public:
  using Control::Control;

  Variant Value() const;
  void SetValue(const Variant& value);
  // Turning the check box off does not clear the value: Null only comes from
  // unticking it (SetValue(Null)). Turning it off while Null brings the last
  // date back.
  bool CheckBox() const { return checkBox_; }
  void SetCheckBox(bool checkBox);

  // The earliest date the picker takes, none until set. Setting it past the
  // present date moves the date up to it (raising Change; while the check box
  // is off the moved date waits unshown); setting Value before it is
  // RuntimeError 380, and the user cannot pick such a date.
  const std::optional<orvel::Date>& MinDate() const { return minDate_; }
  void SetMinDate(orvel::Date date);

  std::function<void()> OnChange;
  std::function<void()> OnLostFocus;

  // The user picking a value (a Date, or Null for unticking the check box).
  // Refused (false) while disabled or hidden, or for a value the picker
  // cannot show.
  bool Pick(const Variant& value);
  void LostFocus();
  void FocusLeft() override { LostFocus(); }

 private:
  orvel::Date date_{};
  bool checkBox_ = false;
  bool ticked_ = true;
  std::optional<orvel::Date> minDate_;
};

}  // namespace orvel
