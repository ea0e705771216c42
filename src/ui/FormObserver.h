#pragma once

#include <string_view>

namespace orvel {

class Form;

// Told of every change of a form's own state ("Caption", "Enabled",
// "Visible", "Loaded"), so that a renderer can mirror it.
class FormObserver {
 public:
  virtual ~FormObserver() = default;
  virtual void FormChanged(Form& form, std::string_view property) = 0;
};

}  // namespace orvel
