#pragma once

#include <memory>
#include <string>

#include "testhost/TestObjectManager.h"

namespace orvel {

class CallLog;
class MemoryBusinessObject;
class ScriptedUi;
class TestEnvironment;
class TestHostClasses;
class TestMainForm;
class TestRights;
class TestServices;
class TestSession;
class TestUser;
class TestWindowManager;

// The whole in-memory host, wired and ready: one journal, the services with
// their managers, rights and settings, the session and user, the creatable
// classes and the scripted Ui. A test or the demo builds one, sets the
// adapter source, and hands Services(), HostClasses() and Ui() to the module.
//
// Adapters and windows hold the services, which hold the managers that hold
// them; the destructor breaks that cycle by dropping both.
class TestHost {
 public:
  TestHost();
  ~TestHost();
  TestHost(const TestHost&) = delete;
  TestHost& operator=(const TestHost&) = delete;

  void SetAdapterSource(TestObjectManager::AdapterSource source);
  // The type's business object, made on first use.
  std::shared_ptr<MemoryBusinessObject> BusinessObject(const std::string& oid);

  CallLog& Log() { return *log_; }
  const std::shared_ptr<CallLog>& LogPtr() const { return log_; }
  const std::shared_ptr<TestServices>& Services() const { return services_; }
  const std::shared_ptr<TestObjectManager>& ObjectManager() const { return objectManager_; }
  const std::shared_ptr<TestWindowManager>& WindowManager() const { return windowManager_; }
  const std::shared_ptr<TestRights>& Rights() const { return rights_; }
  const std::shared_ptr<TestEnvironment>& Environment() const { return environment_; }
  const std::shared_ptr<TestSession>& Session() const { return session_; }
  const std::shared_ptr<TestUser>& User() const { return user_; }
  const std::shared_ptr<TestMainForm>& MainForm() const { return mainForm_; }
  const std::shared_ptr<TestHostClasses>& HostClasses() const { return hostClasses_; }
  const std::shared_ptr<ScriptedUi>& Ui() const { return ui_; }

 private:
  std::shared_ptr<CallLog> log_;
  std::shared_ptr<TestMainForm> mainForm_;
  std::shared_ptr<TestObjectManager> objectManager_;
  std::shared_ptr<TestWindowManager> windowManager_;
  std::shared_ptr<TestRights> rights_;
  std::shared_ptr<TestSession> session_;
  std::shared_ptr<TestUser> user_;
  std::shared_ptr<TestEnvironment> environment_;
  std::shared_ptr<TestServices> services_;
  std::shared_ptr<TestHostClasses> hostClasses_;
  std::shared_ptr<ScriptedUi> ui_;
};

}  // namespace orvel
