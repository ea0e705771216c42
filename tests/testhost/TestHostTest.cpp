#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "orvel/RuntimeError.h"
#include "testhost/CallLog.h"
#include "testhost/MemoryBusinessObject.h"
#include "support/StubObjectUI.h"
#include "testhost/TestGroupSelect.h"
#include "testhost/TestHost.h"
#include "testhost/TestHostClasses.h"
#include "testhost/TestObjectSelect.h"
#include "testhost/TestRights.h"
#include "testhost/TestServices.h"

namespace orvel {
namespace {

using ::testing::ElementsAre;

class TestHostTest : public ::testing::Test {
 protected:
  TestHostTest() {
    host_.SetAdapterSource([this](const std::string& oid) -> std::shared_ptr<OrvelObjectUI> {
      made_.push_back(oid);
      if (oid == "O0000999") throw RuntimeError(RuntimeError::kInvalidCall, "no such class");
      if (oid.rfind("O00003", 0) != 0) return nullptr;
      return std::make_shared<StubObjectUI>();
    });
  }

  TestHost host_;
  std::vector<std::string> made_;
};

// An object goes to the adapter of its OIDR's first eight characters, made
// and wired once; a type without one, or whose source throws, gets none.
TEST_F(TestHostTest, AnObjectGoesToItsTypesAdapterMadeAndWiredOnce) {
  auto object = host_.ObjectManager()->GetOrvelObject("O00003005");
  ASSERT_NE(object, nullptr);
  EXPECT_EQ(object->OIDR(), "O00003005");
  auto stub = std::static_pointer_cast<StubObjectUI>(
      host_.Services()->ObjectManager()->GetOrvelObjectUI("O0000300"));
  EXPECT_EQ(stub, host_.ObjectManager()->CachedAdapter("O0000300"));
  EXPECT_THAT(stub->asked, ElementsAre("O00003005"));
  EXPECT_EQ(stub->bo, host_.BusinessObject("O0000300"));
  EXPECT_EQ(stub->services, host_.Services());
  EXPECT_EQ(host_.ObjectManager()->GetOrvelObject("O00004001"), nullptr);
  EXPECT_EQ(host_.ObjectManager()->GetOrvelObjectUI("O0000999"), nullptr);
  EXPECT_THAT(made_, ElementsAre("O0000300", "O0000400", "O0000999"));
  EXPECT_THAT(host_.Log().Lines(Channel::Host),
              ElementsAre("Failure GetOrvelObjectUI O0000999 5 no such class"));
}

TEST_F(TestHostTest, CallsAndCommands_LoggedAndScriptedPerName) {
  auto manager = host_.ObjectManager();
  manager->ReplyToCall("GetOldPeriod", OrvelResult{0, "", Variant(Date{46000})});
  manager->OnCall("OrvelGroupSelect", [](const std::string& param) {
    return OrvelResult{0, "", Variant(param.substr(0, param.find(';')))};
  });
  EXPECT_EQ(manager->Call("GetOldPeriod", "").Value, Variant(Date{46000}));
  EXPECT_EQ(manager->Call("OrvelGroupSelect", "GetGroups(3);;Pasirinkite").Value,
            Variant("GetGroups(3)"));
  OrvelResult unscripted = manager->Call("Orvel_GetObjectStructureByOID", "O0000300");
  EXPECT_EQ(unscripted.Number, 0);
  EXPECT_TRUE(unscripted.Value.IsEmpty());
  Variant::Array help{Variant("Bankai"), Variant("C:\\Orvel\\Orvel.chm")};
  EXPECT_EQ(manager->ExecCommand("ShowHelp", help).Number, 0);
  manager->AddToDesktop("O00003005");
  EXPECT_THAT(
      host_.Log().Lines(Channel::Host),
      ElementsAre("Call GetOldPeriod", "Call OrvelGroupSelect GetGroups(3);;Pasirinkite",
                  "Call Orvel_GetObjectStructureByOID O0000300",
                  "ExecCommand ShowHelp Bankai C:\\Orvel\\Orvel.chm", "AddToDesktop O00003005"));
}

TEST_F(TestHostTest, Rights_GrantedByDefault_DenyAllThenGrantOne_EachQueryLogged) {
  auto rights = host_.Services()->Rights();
  EXPECT_TRUE(rights->CanDelete("CBanks", 0));
  host_.Rights()->DenyAll();
  host_.Rights()->Grant("CBanks", TestRights::Right::Read);
  EXPECT_TRUE(rights->CanRead("CBanks", 0));
  EXPECT_FALSE(rights->CanUpdate("CBanks", 0));
  host_.Rights()->GrantAll();
  EXPECT_TRUE(rights->CanInsert("CFirms", 0));
  EXPECT_THAT(host_.Log().Lines(Channel::Rights),
              ElementsAre("CanDelete CBanks 0", "CanRead CBanks 0", "CanUpdate CBanks 0",
                          "CanInsert CFirms 0"));
}

TEST_F(TestHostTest, Pickers_AnswerFromQueues_EmptyQueueIsCancel) {
  auto classes = host_.HostClasses();
  classes->QueueGroupSelect("O00003001O00003004", "Bankai", "G");
  classes->QueueObjectSelect("seb", 1, 2);
  auto group = classes->NewGroupSelect();
  group->SetCaption("Pažymėkite norimą grupę");
  group->Show();
  auto search = classes->NewObjectSelect();
  search->SetOType("O0000300");
  std::string text = search->Show();
  auto cancelled = classes->NewGroupSelect();
  cancelled->Show();
  EXPECT_EQ(group->ResultOIDR(), "O00003001O00003004");
  EXPECT_EQ(group->ResultName(), "Bankai");
  EXPECT_EQ(group->ResultOType(), "G");
  EXPECT_EQ(text, "seb");
  EXPECT_EQ(search->SearchOption1(), 1);
  EXPECT_EQ(search->SearchOption2(), 2);
  EXPECT_EQ(cancelled->ResultOIDR(), "");
  EXPECT_EQ(classes->NewObjectSelect()->Show(), "");
  EXPECT_EQ(classes->LastGroupSelect(), cancelled);
  EXPECT_THAT(
      host_.Log().Lines(Channel::Host),
      ElementsAre("OrvelGroupSelect.Caption Pažymėkite norimą grupę", "OrvelGroupSelect.Show",
                  "OrvelObjectSelect.OType O0000300", "OrvelObjectSelect.Show",
                  "OrvelGroupSelect.Show", "OrvelObjectSelect.Show"));
}

}  // namespace
}  // namespace orvel
