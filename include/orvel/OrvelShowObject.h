#pragma once

#include "orvel/Object.h"

namespace orvel {

/// A child object a catalogue window opened and must unload with its own
/// writes (the window's ShowObject).
class OrvelShowObject : public Object {
 public:
  virtual void UnloadShowOrvelObject() = 0;
};

}  // namespace orvel
