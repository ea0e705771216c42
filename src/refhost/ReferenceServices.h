#pragma once

#include <memory>

#include "orvel/OrvelMainForm.h"
#include "orvel/OrvelServices.h"

namespace orvel {

// The reference host's main window as the module sees it: the image list of
// the catalogue's icons.
class ReferenceMainForm : public OrvelMainForm {
 public:
  explicit ReferenceMainForm(std::shared_ptr<Object> images) : images_(std::move(images)) {}
  std::shared_ptr<Object> ImgCatalogue() override { return images_; }

 private:
  std::shared_ptr<Object> images_;
};

// The services root of the reference host: the parts it was built with.
class ReferenceServices : public OrvelServices {
 public:
  ReferenceServices(std::shared_ptr<Object> mainForm, std::shared_ptr<OrvelObjectManager> objects,
                    std::shared_ptr<OrvelWindowManager> windows,
                    std::shared_ptr<OrvelRights> rights,
                    std::shared_ptr<OrvelEnvironment> environment)
      : mainForm_(std::move(mainForm)),
        objects_(std::move(objects)),
        windows_(std::move(windows)),
        rights_(std::move(rights)),
        environment_(std::move(environment)) {}

  std::shared_ptr<Object> MainForm() override { return mainForm_; }
  std::shared_ptr<OrvelObjectManager> ObjectManager() override { return objects_; }
  std::shared_ptr<OrvelWindowManager> WindowManager() override { return windows_; }
  std::shared_ptr<OrvelRights> Rights() override { return rights_; }
  std::shared_ptr<OrvelEnvironment> Environment() override { return environment_; }

 private:
  std::shared_ptr<Object> mainForm_;
  std::shared_ptr<OrvelObjectManager> objects_;
  std::shared_ptr<OrvelWindowManager> windows_;
  std::shared_ptr<OrvelRights> rights_;
  std::shared_ptr<OrvelEnvironment> environment_;
};

}  // namespace orvel
