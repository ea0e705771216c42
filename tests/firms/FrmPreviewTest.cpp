#include <gtest/gtest.h>

#include <string>

#include "firms/frmPreview.h"
#include "orvel/OrvelServices.h"
#include "support/CaseName.h"
#include "support/ModuleTest.h"
#include "testhost/TestEnvironment.h"
#include "testhost/TestServices.h"

namespace orvel {
namespace {

class FrmPreviewTest : public ModuleTest {
 protected:
  void SetUp() override {
    ModuleTest::SetUp();
    SetOrvelS(std::shared_ptr<OrvelServices>(host_.Services()));
  }

  void Open(const std::string& settings, const std::string& otype = "O0000100") {
    dialog_.Settings = settings;
    dialog_.OType = otype;
    dialog_.Load();
  }

  frmPreview dialog_;
};

struct LoadCase {
  const char* settings;
  int active, notActive, code;
  bool byCode;
};

class FrmPreviewLoadTest : public FrmPreviewTest, public ::testing::WithParamInterface<LoadCase> {};

TEST_P(FrmPreviewLoadTest, SettingsFillTheBoxes) {
  const LoadCase& c = GetParam();
  Open(c.settings);
  EXPECT_EQ(dialog_.chkActive.Value(), c.active);
  EXPECT_EQ(dialog_.chkNotActive.Value(), c.notActive);
  EXPECT_EQ(dialog_.chkCode.Value(), c.code);
  EXPECT_EQ(dialog_.optByCode.Value(), c.byCode);
  EXPECT_EQ(dialog_.OptByName.Value(), !c.byCode);
  // Sorting by code is offered only while the code is shown.
  EXPECT_EQ(dialog_.optByCode.Enabled(), c.code == 1);
  EXPECT_EQ(dialog_.fraSort.Enabled(), c.code == 1);
}

INSTANTIATE_TEST_SUITE_P(Cases, FrmPreviewLoadTest,
                         ::testing::Values(LoadCase{"1,0,1", 1, 0, 1, false},
                                           LoadCase{"0,1,0", 0, 1, 0, false},
                                           LoadCase{"1,1,2", 1, 1, 1, true},
                                           // Not three elements: 1, 1, 1.
                                           LoadCase{"1,0", 1, 1, 1, false}));

struct AcceptCase {
  const char* name;
  const char* settings;
  void (*play)(frmPreview&);
  const char* result;
};

TEST_F(FrmPreviewTest, OkHandsOutTheChoiceWithoutStoringIt) {
  for (const AcceptCase& c : std::initializer_list<AcceptCase>{
           {"SortByCode", "1,0,1", [](frmPreview& d) { d.optByCode.Click(); }, "1,0,2"},
           {"HideCodeResetsSort", "1,1,2", [](frmPreview& d) { d.chkCode.Click(); }, "1,1,0"},
           {"ShowCodeByName", "1,1,0", [](frmPreview& d) { d.chkCode.Click(); }, "1,1,1"},
           // Built before the box is put right: two zeros leave the dialog.
           {"BothCleared", "1,0,1", [](frmPreview& d) { d.chkActive.Click(); }, "0,0,1"}}) {
    SCOPED_TRACE(c.name);
    Open(c.settings);
    c.play(dialog_);
    dialog_.cmdOK.Click();
    EXPECT_TRUE(dialog_.Accepted);
    EXPECT_EQ(dialog_.Settings, c.result);
    EXPECT_FALSE(dialog_.Loaded());
    EXPECT_FALSE(host_.Environment()->StoredSetting("O0000100", "Preview").has_value());
  }
}

TEST_F(FrmPreviewTest, BothClearedShowsActiveCheckedAfterOk) {
  Open("1,0,0");
  dialog_.chkActive.Click();
  dialog_.cmdOK.Click();
  EXPECT_EQ(dialog_.Settings, "0,0,0");
  EXPECT_EQ(dialog_.chkActive.Value(), 1);
}

TEST_F(FrmPreviewTest, SaveStoresUnderTheTypeOrTheFirmsWhenNoneIsGiven) {
  Open("0,1,2", "");
  EXPECT_EQ(dialog_.OType, "O0000100");
  dialog_.cmdSave.Click();
  EXPECT_TRUE(dialog_.Accepted);
  EXPECT_EQ(host_.Environment()->StoredSetting("O0000100", "Preview"), "0,1,2");

  frmPreview other;
  other.OType = "O0000300";
  other.Settings = "1,1,1";
  other.Load();
  other.cmdSave.Click();
  EXPECT_EQ(host_.Environment()->StoredSetting("O0000300", "Preview"), "1,1,1");
}

TEST_F(FrmPreviewTest, CancelLeavesSettingsAndAcceptedAlone) {
  Open("1,0,1");
  dialog_.chkNotActive.Click();
  dialog_.cmdCancel.Click();
  EXPECT_FALSE(dialog_.Accepted);
  EXPECT_EQ(dialog_.Settings, "1,0,1");
  EXPECT_FALSE(dialog_.Loaded());
}

TEST_F(FrmPreviewTest, ANonNumericElementIsAClearErrorNotACrash) {
  dialog_.Settings = "1,x,1";
  EXPECT_ANY_THROW(dialog_.Load());
  EXPECT_FALSE(dialog_.Accepted);
}

}  // namespace
}  // namespace orvel
