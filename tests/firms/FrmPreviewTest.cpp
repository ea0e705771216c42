#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "firms/frmPreview.h"
#include "orvel/OrvelServices.h"
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
    dialog_ = std::make_unique<frmPreview>();
    dialog_->Settings = settings;
    dialog_->OType = otype;
    dialog_->Load();
  }

  // The three boxes, then by code and by name, then whether sorting by code
  // is offered (the option and its frame).
  std::string Shown() {
    const auto on = [](bool b) { return b ? "1" : "0"; };
    const frmPreview& d = *dialog_;
    return std::to_string(d.chkActive.Value()) + std::to_string(d.chkNotActive.Value()) +
           std::to_string(d.chkCode.Value()) + " " + on(d.optByCode.Value()) +
           on(d.OptByName.Value()) + " " + on(d.optByCode.Enabled()) + on(d.fraSort.Enabled());
  }

  std::unique_ptr<frmPreview> dialog_ = std::make_unique<frmPreview>();
};

// Sorting by code is offered only while the code is shown; settings not of
// three elements read as 1, 1, 1.
TEST_F(FrmPreviewTest, SettingsFillTheBoxes) {
  for (const auto& [settings, shown] : {std::pair{"1,0,1", "101 01 11"},
                                        {"0,1,0", "010 01 00"},
                                        {"1,1,2", "111 10 11"},
                                        {"1,0", "111 01 11"}}) {
    Open(settings);
    EXPECT_EQ(Shown(), shown) << settings;
  }
}

struct AcceptCase {
  const char* name;
  const char* settings;
  void (*play)(frmPreview&);
  const char* result;  // "" when the user cancels
};

// OK hands out the choice without storing it; Cancel leaves the settings. The
// result is built before the boxes are put right: two zeros leave the
// dialog, yet it shows Active checked.
TEST_F(FrmPreviewTest, OkHandsOutTheChoiceWithoutStoringIt) {
  for (const AcceptCase& c : std::initializer_list<AcceptCase>{
           {"SortByCode", "1,0,1", [](frmPreview& d) { d.optByCode.Click(); }, "1,0,2"},
           {"HideCodeResetsSort", "1,1,2", [](frmPreview& d) { d.chkCode.Click(); }, "1,1,0"},
           {"ShowCodeByName", "1,1,0", [](frmPreview& d) { d.chkCode.Click(); }, "1,1,1"},
           {"BothCleared", "1,0,1", [](frmPreview& d) { d.chkActive.Click(); }, "0,0,1"},
           {"BothClearedNoCode", "1,0,0", [](frmPreview& d) { d.chkActive.Click(); }, "0,0,0"},
           {"Cancel", "1,0,1", [](frmPreview& d) { d.chkNotActive.Click(); }, ""}}) {
    SCOPED_TRACE(c.name);
    Open(c.settings);
    c.play(*dialog_);
    (*c.result ? dialog_->cmdOK : dialog_->cmdCancel).Click();
    EXPECT_EQ(dialog_->Accepted, *c.result != 0);
    EXPECT_EQ(dialog_->Settings, *c.result ? c.result : c.settings);
    EXPECT_EQ(dialog_->chkActive.Value(), 1);
    EXPECT_FALSE(dialog_->Loaded());
    EXPECT_FALSE(host_.Environment()->StoredSetting("O0000100", "Preview").has_value());
  }
}

TEST_F(FrmPreviewTest, SaveStoresUnderTheTypeOrTheFirmsWhenNoneIsGiven) {
  Open("0,1,2", "");
  EXPECT_EQ(dialog_->OType, "O0000100");
  dialog_->cmdSave.Click();
  EXPECT_TRUE(dialog_->Accepted);
  EXPECT_EQ(host_.Environment()->StoredSetting("O0000100", "Preview"), "0,1,2");
  Open("1,1,1", "O0000300");
  dialog_->cmdSave.Click();
  EXPECT_EQ(host_.Environment()->StoredSetting("O0000300", "Preview"), "1,1,1");
}

TEST_F(FrmPreviewTest, ANonNumericElementIsAClearErrorNotACrash) {
  dialog_->Settings = "1,x,1";
  EXPECT_ANY_THROW(dialog_->Load());
  EXPECT_FALSE(dialog_->Accepted);
}

}  // namespace
}  // namespace orvel
