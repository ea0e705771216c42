// Loads libOrvelCommonUI.so as a host does: by path, through its one C entry
// point, and drives it across the library boundary.
#include <dlfcn.h>
#include <gtest/gtest.h>

#include "orvel/OrvelHeader.h"
#include "orvel/OrvelHeaderSecurity.h"
#include "orvel/OrvelObjectUI.h"
#include "orvel/OrvelObjectUIO.h"
#include "orvel/OrvelModule.h"
#include "module/ClassFactory.h"
#include "testhost/MemoryBusinessObject.h"
#include "support/StrictUi.h"
#include "testhost/TestComponentRegistry.h"
#include "testhost/TestHost.h"
#include "testhost/TestHostClasses.h"

namespace orvel {
namespace {

using EntryPoint = OrvelModule* (*)(int);

class ModuleLibraryTest : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_NE(library_.handle, nullptr) << dlerror();
    entry_ = reinterpret_cast<EntryPoint>(dlsym(library_.handle, ORVEL_MODULE_ENTRY_POINT));
    ASSERT_NE(entry_, nullptr) << dlerror();
    module_ = entry_(OrvelModule::kAbiVersion);
    ASSERT_NE(module_, nullptr);
    module_->Attach(host_.HostClasses(), host_.Ui());
  }

  void TearDown() override {
    if (module_) module_->Detach();
  }

  // From now on the host makes its type adapters through the loaded module.
  void AdaptersFromTheModule() {
    host_.SetAdapterSource([module = module_](const std::string& oid) {
      return std::dynamic_pointer_cast<OrvelObjectUI>(module->CreateObject("UI" + oid.substr(1)));
    });
  }

  // Closed last, once the host has let go of the module's objects.
  struct Library {
    void* handle = dlopen(ORVEL_MODULE_LIBRARY, RTLD_NOW | RTLD_LOCAL);
    ~Library() {
      if (handle) dlclose(handle);
    }
  } library_;
  TestHost host_;
  EntryPoint entry_ = nullptr;
  OrvelModule* module_ = nullptr;
};

// Only the entry point and the version are exported; an entry of another ABI
// is refused; the loaded library registers and serves a record.
TEST_F(ModuleLibraryTest, ExportsOnlyTheEntryPointAndServesARecordThroughTheLoadedLibrary) {
  const char* factory = "_ZN5orvel12ClassFactory6CreateESt17basic_string_viewIcSt11char_traitsIcEE";
  EXPECT_EQ(dlsym(library_.handle, factory), nullptr);
  EXPECT_EQ(entry_(OrvelModule::kAbiVersion + 1), nullptr);
  EXPECT_STREQ(
      reinterpret_cast<const char* (*)()>(dlsym(library_.handle, ORVEL_MODULE_VERSION_POINT))(),
      ORVEL_VERSION);
  AdaptersFromTheModule();
  auto header = std::dynamic_pointer_cast<OrvelHeader>(module_->CreateObject("DLLHeader"));
  ASSERT_NE(header, nullptr);
  EXPECT_EQ(header->DllInicialize().Number, 0);
  EXPECT_EQ(host_.HostClasses()->LastRegistry()->ObjectTypes().size(), 15u);
  auto security =
      std::dynamic_pointer_cast<OrvelHeaderSecurity>(module_->CreateObject("SecurityHeader"));
  ASSERT_NE(security, nullptr);
  EXPECT_EQ(security->GetComponentList().size(), 14u);
  host_.BusinessObject("O0000400")->Table().Seed({{{"Name", Variant("kg")}}});
  auto object = host_.ObjectManager()->GetOrvelObject("O00004001");
  ASSERT_NE(object, nullptr);
  EXPECT_EQ(object->Preview(), "kg");
  EXPECT_EQ(object->RsFields()->MarshalOptions(), 1);
}

