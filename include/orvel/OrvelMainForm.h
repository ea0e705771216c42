#pragma once

#include <memory>

#include "orvel/Object.h"

namespace orvel {

/// The host's main window, as the module reaches it through
/// OrvelServices::MainForm: only its image list of catalogue icons, which
/// forms hang on their list views as the small-icon list.
class OrvelMainForm : public Object {
 public:
  virtual std::shared_ptr<Object> ImgCatalogue() = 0;
};

}  // namespace orvel
