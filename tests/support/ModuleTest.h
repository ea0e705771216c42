#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "common/Catalogue.h"
#include "common/ModuleState.h"
#include "common/Platform.h"
#include "orvel/OrvelObjectUI.h"
#include "module/ClassFactory.h"
#include "testhost/CallLog.h"
#include "testhost/MemoryBusinessObject.h"
#include "support/BoxLines.h"
#include "support/StrictUi.h"
#include "testhost/ScriptedUi.h"
#include "testhost/TestHost.h"
#include "testhost/TestHostClasses.h"
#include "testhost/TestObjectManager.h"

namespace orvel {

// A test with the module attached to a fresh in-memory host: the host's
// classes and Ui lent, adapters made by the module's class factory, and the
// module's state (services, dialogs, rate service) put back as it was after.
class ModuleTest : public ::testing::Test {
 protected:
  void SetUp() override {
    ResetOrvelS();
    Platform::Attach(host_.HostClasses(), host_.Ui());
    host_.SetAdapterSource([](const std::string& oid) {
      return std::dynamic_pointer_cast<OrvelObjectUI>(ClassFactory::Create("UI" + oid.substr(1)));
    });
  }

  void TearDown() override {
    Platform::Detach();
    ResetOrvelS();
  }

  // The type adapter the host makes for an OID (OID, BO and OrvelS given).
  std::shared_ptr<OrvelObjectUI> Adapter(const std::string& oid) {
    return host_.ObjectManager()->GetOrvelObjectUI(oid);
  }

  MemoryBusinessObject& BO(const std::string& oid) { return *host_.BusinessObject(oid); }
  std::vector<std::string> BusinessLines() { return host_.Log().Lines(Channel::Business); }
  // "<flags> <title> <prompt>" of each box shown.
  std::vector<std::string> Boxes() { return BoxLines(*host_.Ui()); }

  ModuleState::Scope state_;  // first made, last gone: restores what the test set
  TestHost host_;
};

}  // namespace orvel
