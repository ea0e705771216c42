#pragma once

#include <memory>

#include "orvel/OrvelServices.h"

namespace orvel {

// The services root of the test host: hands out the managers it was given.
class TestServices : public OrvelServices {
 public:
  TestServices(std::shared_ptr<Object> mainForm, std::shared_ptr<OrvelObjectManager> objectManager,
               std::shared_ptr<OrvelWindowManager> windowManager,
               std::shared_ptr<OrvelRights> rights, std::shared_ptr<OrvelEnvironment> environment);

  std::shared_ptr<Object> MainForm() override { return mainForm_; }
  std::shared_ptr<OrvelObjectManager> ObjectManager() override { return objectManager_; }
  std::shared_ptr<OrvelWindowManager> WindowManager() override { return windowManager_; }
  std::shared_ptr<OrvelRights> Rights() override { return rights_; }
  std::shared_ptr<OrvelEnvironment> Environment() override { return environment_; }

 private:
  std::shared_ptr<Object> mainForm_;
  std::shared_ptr<OrvelObjectManager> objectManager_;
  std::shared_ptr<OrvelWindowManager> windowManager_;
  std::shared_ptr<OrvelRights> rights_;
  std::shared_ptr<OrvelEnvironment> environment_;
};

}  // namespace orvel
