#pragma once

#include <initializer_list>
#include <string>

#include "ui/Control.h"

namespace orvel {

// A frame with a caption that holds other controls of its form: hiding or
// disabling it hides or disables what it holds, which keep their own
// Visible and Enabled.
class Frame : public Control {
 public:
  using Control::Control;

  const std::string& Caption() const { return caption_; }
  void SetCaption(std::string caption) { Assign(caption_, std::move(caption), "Caption"); }
  // Puts the controls into this frame.
  void Hold(std::initializer_list<Control*> controls) {
    for (Control* control : controls) control->SetContainer(this);
  }

 private:
  std::string caption_;
};

}  // namespace orvel
