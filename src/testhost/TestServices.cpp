#include "testhost/TestServices.h"

namespace orvel {

TestServices::TestServices(std::shared_ptr<Object> mainForm,
                           std::shared_ptr<OrvelObjectManager> objectManager,
                           std::shared_ptr<OrvelWindowManager> windowManager,
                           std::shared_ptr<OrvelRights> rights,
                           std::shared_ptr<OrvelEnvironment> environment)
    : mainForm_(std::move(mainForm)),
      objectManager_(std::move(objectManager)),
      windowManager_(std::move(windowManager)),
      rights_(std::move(rights)),
      environment_(std::move(environment)) {}

}  // namespace orvel
