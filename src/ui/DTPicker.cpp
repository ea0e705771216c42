#include "ui/DTPicker.h"

#include "orvel/RuntimeError.h"
#include "ui/ControlConstants.h"

namespace orvel {

Variant DTPicker::Value() const {
  if (checkBox_ && !ticked_) return Variant::Null();
  return Variant(date_);
}

void DTPicker::SetValue(const Variant& value) {
  Variant before = Value();
  if (value.IsNull()) {
    if (!checkBox_) {
      throw RuntimeError(
          control_error::kInvalidPropertyValue,
          "Neteisinga savybės reikšmė: " + Name() + " be žymimojo langelio negali būti tuščias");
    }
    ticked_ = false;
  } else if (value.Type() == VarType::Date) {
    if (minDate_ && value.DateValue() < *minDate_) {
      throw RuntimeError(control_error::kInvalidPropertyValue,
                         "Neteisinga savybės reikšmė: " + Name() + " data ankstesnė už MinDate");
    }
    date_ = value.DateValue();
    ticked_ = true;
  } else {
    throw RuntimeError(
        control_error::kInvalidPropertyValue,
        "Neteisinga savybės reikšmė: " + Name() + " laukia datos, ne " + Describe(value));
  }
  if (Value() == before) return;
  Notify("Value");
  Raise(OnChange);
}

void DTPicker::SetCheckBox(bool checkBox) {
  Variant before = Value();
  if (!Assign(checkBox_, checkBox, "CheckBox")) return;
  if (!checkBox_) ticked_ = true;
  if (Value() != before) Notify("Value");
}

bool DTPicker::Pick(const Variant& value) {
  if (!Active()) return false;
  if (!value.IsNull() && value.Type() != VarType::Date) return false;
  if (value.IsNull() && !checkBox_) return false;
  if (!value.IsNull() && minDate_ && value.DateValue() < *minDate_) return false;
  SetValue(value);
  return true;
}

void DTPicker::SetMinDate(orvel::Date date) {
  if (minDate_ == date) return;
  minDate_ = date;
  Notify("MinDate");
  if (date_ >= date) return;
  // The date moves up to the new minimum; an unticked picker keeps showing
  // no date, and brings the moved one back when ticked.
  Variant before = Value();
  date_ = date;
  Notify("Value");
  if (Value() != before) Raise(OnChange);
}

void DTPicker::LostFocus() {
  if (Active()) Raise(OnLostFocus);
}

}  // namespace orvel
