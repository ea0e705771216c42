#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "testhost/CallLog.h"
#include "support/StrictUi.h"
#include "testhost/ScriptedUi.h"
#include "ui/Button.h"
#include "ui/Form.h"
#include "ui/Menu.h"

namespace orvel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(ScriptedUiDefaultTest, Allowed_EmptyQueue_AnswersFirstButton) {
  for (const auto& [flags, answer] : std::vector<std::pair<int32_t, int32_t>>{
           {vbOKOnly, vbOK}, {vbOKCancel + vbExclamation, vbOK}, {vbYesNo + vbQuestion, vbYes},
           {vbYesNoCancel + vbExclamation, vbYes}}) {
    auto log = std::make_shared<CallLog>();
    ScriptedUi ui(log);
    ui.AllowUnscripted();
    EXPECT_EQ(ui.MsgBox("Tekstas", flags, "Orvel Apskaita"), answer);
    EXPECT_EQ(log->Lines(Channel::Message)[0],
              "MsgBox " + std::to_string(flags) + " Orvel Apskaita Tekstas");
    EXPECT_EQ(ui.Boxes()[0].answer, answer);
  }
}

// The complaints of a strict Ui, caught instead of failing the test.
class ScriptedUiStrictTest : public ::testing::Test {
 protected:
  ScriptedUiStrictTest() {
    ScriptedUi::SetComplaint([this](const std::string& what) { complaints.push_back(what); });
  }
  ~ScriptedUiStrictTest() override { ScriptedUi::SetComplaint(FailTheRunningTest); }
  std::vector<std::string> complaints;
};

TEST_F(ScriptedUiStrictTest, UnansweredBoxOrPopup_AndLeftoverAnswers_AreComplaints) {
  ScriptedUi ui(std::make_shared<CallLog>());
  Menu popup{"mnuList"};
  popup.Add("mnuOpen", "Atidaryti");
  EXPECT_EQ(ui.MsgBox("Išsaugoti?", vbYesNo, "Orvel Apskaita"), vbYes);
  ui.PopupMenu(popup);
  ui.QueueAnswer(vbNo);
  ui.QueuePopupPick("mnuOpen");
  ui.QueueModal([](Form&) {});
  ui.Verify();
  EXPECT_THAT(complaints,
              ElementsAre("ScriptedUi: message box nobody queued an answer for: \"Išsaugoti?\" "
                          "(flags 4, title \"Orvel Apskaita\")",
                          "ScriptedUi: popup menu mnuList nobody queued a pick for "
                          "(it shows mnuOpen)",
                          "ScriptedUi: answers queued but no message box asked for them: 7",
                          "ScriptedUi: popup picks queued but no popup menu asked for them: "
                          "mnuOpen",
                          "ScriptedUi: 1 modal scripts queued but no dialog was shown for them"));
  EXPECT_EQ(ui.PendingAnswers(), 0u);  // each leftover is told once
  complaints.clear();
  ui.AllowUnscripted();
  ui.MsgBox("Išsaugoti?", vbYesNo, "Orvel Apskaita");
  ui.PopupMenu(popup);
  EXPECT_THAT(complaints, IsEmpty());
}

// A dialog whose OK button unloads it, as the module's dialogs do.
class frmDialog : public Form {
 public:
  explicit frmDialog(std::string name) : Form(std::move(name)) {
    Register(cmdEnter);
    cmdEnter.OnClick = [this] {
      Saved = true;
      Unload();
    };
  }
  Button cmdEnter{"cmdEnter"};
  bool Saved = false;
  bool unloadInLoad = false;

 protected:
  void Form_Load() override {
    if (unloadInLoad) Unload();
  }
};

class ScriptedUiFormsTest : public ::testing::Test {
 protected:
  std::shared_ptr<CallLog> log = std::make_shared<CallLog>();
  ScriptedUi ui{log};
};

