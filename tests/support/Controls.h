#pragma once

#include <initializer_list>
#include <string>

#include "ui/Control.h"

namespace orvel {

// Whether each control is enabled, as "1" or "0" in the order given: a
// window's buttons compared in one line.
inline std::string OnOff(std::initializer_list<const Control*> controls) {
  std::string out;
  for (const Control* control : controls) out += control->Enabled() ? "1" : "0";
  return out;
}

}  // namespace orvel
