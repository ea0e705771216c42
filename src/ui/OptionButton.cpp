#include "ui/OptionButton.h"

namespace orvel {

void OptionButton::Group(std::initializer_list<OptionButton*> options) {
  for (OptionButton* option : options) {
    option->group_.clear();
    for (OptionButton* other : options) {
      if (other != option) option->group_.push_back(other);
    }
  }
}

void OptionButton::SetValue(bool value) {
  if (!Assign(value_, value, "Value") || !value) return;
  for (OptionButton* other : group_) other->Assign(other->value_, false, "Value");
  Raise(OnClick);
}

void OptionButton::Click() {
  if (Active()) SetValue(true);
}

}  // namespace orvel
