#include "testhost/TestHost.h"

#include "testhost/CallLog.h"
#include "testhost/MemoryBusinessObject.h"
#include "testhost/ScriptedUi.h"
#include "testhost/TestEnvironment.h"
#include "testhost/TestHostClasses.h"
#include "testhost/TestMainForm.h"
#include "testhost/TestRights.h"
#include "testhost/TestServices.h"
#include "testhost/TestSession.h"
#include "testhost/TestUser.h"
#include "testhost/TestWindowManager.h"

namespace orvel {

TestHost::TestHost()
    : log_(std::make_shared<CallLog>()),
      mainForm_(std::make_shared<TestMainForm>()),
      objectManager_(std::make_shared<TestObjectManager>(log_)),
      windowManager_(std::make_shared<TestWindowManager>(log_)),
      rights_(std::make_shared<TestRights>(log_)),
      session_(std::make_shared<TestSession>()),
      user_(std::make_shared<TestUser>()),
      environment_(std::make_shared<TestEnvironment>(log_)),
      services_(std::make_shared<TestServices>(mainForm_, objectManager_, windowManager_, rights_,
                                               environment_)),
      hostClasses_(std::make_shared<TestHostClasses>(log_)),
      ui_(std::make_shared<ScriptedUi>(log_)) {
  environment_->SetSession(session_);
  environment_->SetUser(user_);
  objectManager_->SetServices(services_);
}

TestHost::~TestHost() {
  windowManager_->Clear();
  objectManager_->ClearAdapters();
  // The module may keep the Ui past the host; what the test queued is judged now.
  ui_->Verify();
}

void TestHost::SetAdapterSource(TestObjectManager::AdapterSource source) {
  objectManager_->SetAdapterSource(std::move(source));
}

std::shared_ptr<MemoryBusinessObject> TestHost::BusinessObject(const std::string& oid) {
  return objectManager_->BusinessObject(oid);
}

}  // namespace orvel
