#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "ui/Control.h"
#include "ui/ControlObserver.h"

namespace orvel {

// Keeps every notification as "<control>.<property>".
class RecordingObserver : public ControlObserver {
 public:
  void ControlChanged(Control& control, std::string_view property) override {
    changes.push_back(control.Name() + "." + std::string(property));
  }
  std::vector<std::string> changes;
};

}  // namespace orvel
