#pragma once

#include <memory>

#include "orvel/OrvelMainForm.h"

namespace orvel {

// The host's main window in the test host: its catalogue image list is a
// plain object, there to be handed over and compared.
class TestMainForm : public OrvelMainForm {
 public:
  std::shared_ptr<Object> ImgCatalogue() override { return imgCatalogue_; }

 private:
  class ImageList : public Object {};
  std::shared_ptr<Object> imgCatalogue_ = std::make_shared<ImageList>();
};

}  // namespace orvel
