#include "ui/CheckBox.h"

#include "orvel/RuntimeError.h"
#include "ui/ControlConstants.h"

namespace orvel {

void CheckBox::SetValue(int value) {
  if (value < vbUnchecked || value > vbGrayed) {
    throw RuntimeError(control_error::kInvalidPropertyValue,
                       "Neteisinga savybės reikšmė: Value " + std::to_string(value) + " (" + Name() + ")");
  }
  if (Assign(value_, value, "Value")) Raise(OnClick);
}

void CheckBox::Click() {
  if (!Active()) return;
  SetValue(value_ == vbUnchecked ? vbChecked : vbUnchecked);
}

}  // namespace orvel
