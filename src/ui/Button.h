#pragma once

#include <functional>
#include <string>

#include "ui/Control.h"

namespace orvel {

// A command button (also the module's 3D buttons, SSCNew and SSCClose).
class Button : public Control {
 public:
  using Control::Control;

  const std::string& Caption() const { return caption_; }
  void SetCaption(std::string caption) { Assign(caption_, std::move(caption), "Caption"); }

  std::function<void()> OnClick;
  std::function<void(int button, int shift)> OnMouseDown;
  std::function<void(int button, int shift)> OnMouseUp;

  // The user's click; nothing happens while the button is disabled or hidden.
  void Click();
  void MouseDown(int button, int shift = 0);
  void MouseUp(int button, int shift = 0);

 private:
  std::string caption_;
};

}  // namespace orvel
