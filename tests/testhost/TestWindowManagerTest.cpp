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

TEST_F(TestWindowManagerTest, ShowWindow_RegistersUnderObjectsOidr_AndShows) {
  auto bank = StubWindow::ForRecord("O00003005");
  auto loose = std::make_shared<StubWindow>();

  manager_.ShowWindow(bank);
  manager_.ShowWindow(loose);

  EXPECT_TRUE(manager_.IsOpen("O00003005"));
  EXPECT_EQ(manager_.Window("O00003005"), bank);
  EXPECT_EQ(manager_.Window(""), loose);
  EXPECT_EQ(manager_.Count(), 2u);
  EXPECT_THAT(bank->events, ElementsAre("Show"));
  EXPECT_THAT(log_->Lines(Channel::Window),
              ElementsAre("ShowWindow O00003005", "ShowWindow", "IsOpen O00003005"));
}

// A window shown again, or re-keyed, keeps its one entry under its new OIDR.
TEST_F(TestWindowManagerTest, AWindowShownAgainOrRekeyedKeepsOneEntry) {
  auto window = StubWindow::ForRecord("");
  manager_.ShowWindow(window);
  window->OrvelObjectUIO()->SetOIDR("O00003007");
  manager_.ShowWindow(window);
  EXPECT_EQ(manager_.Window("O00003007"), window);
  EXPECT_THAT(window->events, ElementsAre("Show", "Show"));

  window->OrvelObjectUIO()->SetOIDR("O00003008");
  manager_.Rekey("O00003007", window);
  EXPECT_FALSE(manager_.IsOpen("O00003007"));
  EXPECT_TRUE(manager_.IsOpen("O00003008"));
  EXPECT_EQ(manager_.Count(), 1u);
  EXPECT_THAT(log_->Lines(Channel::Window), Contains("Rekey O00003007 O00003008"));
}

TEST_F(TestWindowManagerTest, QueryRemove_ReturnsWindowsCancel_FalseWhenNoneRegistered) {
  auto keeping = StubWindow::ForRecord("O00003001");
  keeping->keepObject = true;
  auto letting = StubWindow::ForRecord("O00003002");
  manager_.ShowWindow(keeping);
  manager_.ShowWindow(letting);

  EXPECT_TRUE(manager_.QueryRemove("O00003001", true));
  EXPECT_FALSE(manager_.QueryRemove("O00003002", true));
  EXPECT_FALSE(manager_.QueryRemove("O00003003", true));
  // Asking never closes anything.
  EXPECT_EQ(manager_.Count(), 2u);
  EXPECT_THAT(keeping->events, ElementsAre("Show", "QueryRemove"));
}

// RemoveWindow asks the window unless forced; CloseWindow always asks.
struct CloseCase {
  bool byClose;
  bool keepObject;
  bool force;  // RemoveWindow only
  bool stillOpen;
  std::vector<std::string> events;
};

class CloseWindowTest : public TestWindowManagerTest,
                        public ::testing::WithParamInterface<CloseCase> {};

TEST_P(CloseWindowTest, AsksUnlessForced_UnloadsUnlessCancelled) {
  auto window = StubWindow::ForRecord("O00003005");
  window->keepObject = GetParam().keepObject;
  manager_.ShowWindow(window);

  if (GetParam().byClose) {
    manager_.CloseWindow(window);
    EXPECT_EQ(log_->Lines(Channel::Window)[1], "CloseWindow O00003005");
  } else {
    manager_.RemoveWindow("O00003005", GetParam().force);
  }

  EXPECT_EQ(manager_.IsOpen("O00003005"), GetParam().stillOpen);
  EXPECT_EQ(window->events, GetParam().events);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, CloseWindowTest,
    ::testing::Values(CloseCase{false, false, false, false, {"Show", "QueryRemove", "Unload"}},
                      CloseCase{false, true, false, true, {"Show", "QueryRemove"}},
                      CloseCase{false, true, true, false, {"Show", "Unload"}},
                      CloseCase{true, false, false, false, {"Show", "QueryRemove", "Unload"}},
                      CloseCase{true, true, false, true, {"Show", "QueryRemove"}}));

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
