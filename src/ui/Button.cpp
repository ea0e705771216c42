#include "ui/Button.h"

namespace orvel {

void Button::Click() {
  if (Active()) Raise(OnClick);
}

void Button::MouseDown(int button, int shift) {
  if (Active()) Raise(OnMouseDown, button, shift);
}

void Button::MouseUp(int button, int shift) {
  if (Active()) Raise(OnMouseUp, button, shift);
}

}  // namespace orvel
