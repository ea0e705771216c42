#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

#include "orvel/OrvelWindow.h"
#include "orvel/RuntimeError.h"
#include "support/StubObjectUI.h"
#include "support/StubObjectUIO.h"
#include "testhost/CallLog.h"
#include "testhost/MemoryBusinessObject.h"
#include "testhost/TestGroupSelect.h"
#include "testhost/TestHost.h"
#include "testhost/TestHostClasses.h"
#include "testhost/TestObjectSelect.h"
#include "testhost/TestRights.h"
#include "testhost/TestServices.h"
#include "testhost/TestWindowManager.h"

namespace orvel {
namespace {

using ::testing::Contains;
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
  const OrvelResult unscripted = manager->Call("Orvel_GetObjectStructureByOID", "O0000300");
  EXPECT_TRUE(unscripted.Number == 0 && unscripted.Value.IsEmpty());
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
  EXPECT_EQ(group->ResultOIDR() + " " + group->ResultName() + " " + group->ResultOType(),
            "O00003001O00003004 Bankai G");
  EXPECT_EQ(text + " " + std::to_string(search->SearchOption1()) + " " +
                std::to_string(search->SearchOption2()),
            "seb 1 2");
  EXPECT_EQ(cancelled->ResultOIDR(), "");
  EXPECT_EQ(classes->NewObjectSelect()->Show(), "");
  EXPECT_EQ(classes->LastGroupSelect(), cancelled);
  EXPECT_THAT(
      host_.Log().Lines(Channel::Host),
      ElementsAre("OrvelGroupSelect.Caption Pažymėkite norimą grupę", "OrvelGroupSelect.Show",
                  "OrvelObjectSelect.OType O0000300", "OrvelObjectSelect.Show",
                  "OrvelGroupSelect.Show", "OrvelObjectSelect.Show"));
}

// ---- the window manager ----

// A window that records what the host did to it and answers QueryRemove
// with `keepObject`.
class StubWindow : public OrvelWindow {
 public:
  explicit StubWindow(const std::string& oidr) : object_(std::make_shared<StubObjectUIO>(oidr)) {}
  std::shared_ptr<orvel::OrvelObjectUIO> OrvelObjectUIO() const override { return object_; }
  void SetOrvelObjectUIO(std::shared_ptr<orvel::OrvelObjectUIO> object) override {
    object_ = std::move(object);
  }
  void Show() override { events.push_back("Show"); }
  void QueryRemove(bool& cancel) override {
    events.push_back("QueryRemove");
    cancel = keepObject;
  }
  void Unload() override { events.push_back("Unload"); }

  bool keepObject = false;
  std::vector<std::string> events;

