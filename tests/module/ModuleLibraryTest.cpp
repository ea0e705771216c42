// Loads libOrvelCommonUI.so as a host does: by path, through its one C entry
// point, and drives it across the library boundary.
#include <dlfcn.h>
#include <gtest/gtest.h>

#include "orvel/OrvelHeader.h"
#include "orvel/OrvelHeaderSecurity.h"
#include "orvel/OrvelObjectUI.h"
#include "orvel/OrvelObjectUIO.h"
#include "orvel/OrvelModule.h"
#include "testhost/CallLog.h"
#include "testhost/MemoryBusinessObject.h"
#include "support/StrictUi.h"
#include "testhost/ScriptedUi.h"
#include "testhost/TestComponentRegistry.h"
#include "testhost/TestHost.h"
#include "testhost/TestHostClasses.h"
#include "testhost/TestObjectManager.h"

namespace orvel {
namespace {

using EntryPoint = OrvelModule* (*)(int);

class ModuleLibraryTest : public ::testing::Test {
 protected:
  void SetUp() override {
    library_ = dlopen(ORVEL_MODULE_LIBRARY, RTLD_NOW | RTLD_LOCAL);
    ASSERT_NE(library_, nullptr) << dlerror();
    entry_ = reinterpret_cast<EntryPoint>(dlsym(library_, ORVEL_MODULE_ENTRY_POINT));
    ASSERT_NE(entry_, nullptr) << dlerror();
  }

  void TearDown() override {
    if (library_) dlclose(library_);
  }

  void* library_ = nullptr;
  EntryPoint entry_ = nullptr;
};

TEST_F(ModuleLibraryTest, ExportsOnlyTheEntryPoint) {
  EXPECT_EQ(
      dlsym(library_, "_ZN5orvel12ClassFactory6CreateESt17basic_string_viewIcSt11char_traitsIcEE"),
      nullptr);
  EXPECT_EQ(entry_(OrvelModule::kAbiVersion + 1), nullptr);
  EXPECT_STREQ(reinterpret_cast<const char* (*)()>(dlsym(library_, ORVEL_MODULE_VERSION_POINT))(),
               ORVEL_VERSION);
  EXPECT_NE(entry_(OrvelModule::kAbiVersion), nullptr);
}

TEST_F(ModuleLibraryTest, RegistersAndServesARecordThroughTheLoadedLibrary) {
  OrvelModule* module = entry_(OrvelModule::kAbiVersion);
  ASSERT_NE(module, nullptr);
  {
    TestHost host;
    module->Attach(host.HostClasses(), host.Ui());
    host.SetAdapterSource([module](const std::string& oid) {
      return std::dynamic_pointer_cast<OrvelObjectUI>(module->CreateObject("UI" + oid.substr(1)));
    });

    auto header = std::dynamic_pointer_cast<OrvelHeader>(module->CreateObject("DLLHeader"));
    ASSERT_NE(header, nullptr);
    EXPECT_EQ(header->DllInicialize().Number, 0);
    EXPECT_EQ(host.HostClasses()->LastRegistry()->ObjectTypes().size(), 15u);

    auto security =
        std::dynamic_pointer_cast<OrvelHeaderSecurity>(module->CreateObject("SecurityHeader"));
    ASSERT_NE(security, nullptr);
    EXPECT_EQ(security->GetComponentList().size(), 14u);

    host.BusinessObject("O0000400")->Table().Seed({{{"Name", Variant("kg")}}});
    auto object = host.ObjectManager()->GetOrvelObject("O00004001");
    ASSERT_NE(object, nullptr);
    EXPECT_EQ(object->Preview(), "kg");
    EXPECT_EQ(object->RsFields()->MarshalOptions(), 1);

    module->Detach();
  }
}

}  // namespace
}  // namespace orvel
