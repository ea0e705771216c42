#pragma once

#include "orvel/Object.h"
#include "orvel/OrvelStatus.h"

namespace orvel {

/// The module's header: the host calls DllInicialize once at load. A failure
/// of registration comes back as a non-zero Number, never as an exception.
class OrvelHeader : public Object {
 public:
  virtual OrvelStatus DllInicialize() = 0;
};

}  // namespace orvel
