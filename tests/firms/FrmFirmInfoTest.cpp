#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "FirmCardFixture.h"
#include "firms/frmFirmInfo.h"
#include "host/Convert.h"
#include "support/TextRecords.h"
#include "testhost/TestUser.h"
#include "ui/ControlConstants.h"

namespace orvel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr const char* kFirm = "O00001002";

// "ID|text|from|to|priority|colour" of the dialog, the colour of the text and
// of its sample by "/".
std::string Describe(frmFirmInfo& d) {
  return std::to_string(d.ID) + "|" + d.txtInfo.Text() + "|" + ConcatText(d.dtpDateFrom.Value()) +
         "|" + ConcatText(d.dtpDateTo.Value()) + "|" + d.imcPriority.Text() + "|" +
         std::to_string(d.txtInfo.ForeColor()) + "/" + std::to_string(d.lblColor.ForeColor());
}

class FrmFirmInfoTest : public FirmCardTest {
 protected:
  // The firm's notes as the business layer lists them, a line a note.
  void Notes(const std::string& rows) {
    Reply("GetFirmInfo", "ID Info DateFrom DateTo UserName Priority", rows);
  }

  // Opens the note of list row `key` ("" for a new note) with `script`
  // playing the user; returns the window.
  std::shared_ptr<frmFirms> Edit(const std::string& key, std::function<void(frmFirmInfo&)> script) {
    auto w = Open(kFirm);
    if (!key.empty()) {
      ListView& list = Grid(*w).TabList("FirmInfo");
      list.SetSelectedItem(list.ListItems().Find(key));
    }
    host_.Ui()->QueueModal(
        [script = std::move(script)](Form& form) { script(dynamic_cast<frmFirmInfo&>(form)); });
    w->EditFirmInfo(key.empty());
    return w;
  }

  Lines Writes() { return Calls("AddUpdateFirmInfo"); }
  size_t Reads() { return Calls("GetFirmInfo").size(); }
};

TEST_F(FrmFirmInfoTest, ANewNoteStartsTodayWithoutAnEndAndIsWrittenUnderIdZero) {
  Edit("", [](frmFirmInfo& dialog) {
    EXPECT_EQ(dialog.Caption(), "Įmonės informacija");
    EXPECT_EQ(Describe(dialog), "0||2026-11-23||Svarbi informacija|0/0");
    ASSERT_EQ(dialog.imcPriority.ComboItems().Count(), 3);
    dialog.txtInfo.Edit("  Skambinti 'rytoj'  ");
    dialog.imcPriority.Pick(dialog.imcPriority.ComboItems().Item(2));
    EXPECT_EQ(dialog.txtInfo.ForeColor(), vbBlue);  // the pick recolours
    dialog.cmdWrite.Click();
  });
  EXPECT_THAT(Writes(), ElementsAre("0,'Skambinti \"rytoj\"','20261123',Null,2,1,2"));
  // Saved: the list and the line are read again.
  EXPECT_EQ(Reads(), 1u);
}

TEST_F(FrmFirmInfoTest, AStoredNoteOpensInItsPriorityAndColour) {
  host_.User()->SetRs(TextRecords("ID", "3"));
  for (const auto& [priority, shown] :
       {std::pair{1, "Svarbi informacija|0/0"},
        {2, "Ypatingai svarbi informacija|16711680/16711680"},  // blue
        {3, "Įspėjamoji informacija|255/255"}}) {                // red
    const std::string level = std::to_string(priority);
    Notes("17|Mokėjimai vėluoja|@2026-01-05|@2026-12-31|admin|" + level +
          "\n18|Kita|@2026-02-01|~|admin|1");
    Edit("17K", [&, shown = shown](frmFirmInfo& dialog) {
      EXPECT_EQ(Describe(dialog),
                std::string("17|Mokėjimai vėluoja|2026-01-05|2026-12-31|") + shown);
      dialog.cmdWrite.Click();
    });
    EXPECT_EQ(Writes().back(), "17,'Mokėjimai vėluoja','20260105','20261231',2,3," + level);
  }
}

