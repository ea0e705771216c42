#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "ui/Control.h"
#include "ui/ControlObserver.h"
#include "ui/Form.h"
#include "ui/FormObserver.h"

namespace orvel {

// Keeps every notification of a control or a form as "<name>.<property>".
class RecordingObserver : public ControlObserver, public FormObserver {
 public:
  void ControlChanged(Control& control, std::string_view property) override {
    changes.push_back(control.Name() + "." + std::string(property));
  }
  void FormChanged(Form& form, std::string_view property) override {
    changes.push_back(form.Name() + "." + std::string(property));
  }
  std::vector<std::string> changes;
};

}  // namespace orvel
