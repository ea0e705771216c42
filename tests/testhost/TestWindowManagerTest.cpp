#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "testhost/CallLog.h"
#include "testhost/StubWindow.h"
#include "testhost/TestWindowManager.h"

namespace orvel {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;

class TestWindowManagerTest : public ::testing::Test {
 protected:
  std::shared_ptr<CallLog> log_ = std::make_shared<CallLog>();
  TestWindowManager manager_{log_};
};

// A window is registered under its object's OIDR; shown again, or re-keyed,
// it keeps its one entry under its new OIDR.
TEST_F(TestWindowManagerTest, ShowWindow_RegistersUnderObjectsOidr_RekeyKeepsOneEntry) {
  auto window = StubWindow::ForRecord("");
  auto bank = StubWindow::ForRecord("O00003005");
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
  auto keeping = StubWindow::ForRecord("O00003001");
  keeping->keepObject = true;
  manager_.ShowWindow(keeping);
  manager_.ShowWindow(StubWindow::ForRecord("O00003002"));
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
    auto window = StubWindow::ForRecord("O00003005");
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
  auto window = StubWindow::ForRecord("O00003005");
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

}  // namespace
}  // namespace orvel