// Each dialog takes the next script on the shown form, a nested one too.
TEST_F(ScriptedUiFormsTest, ShowModal_RunsTheNextScriptOnTheShownFormLoaded) {
  frmDialog outer("frmFirmInfo");
  frmDialog inner("frmAccounts");
  std::vector<std::string> order;
  ui.QueueModal([&](Form& form) {
    order.push_back(form.Name() + (form.Loaded() && form.Visible() ? " shown" : ""));
    inner.ShowModal(ui);
    outer.cmdEnter.Click();
  });
  ui.QueueModal([&](Form& form) { order.push_back(form.Name()); });
  outer.ShowModal(ui);
  EXPECT_THAT(order, ElementsAre("frmFirmInfo shown", "frmAccounts"));
  EXPECT_TRUE(outer.Saved);
  EXPECT_FALSE(outer.Loaded());
  EXPECT_FALSE(inner.Visible());
  EXPECT_EQ(ui.PendingModalScripts(), 0u);
  EXPECT_THAT(log->Lines(Channel::Window),
              ElementsAre("ShowModal frmFirmInfo", "ShowModal frmAccounts"));
  // A form its Form_Load unloads leaves the script for the next; without a
  // script the user closes the dialog.
  frmDialog dialog("frmAccounts");
  dialog.unloadInLoad = true;
  ui.QueueModal([](Form&) {});
  dialog.ShowModal(ui);
  EXPECT_EQ(ui.PendingModalScripts(), 1u);
  dialog.unloadInLoad = false;
  dialog.ShowModal(ui);
  dialog.ShowModal(ui);
  EXPECT_EQ(ui.PendingModalScripts(), 0u);
  EXPECT_FALSE(dialog.Saved);
  EXPECT_FALSE(dialog.Visible());
}

// A queued entry is clicked before PopupMenu returns; a closed menu ("") or
// a hidden or disabled entry picks nothing.
TEST_F(ScriptedUiFormsTest, PopupMenu_PicksTheQueuedEntryIfItIsShownAndEnabled) {
  Menu popup{"mnuList"};
  std::vector<std::string> clicks;
  for (const char* name : {"mnuOpen", "mnuToDesktop", "mnuDelete"})
    popup.Add(name, name).OnClick = [&clicks, name] { clicks.push_back(name); };
  ui.QueuePopupPick("mnuToDesktop");
  ui.PopupMenu(popup);
  EXPECT_THAT(clicks, ElementsAre("mnuToDesktop"));
  EXPECT_THAT(log->Lines(Channel::Window), ElementsAre("PopupMenu mnuList"));
  EXPECT_EQ(ui.Popups()[0].picked, "mnuToDesktop");
  EXPECT_THAT(ui.Popups()[0].shown, ElementsAre("mnuOpen", "mnuToDesktop", "mnuDelete"));
  popup.Find("mnuDelete")->SetVisible(false);
  popup.Find("mnuOpen")->SetEnabled(false);
  for (const char* pick : {"", "mnuDelete", "mnuOpen"}) {
    ui.QueuePopupPick(pick);
    ui.PopupMenu(popup);
  }
  EXPECT_THAT(clicks, ElementsAre("mnuToDesktop"));
  EXPECT_EQ(ui.Popups()[1].picked, "");
  EXPECT_THAT(ui.Popups()[1].shown, ElementsAre("mnuOpen", "mnuToDesktop"));
  EXPECT_EQ(ui.PendingPopupPicks(), 0u);
  // With nothing visible nothing is shown and the pick stays queued.
  for (const auto& entry : popup.Items()) entry->SetVisible(false);
  ui.QueuePopupPick("mnuOpen");
  ui.PopupMenu(popup);
  EXPECT_THAT(ui.Popups()[4].shown, IsEmpty());
  EXPECT_EQ(ui.PendingPopupPicks(), 1u);
  popup.Find("mnuOpen")->SetVisible(true);
  popup.Find("mnuOpen")->SetEnabled(true);
  ui.PopupMenu(popup);
  EXPECT_THAT(clicks, ElementsAre("mnuToDesktop", "mnuOpen"));
}

}  // namespace
}  // namespace orvel
