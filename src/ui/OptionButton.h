#pragma once

#include <functional>
#include <initializer_list>
#include <string>
#include <vector>

#include "ui/Control.h"

namespace orvel {

// An option button. Options of one frame form a group (Group()): setting one
// True sets the others False. Setting Value True raises Click on that
// option; the options it clears raise nothing.
class OptionButton : public Control {
 public:
  using Control::Control;

  // Makes these options one group. All of them must be members of the same
  // form, so that they live as long as each other.
  static void Group(std::initializer_list<OptionButton*> options);

  const std::string& Caption() const { return caption_; }
  void SetCaption(std::string caption) { Assign(caption_, std::move(caption), "Caption"); }
  bool Value() const { return value_; }
  void SetValue(bool value);

  std::function<void()> OnClick;
  // The user's click: selects this option. Nothing while disabled or hidden.
  void Click();

 private:
  std::string caption_;
  bool value_ = false;
  std::vector<OptionButton*> group_;
};

}  // namespace orvel
