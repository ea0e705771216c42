#pragma once

#include <memory>

#include "orvel/Object.h"

namespace orvel {

class OrvelObjectManager;
class OrvelWindowManager;
class OrvelRights;
class OrvelEnvironment;

/// The host's services root. The module keeps one module-wide reference to it
/// (OrvelS), set by the first adapter that receives it.
class OrvelServices : public Object {
 public:
  /// The host's main window; it holds the catalogue image list.
  virtual std::shared_ptr<Object> MainForm() = 0;
  virtual std::shared_ptr<OrvelObjectManager> ObjectManager() = 0;
  virtual std::shared_ptr<OrvelWindowManager> WindowManager() = 0;
  virtual std::shared_ptr<OrvelRights> Rights() = 0;
  virtual std::shared_ptr<OrvelEnvironment> Environment() = 0;
};

}  // namespace orvel
