#pragma once

#include <memory>

#include "orvel/Object.h"

namespace orvel {

class OrvelComponentRegistry;
class OrvelGroupSelect;
class OrvelObjectSelect;
class OrvelPrintDoc;

/// The host's classes that the module creates anew each time it needs one
/// (registration, pickers). The host hands this factory to the module when it
/// loads it, before DllInicialize.
class OrvelHostClasses : public Object {
 public:
  virtual std::shared_ptr<OrvelComponentRegistry> NewComponentRegistry() = 0;
  virtual std::shared_ptr<OrvelGroupSelect> NewGroupSelect() = 0;
  virtual std::shared_ptr<OrvelObjectSelect> NewObjectSelect() = 0;
  /// A new, empty print document for one printout.
  virtual std::shared_ptr<OrvelPrintDoc> NewPrintDoc() = 0;
};

}  // namespace orvel