// Every entry a host calls on the module's objects, given what cannot be
// done (no business object, no such record, key or name, a malformed filter):
// each answers through its result and none throws across the boundary.
TEST_F(ModuleLibraryTest, BadInputComesBackAsResultsNeverAsExceptions) {
  for (const char* unknown : {"UI9999999", "dllheader", ""}) {
    EXPECT_EQ(module_->CreateObject(unknown), nullptr) << unknown;
  }
  std::string par = "'";
  Variant::Array none;
  // The firm and goods adapters, asked to delete before the host gave them
  // its services, say so in a box.
  host_.Ui()->QueueAnswer(1);
  host_.Ui()->QueueAnswer(1);
  for (const auto& name : ClassFactory::ClassNames()) {
    SCOPED_TRACE(name);
    auto object = module_->CreateObject(name);
    ASSERT_NE(object, nullptr);
    EXPECT_NE(object, module_->CreateObject(name));  // a fresh object each time
    if (name.rfind("UI", 0) == 0) {
      EXPECT_TRUE(std::dynamic_pointer_cast<OrvelObjectUI>(object) ||
                  std::dynamic_pointer_cast<OrvelObjectUIO>(object));
    }
    if (auto ui = std::dynamic_pointer_cast<OrvelObjectUI>(object)) {
      EXPECT_NO_THROW({
        ui->GetMenu("'", "", "'");
        EXPECT_EQ(ui->ClickMenu("'", "", "999", "").Action, OrvelMenuResult::kNothing);
        EXPECT_FALSE(ui->DropOK("'"));
        EXPECT_EQ(ui->GetOrvelObjectList("'", "", ""), nullptr);
        EXPECT_EQ(ui->GetOrvelObject("'"), nullptr);
        EXPECT_NE(ui->DeleteOrvelObject("'"), 0);
      });
    } else if (auto uio = std::dynamic_pointer_cast<OrvelObjectUIO>(object)) {
      EXPECT_NO_THROW({
        // A name the type does not know is no call at all, as in the legacy
        // objects; asking before the host gave a business object is refused.
        const auto property = uio->Properties("Nėra", par);
        if (name == "UIO0000100" || name == "UIO0000200") {
          EXPECT_EQ(property.Number, RuntimeError::kObjectNotSet);
        }
        uio->Methods("Nėra", none);
        EXPECT_NE(uio->Read().Number, 0);
        EXPECT_NE(uio->Save(nullptr, nullptr).Number, 0);
      });
    }
  }
  ASSERT_EQ(host_.Ui()->Boxes().size(), 2u);
  EXPECT_EQ(host_.Ui()->Boxes()[0].prompt,
            "Klaida!\nPagrindinė programa dar nepateikė modulio paslaugų");
  // A record set the module made: refusals are statuses, not throws.
  AdaptersFromTheModule();
  host_.BusinessObject("O0000400")->Table().Seed({{{"Name", Variant("kg")}}});
  auto rs = host_.ObjectManager()->GetOrvelObject("O00004001")->RsFields();
  EXPECT_EQ(rs->Fields().Find("Nėra"), nullptr);
  EXPECT_EQ(rs->Fields().At(99), nullptr);
  EXPECT_EQ(rs->ApplyFilter("Name ==").Number, RuntimeError::kBadFilter);
  EXPECT_EQ(rs->ApplySort("Nėra").Number, RuntimeError::kItemNotFound);
  EXPECT_EQ(rs->Next().Number, 0);
  Variant value;
  EXPECT_EQ(rs->Next().Text, NoCurrentRecordRefusal().Text);
  EXPECT_EQ(rs->Fields().Find("Name")->Get(value).Number, RuntimeError::kNoCurrentRecord);
  EXPECT_EQ(rs->Fields().Find("Name")->Put(Variant("t")).Text,
            "Nėra einamojo įrašo: įrašų rinkinys yra prieš pirmąjį arba po paskutiniojo įrašo");
}

}  // namespace
}  // namespace orvel
