#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "ui/Control.h"

namespace orvel {

// A line of text on a form; its colour tells a state (a note's priority).
class Label : public Control {
 public:
  using Control::Control;

  const std::string& Caption() const { return caption_; }
  void SetCaption(std::string caption) { Assign(caption_, std::move(caption), "Caption"); }
  int32_t ForeColor() const { return foreColor_; }
  void SetForeColor(int32_t color) { Assign(foreColor_, color, "ForeColor"); }

  std::function<void()> OnClick;
  void Click() {
    if (Active()) Raise(OnClick);
  }

 private:
  std::string caption_;
  int32_t foreColor_ = 0;
};

}  // namespace orvel