// Another user removed the note meanwhile: it opens as a new one.
TEST_F(FrmFirmInfoTest, ANoteRemovedMeanwhileOpensAsNew) {
  Notes("17|Sena|@2026-01-05|~|admin|3");
  auto w = Open(kFirm);
  ListView& list = Grid(*w).TabList("FirmInfo");
  list.SetSelectedItem(list.ListItems().Find("17K"));
  Notes("");
  host_.Ui()->QueueModal([](Form& form) {
    auto& dialog = dynamic_cast<frmFirmInfo&>(form);
    EXPECT_EQ(Describe(dialog), "0||2026-11-23||Svarbi informacija|0/0");
    dialog.txtInfo.Edit("Nauja");
    dialog.cmdWrite.Click();
  });
  w->EditFirmInfo(false);
  EXPECT_THAT(Writes(), ElementsAre("0,'Nauja','20261123',Null,2,1,1"));
}

TEST_F(FrmFirmInfoTest, TheStartBoundsTheEndAndMovesIt) {
  Edit("", [](frmFirmInfo& dialog) {
    EXPECT_TRUE(dialog.dtpDateTo.Pick(DayOf(2026, 12, 1)));
    // No end before the start.
    EXPECT_FALSE(dialog.dtpDateTo.Pick(DayOf(2026, 11, 22)));
    EXPECT_EQ(dialog.dtpDateTo.Value(), DayOf(2026, 12, 1));
    // A start past the end moves the minimum, and the end with it.
    EXPECT_TRUE(dialog.dtpDateFrom.Pick(DayOf(2027, 1, 10)));
    EXPECT_EQ(dialog.dtpDateTo.MinDate(), DateSerial(2027, 1, 10));
    EXPECT_EQ(dialog.dtpDateTo.Value(), DayOf(2027, 1, 10));
    // An earlier start lowers the minimum and leaves the end.
    EXPECT_TRUE(dialog.dtpDateFrom.Pick(DayOf(2026, 11, 1)));
    EXPECT_EQ(dialog.dtpDateTo.Value(), DayOf(2027, 1, 10));
    dialog.txtInfo.Edit("X");
    dialog.cmdWrite.Click();
  });
  EXPECT_THAT(Writes(), ElementsAre("0,'X','20261101','20270110',2,1,1"));
}

// Cancel writes and reloads nothing; a failed write still closes as saved.
TEST_F(FrmFirmInfoTest, CancelWritesNothingAndAFailedWriteStillClosesAsSaved) {
  Edit("", [](frmFirmInfo& dialog) {
    dialog.txtInfo.Edit("Neįrašyti");
    dialog.cmdCancel.Click();
    EXPECT_FALSE(dialog.Saved);
  });
  EXPECT_THAT(Writes(), IsEmpty());
  EXPECT_EQ(Reads(), 0u);
  BO("O0000100").FailCallsNamed("AddUpdateFirmInfo", 5, "Klaida serveryje");
  Edit("", [](frmFirmInfo& dialog) {
    dialog.txtInfo.Edit("Bet kas");
    dialog.cmdWrite.Click();
    EXPECT_TRUE(dialog.Saved);
    EXPECT_FALSE(dialog.Loaded());
  });
  EXPECT_EQ(Writes().size(), 1u);
  EXPECT_EQ(Reads(), 1u);
  EXPECT_TRUE(host_.Ui()->Boxes().empty());
}

TEST_F(FrmFirmInfoTest, TheMethodHandsBackTheIdTheDialogEndedWith) {
  auto firm = adapter_->GetOrvelObject(kFirm);
  ASSERT_NE(firm, nullptr);
  Variant::Array params{Variant(17)};  // no such note
  host_.Ui()->QueueModal([](Form& form) { dynamic_cast<frmFirmInfo&>(form).cmdCancel.Click(); });
  OrvelResult shown = firm->Methods("ShowFirmInfo", params);
  EXPECT_EQ(shown.Value, Variant(false));
  EXPECT_EQ(params[0], Variant(0));

  // A firm not saved yet shows no dialog.
  auto fresh = adapter_->GetOrvelObject("");
  ASSERT_NE(fresh, nullptr);
  Variant::Array none{Variant(0)};
  EXPECT_TRUE(fresh->Methods("ShowFirmInfo", none).Value.IsEmpty());
  EXPECT_EQ(host_.Ui()->PendingModalScripts(), 0u);
}

}  // namespace
}  // namespace orvel
