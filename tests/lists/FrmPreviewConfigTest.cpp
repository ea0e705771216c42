// The column dialog: what it shows from the dictionaries, how edits change
// the configuration it hands back, the width rules and the Enter key.
#include <gtest/gtest.h>

#include "common/Catalogue.h"
#include "host/Text.h"
#include "lists/frmPreviewConfig.h"
#include "support/ModuleTest.h"
#include "testhost/TestServices.h"

namespace orvel {
namespace {

constexpr const char* kConfig =
    "Bankai;9;1;0;0;2;1;Pabaiga#WZWCode;Kodas;0;2,5;1#WZWName;Pavadinimas;0;7,0;0"
    "#WZWNote;Pastaba;2;4,0;999#WZWCity;Miestas;0;3,0;2";

class FrmPreviewConfigTest : public ModuleTest {
 protected:
  void SetUp() override {
    ModuleTest::SetUp();
    SetOrvelS(host_.Services());
  }

  // A dialog loaded with `config`, as the list window hands it over.
  std::unique_ptr<frmPreviewConfig> Open(const std::string& config = kConfig) {
    auto dialog = std::make_unique<frmPreviewConfig>();
    ParseColumnConfig(config, dialog->PrintDict, dialog->ColumnDict);
    dialog->PrintDict.Add("JRegName", Variant("Bankai"));
    dialog->PrintDict.Add("JParams", Variant(""));
    dialog->Show();
    return dialog;
  }

  static std::vector<std::string> Rows(const frmPreviewConfig& d) {
    std::vector<std::string> rows;
    for (const auto& item : d.lvwColumns.ListItems()) {
      rows.push_back(item->Text() + "|" + item->ListSubItems().Item(1).Text() +
                     (d.ColumnChecked(item->Key()) ? "|x" : "|"));
    }
    return rows;
  }

  static void Select(frmPreviewConfig& d, int index) {
    d.lvwColumns.ItemClick(d.lvwColumns.ListItems().Item(index));
  }

