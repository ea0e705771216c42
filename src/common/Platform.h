#pragma once

#include <memory>

namespace orvel {

class OrvelHostClasses;
class Ui;

// What the host lends the module when it loads it: its creatable classes
// (registration, pickers) and the Ui seam. Held module-wide until unload.
class Platform {
 public:
  // Also makes the Ui's locale the one in force for conversions.
  static void Attach(std::shared_ptr<OrvelHostClasses> classes, std::shared_ptr<orvel::Ui> ui);
  static void Detach();
  static bool Attached();
  // Each throws RuntimeError when the host attached nothing.
  static OrvelHostClasses& Classes();
  static orvel::Ui& Ui();
};

}  // namespace orvel