 private:
  std::shared_ptr<orvel::OrvelObjectUIO> object_;
};

class TestWindowManagerTest : public ::testing::Test {
 protected:
  std::shared_ptr<CallLog> log_ = std::make_shared<CallLog>();
  TestWindowManager manager_{log_};
};

// A window is registered under its object's OIDR; shown again, or re-keyed,
// it keeps its one entry under its new OIDR.
TEST_F(TestWindowManagerTest, ShowWindow_RegistersUnderObjectsOidr_RekeyKeepsOneEntry) {
  auto window = std::make_shared<StubWindow>("");
  auto bank = std::make_shared<StubWindow>("O00003005");
  manager_.ShowWindow(window);
  manager_.ShowWindow(bank);
  EXPECT_EQ(manager_.Window(""), window);
  EXPECT_TRUE(manager_.IsOpen("O00003005"));
  window->OrvelObjectUIO()->SetOIDR("O00003007");
  manager_.ShowWindow(window);
  EXPECT_EQ(manager_.Window("O00003007"), window);
  EXPECT_THAT(window->events, ElementsAre("Show", "Show"));
  window->OrvelObjectUIO()->SetOIDR("O00003008");
  manager_.Rekey("O00003007", window);
  EXPECT_FALSE(manager_.IsOpen("O00003007"));
  EXPECT_EQ(manager_.Window("O00003008"), window);
  EXPECT_EQ(manager_.Count(), 2u);
  EXPECT_THAT(log_->Lines(Channel::Window),
              ElementsAre("ShowWindow", "ShowWindow O00003005", "IsOpen O00003005",
                          "ShowWindow O00003007", "Rekey O00003007 O00003008", "IsOpen O00003007"));
}

// QueryRemove answers the window's cancel (false when none is registered)
// and never closes anything; RemoveWindow asks the window unless forced,
// CloseWindow always asks.
TEST_F(TestWindowManagerTest, QueryRemoveAsks_CloseAndRemoveAskUnlessForced) {
  auto keeping = std::make_shared<StubWindow>("O00003001");
  keeping->keepObject = true;
  manager_.ShowWindow(keeping);
  manager_.ShowWindow(std::make_shared<StubWindow>("O00003002"));
  EXPECT_TRUE(manager_.QueryRemove("O00003001", true));
  EXPECT_FALSE(manager_.QueryRemove("O00003002", true));
  EXPECT_FALSE(manager_.QueryRemove("O00003003", true));
  EXPECT_EQ(manager_.Count(), 2u);
  EXPECT_THAT(keeping->events, ElementsAre("Show", "QueryRemove"));
  using Events = std::vector<std::string>;
  const struct {
    bool byClose, keepObject, force, stillOpen;
    Events events;
  } cases[] = {{false, false, false, false, {"Show", "QueryRemove", "Unload"}},
               {false, true, false, true, {"Show", "QueryRemove"}},
               {false, true, true, false, {"Show", "Unload"}},
               {true, false, false, false, {"Show", "QueryRemove", "Unload"}},
               {true, true, false, true, {"Show", "QueryRemove"}}};
  for (const auto& c : cases) {
    TestWindowManager manager(log_);
    auto window = std::make_shared<StubWindow>("O00003005");
    window->keepObject = c.keepObject;
    manager.ShowWindow(window);
    log_->Clear();
    if (c.byClose) {
      manager.CloseWindow(window);
      EXPECT_THAT(log_->Lines(Channel::Window), Contains("CloseWindow O00003005"));
    } else {
      manager.RemoveWindow("O00003005", c.force);
    }
    EXPECT_EQ(manager.IsOpen("O00003005"), c.stillOpen);
    EXPECT_EQ(window->events, c.events);
  }
}

TEST_F(TestWindowManagerTest, AnUnknownOidrOrNoWindowIsLoggedAndChangesNothing) {
  auto window = std::make_shared<StubWindow>("O00003005");
  manager_.ShowWindow(window);
  manager_.RemoveWindow("O00003006", true);
  manager_.ObjectSaved("O00003005");
  manager_.ShowWindow(nullptr);
  manager_.CloseWindow(nullptr);
  manager_.Rekey("O00003005", nullptr);
  EXPECT_EQ(manager_.Count(), 1u);
  EXPECT_THAT(manager_.Saved(), ElementsAre("O00003005"));
  EXPECT_EQ(log_->Lines(Channel::Window)[1], "RemoveWindow O00003006 True");
  EXPECT_EQ(log_->Size(), 6u);
}

// ---- the call log ----

// The echo prints the chosen channels (none chosen: all) one line each,
// with or without the channel's name, until given no stream.
TEST(CallLog, Echo_PrintsTheChosenChannelsOneLineEach) {
  CallLog log;
  std::ostringstream out;
  log.SetEcho(&out, {Channel::Message, Channel::Business});
  log.Add(Channel::Business, "ExecCall", {"Orvel_DeleteObject", "'O00003005'"});
  log.Add(Channel::Rights, "CanRead", {"CBanks", "0"});
  log.Add(Channel::Message, "MsgBox", {"48", "Orvel Apskaita", "Pirma eilutė\r\nantra"});
  log.SetEcho(&out);
  log.Add(Channel::Settings, "SaveUserSetting", {"O0000300", "Preview", "Code"});
  log.SetEcho(&out, {Channel::Window}, /*withChannel=*/false);
  log.Add(Channel::Window, "ShowWindow", {"O00003005"});
  log.SetEcho(nullptr);
  log.Add(Channel::Window, "ShowWindow", {"O00003006"});
  EXPECT_EQ(out.str(),
            "Business: ExecCall Orvel_DeleteObject 'O00003005'\n"
            "Message: MsgBox 48 Orvel Apskaita Pirma eilutė\\r\\nantra\n"
            "Settings: SaveUserSetting O0000300 Preview Code\n"
            "ShowWindow O00003005\n");
  // The journal itself keeps the text as it was.
  EXPECT_EQ(log.Entries()[2].args[2], "Pirma eilutė\r\nantra");
  EXPECT_EQ(log.Size(), 6u);
}

TEST(CallLog, LogTextWritesAValueWithoutLocale) {
  for (const auto& [value, text] : std::initializer_list<std::pair<Variant, const char*>>{
           {Variant(), ""}, {Variant::Null(), "Null"}, {Variant(true), "True"}, {Variant(-7), "-7"},
           {Variant(2.5), "2.5"}, {Variant("žodis"), "žodis"}, {Variant(Date{46349}), "2026-11-23"},
           {Variant(std::shared_ptr<Object>()), "Nothing"},
           {Variant(Variant::Array{Variant(1), Variant(2)}), "Array(2)"}}) {
    EXPECT_EQ(LogText(value), text);
  }
}

}  // namespace
}  // namespace orvel