  static void TypeWidth(frmPreviewConfig& d, const std::string& text) {
    d.txtWidth.GotFocus();
    d.txtWidth.Edit(text);
    d.txtWidth.LostFocus();
  }
};

TEST_F(FrmPreviewConfigTest, ShowsShownColumnsByPositionThenHiddenOnes) {
  auto d = Open();
  EXPECT_EQ(Join(Rows(*d), " "), "Pavadinimas|7,0|x Kodas|2,5|x Miestas|3,0|x Pastaba|4,0|");
  // The first row is selected and in the edit boxes; then the print parameters, the boxes
  // ticked (1) or not (0).
  EXPECT_EQ(d->lvwColumns.SelectedItem(), &d->lvwColumns.ListItems().Item(1));
  std::string ticked;
  for (const CheckBox* box : {&d->chbGridlinesHor, &d->chbGridlinesVer, &d->chbUserName,
                              &d->chbDate, &d->chbTime}) {
    ticked += std::to_string(box->Value());
  }
  EXPECT_EQ(Join({d->Caption(), d->txtColumnCaption.Text(), d->txtWidth.Text(),
                  d->cmbAlignment.Text(), d->txtJournalName.Text(), d->cmbFontSize.Text(),
                  std::to_string(d->cmbFontSize.ListIndex()), ticked, d->txtFooter.Text(),
                  d->txtRegName.Text(), d->lblTotalWidth.Caption()},
                 "|"),
            " Vaizdo parametrai|Pavadinimas|7,0|Iš kairės|Bankai|9|3|10011|Pabaiga|Bankai|12,5");
  // OK without changes accepts the same string, the shown columns in order.
  d->cmdOK.Click();
  EXPECT_EQ(d->Status, frmPreviewConfig::kAccepted);
  EXPECT_EQ(d->NewConfig,
            "Bankai;9;1;0;0;2;1;Pabaiga#WZWName;Pavadinimas;0;7,0;0#WZWCode;Kodas;0;2,5;1"
            "#WZWCity;Miestas;0;3,0;2#WZWNote;Pastaba;2;4,0;999");
  EXPECT_FALSE(d->Loaded());
}

TEST_F(FrmPreviewConfigTest, SixteenColumnsLeaveRoomForTheScrollBar) {
  for (int count : {15, 16}) {
    std::string config = "T;9;1;1;0;1;1;";
    for (int i = 0; i < count; ++i) {
      config += "#WZWF" + std::to_string(i) + ";F;0;1,0;" + std::to_string(i);
    }
    auto d = Open(config);
    EXPECT_EQ(d->lvwColumns.ColumnHeaders().Item(1).Width(), count >= 16 ? 3700 : 4000) << count;
  }
}

TEST_F(FrmPreviewConfigTest, MovingUncheckingAndEditingChangeTheColumnsAndThePrint) {
  auto d = Open();
  Select(*d, 2);  // Kodas
  d->cmdUp.Click();
  EXPECT_EQ(d->lvwColumns.SelectedItem()->Text(), "Kodas");
  d->cmdUp.Click();  // at the top: nothing
  d->txtColumnCaption.Edit("Banko kodas");
  d->txtColumnCaption.LostFocus();
  d->cmbAlignment.Pick(2);
  Select(*d, 3);  // Miestas
  ListItem& city = d->lvwColumns.ListItems().Item(3);
  EXPECT_TRUE(city.Checked());
  d->lvwColumns.ItemCheck(city);  // the user clears its check box
  EXPECT_FALSE(city.Checked() || d->ColumnChecked("WZWCity"));
  EXPECT_EQ(d->lblTotalWidth.Caption(), "9,5");
  Select(*d, 4);
  d->cmdDown.Click();  // at the bottom: nothing
  d->txtJournalName.Edit("Mūsų bankai");
  d->cmbFontSize.Pick(6);
  for (CheckBox* box : {&d->chbGridlinesHor, &d->chbGridlinesVer, &d->chbUserName, &d->chbTime}) {
    box->Click();
  }
  d->txtFooter.Edit("");
  d->txtRegName.Edit("Bankai2");
  d->cmdOK.Click();
  EXPECT_EQ(d->Status, frmPreviewConfig::kColumnsChanged);
  EXPECT_EQ(d->NewConfig,
            "Mūsų bankai;12;0;1;1;1;1;#WZWCode;Banko kodas;2;2,5;0#WZWName;Pavadinimas;0;7,0;1"
            "#WZWCity;Miestas;0;3,0;999#WZWNote;Pastaba;2;4,0;999");
  EXPECT_EQ(d->PrintDict.Item("JRegName"), Variant("Bankai2"));
  // Date off writes no date whatever the time; a print parameter alone is a change.
  d = Open();
  d->chbDate.Click();
  d->cmdOK.Click();
  EXPECT_EQ(d->Status, frmPreviewConfig::kColumnsChanged);
  EXPECT_EQ(d->NewConfig.substr(0, d->NewConfig.find('#')), "Bankai;9;1;0;0;0;1;Pabaiga");
}

// A width is formatted, capped at 27 or, when zero or empty, restored. The
// box filters keys as every decimal box does (KeyFilterDecimal's table):
// what it types is the routine's answer on its own text.
TEST_F(FrmPreviewConfigTest, WidthIsFormattedCappedOrRestored_KeysFilteredOnItsOwnText) {
  for (const auto& [typed, shown, total] : {std::tuple{"5", "5,0", "10,5"},
                                            {"3,25", "3,3", "8,8"},
                                            {"27", "27,0", "32,5"},
                                            {"28", "27", "32,5"},
                                            {"0", "7,0", "12,5"},
                                            {"", "7,0", "12,5"}}) {
    auto d = Open();
    TypeWidth(*d, typed);
    EXPECT_EQ(d->txtWidth.Text(), shown);
    EXPECT_EQ(d->lvwColumns.ListItems().Item(1).ListSubItems().Item(1).Text(), shown);
    EXPECT_EQ(d->lblTotalWidth.Caption(), total);
    d->cmdOK.Click();
    EXPECT_NE(d->NewConfig.find(std::string("#WZWName;Pavadinimas;0;") + shown + ";0"),
              std::string::npos)
        << d->NewConfig;
  }
  auto d = Open();
  d->txtWidth.SetText("1");
  EXPECT_EQ(d->txtWidth.KeyPress('.'), ',');
  d->txtWidth.SetText("1,5");
  EXPECT_EQ(d->txtWidth.KeyPress(','), 0);
}

// Enter accepts except in the footer; an empty registration name keeps the focus. Without a
// checked column the dialog refuses to accept and stays; Cancel leaves it.
TEST_F(FrmPreviewConfigTest, EnterAndFocusRules_NoCheckedColumnIsRefused) {
  auto d = Open("T;9;1;1;0;1;1;#WZWName;Pavadinimas;0;7,0;0");
  d->lvwColumns_ItemCheck(d->lvwColumns.ListItems().Item(1), false);
  ASSERT_TRUE(d->SetFocus(d->txtRegName));
  EXPECT_TRUE(d->SetFocus(d->txtJournalName));
  ASSERT_TRUE(d->SetFocus(d->txtRegName));
  d->txtRegName.Edit("");
  EXPECT_FALSE(d->SetFocus(d->txtJournalName));
  EXPECT_EQ(d->ActiveControl(), &d->txtRegName);
  d->txtRegName.Edit("Bankai");
  ASSERT_TRUE(d->SetFocus(d->txtFooter));
  EXPECT_EQ(d->TypeKey(13), 13);
  ASSERT_TRUE(d->SetFocus(d->txtJournalName));
  host_.Ui()->QueueAnswer(vbOK);
  EXPECT_EQ(d->TypeKey(13), 0);
  EXPECT_EQ(BoxLines(*host_.Ui(), false),
            std::vector<std::string>{"64 Nepažymėtas nei vienas stulpelis!"});
  EXPECT_TRUE(d->Loaded());
  EXPECT_EQ(d->Status, frmPreviewConfig::kAccepted);  // set before the check
  EXPECT_EQ(d->NewConfig, "");
  d->cmdCancel.Click();
  EXPECT_EQ(d->Status, frmPreviewConfig::kCancelled);
  EXPECT_FALSE(d->Loaded());
}

}  // namespace
}  // namespace orvel
