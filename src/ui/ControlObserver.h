#pragma once

#include <string_view>

namespace orvel {

class Control;

// Told of every change of a control's state, so that a renderer can mirror
// it. `property` names what changed: "Enabled", "Caption", "Text",
// "ListItems", ... The control has changed already when this is called.
class ControlObserver {
 public:
  virtual ~ControlObserver() = default;
  virtual void ControlChanged(Control& control, std::string_view property) = 0;
};

}  // namespace orvel
