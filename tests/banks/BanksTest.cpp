// The bank adapters as the host uses them (menus, the keys of the tree, the
// desktop, the properties other windows reach a bank by) and the road of one
// bank record through its card: load, firms, edit, write, cancel, new, close
// and delete.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "adapters/UI0000300.h"
#include "banks/frmBanks.h"
#include "host/Convert.h"
#include "orvel/OrvelObjectUIO.h"
#include "support/CardTest.h"
#include "support/Controls.h"
#include "support/TextRecords.h"
#include "testhost/TestMainForm.h"
#include "testhost/TestObjectSelect.h"
#include "testhost/TestWindowManager.h"

namespace orvel {
namespace {

using Lines = std::vector<std::string>;

class FrmBanksTest : public CardTest<frmBanks> {
 protected:
  FrmBanksTest() : CardTest("O0000300") {}
  void SetUp() override {
    CardTest::SetUp();
    auto& table = BO(oid_).Table();
    table.SetFields({"ID", "Name", "Code"});
    table.SetPreviewRule([](const MemoryTable::FieldReader& field) { return CStr(field("Name")); });
    table.Seed(SeedRows("ID Name Code", {"|Pirmas bankas|#70440", "5|Šiaulių bankas|#71800"}));
    BO(oid_).ReplyRead("GetFirms", TextRecords("OIDR Preview", "O00001007|UAB Medis\n"
                                                               "O00001009|AB Akmuo\n"
                                                               "O00001007|UAB Medis (vėl)"));
    MakeAdapter();
    host_.Log().Clear();
  }

  // "key caption flags" of each entry of the type's menu, by "|".
  std::string Keys(const std::string& oidr, const std::string& otype) {
    std::string keys;
    const auto menu = adapter_->GetMenu(oidr, otype, "ignored");
    for (const auto& item : *menu) {
      keys += "|" + item.Key + " " + item.Caption + (item.Tag || item.Flags ? " tagged" : "");
    }
    return keys.substr(1);
  }

  // Write, Cancel and New, 1 when enabled.
  static std::string Buttons(frmBanks& w) { return OnOff({&w.cmdEnter, &w.cmdCancel, &w.SSCNew}); }

  Lines WindowLines() { return host_.Log().Lines(Channel::Window); }
};

// Loading reads the structure and the firms under the hourglass; the
// repeated key is left out, the others carry their OIDR and icon.
TEST_F(FrmBanksTest, AStoredBankShowsItsCardAndItsFirmsOnce) {
  auto w = adapter_->ClickMenu("O00003005", "", "0", "").Value.ObjectAs<frmBanks>();
  ASSERT_TRUE(w);
  host_.Log().Clear();
  host_.WindowManager()->ShowWindow(w);
  EXPECT_EQ(BusinessLines(), (Lines{"RecordsetCall Orvel_GetObjectStructure Banks",
                                    "GetCall GetFirms O00003005"}));
  EXPECT_THAT(host_.Ui()->MousePointers(), ::testing::Contains(vbHourglass));
  EXPECT_EQ(host_.Ui()->MousePointers().back(), vbDefault);
  EXPECT_EQ(w->SOPanel.Caption() + " " + Buttons(*w) + std::to_string(w->Enabled()),
            "Banko kortelė 0011");
  ListView& firms = Grid(*w).TabList("Firms");
  EXPECT_EQ(firms.SmallIcons(), host_.MainForm()->ImgCatalogue());
  // A second InitForm adds no tab, no column and no row.
  w->InitForm();
  EXPECT_EQ(Grid(*w).Tabs().size(), 1u);
  ASSERT_EQ(firms.ColumnHeaders().Count(), 1);
  const auto& column = firms.ColumnHeaders().Item(1);
  EXPECT_EQ(column.Text() + " " + std::to_string(column.Width()), "Pavadinimas 7000");
  std::string rows;
  for (const auto& row : firms.ListItems()) {
    rows += row->Key() + " " + row->Text() + " " + ConcatText(row->Tag()) + " " + row->SmallIcon();
  }
  EXPECT_EQ(rows, "O00001007 UAB Medis O00001007 C0000100O00001009 AB Akmuo O00001009 C0000100");
}

// Write saves, tells the host and cleans the buttons; a refused write is shown
// and stays dirty, one refused with 60000 (changed meanwhile) reads the record
// again. Cancel reads the record again; a failed read closes the window. Each
// row: the button, the call failing and its number, the one box, the buttons,
// the names in the window and stored, and the window's lines.
TEST_F(FrmBanksTest, WriteAndCancelFollowTheirCalls) {
  const char* const refused = "16 Orvel Apskaita Klaida!\n\nKodas kartojasi";
  const auto bank = BO(oid_).Table().ReadRecord(5);
  for (const auto& [write, failing, number, box, buttons, names, shown] :
       {std::tuple{true, "", 0, "", "001", "X X", "ObjectSaved O00003005"},
        {true, "Orvel_SaveObject", 17, refused, "110", "X Šiaulių bankas", ""},
        {true, "Orvel_SaveObject", 60000, refused, "001", "Šiaulių bankas Šiaulių bankas", ""},
        {false, "", 0, "", "001", "Šiaulių bankas Šiaulių bankas", ""},
        {false, "Orvel_ReadObject", 3021, "48 Orvel Apskaita Įrašas nerastas: O00003005", "110",
         "X Šiaulių bankas", "RemoveWindow O00003005 True"}}) {
    SCOPED_TRACE(std::string(write ? "write " : "cancel ") + failing);
    BO(oid_).ClearFailures();
    BO(oid_).Table().Store(5, *bank);
    auto w = Open("O00003005");
    Grid(*w).EditField("Name", Variant("X"));
    EXPECT_EQ(Buttons(*w), "110");
    const char* const text = number == 3021 ? "Įrašas nerastas: O00003005" : "Kodas kartojasi";
    if (number) BO(oid_).FailCallsNamed(failing, number, text);
    if (*box) host_.Ui()->QueueAnswer(vbOK);
    write ? w->cmdEnter.Click() : w->cmdCancel.Click();
    EXPECT_EQ(Boxes(), *box ? Lines{box} : Lines{});
    EXPECT_EQ(Buttons(*w), buttons);
    EXPECT_EQ(CStr(w->OrvelObjectUIO()->Fields("Name").Value()) + " " + CStr(Stored(5, "Name")),
              names);
    EXPECT_EQ(Join(WindowLines(), "|"), shown);
    EXPECT_EQ(BusinessLines().front(), write ? "ExecArrayCall Orvel_SaveObject 'O0000300',"
                                               "'O00003005'"
                                             : "GetCall Orvel_ReadObject 'O00003005'");
  }
  // A window without an object fails clearly instead of crashing.
  Clear();
  frmBanks bare;
  host_.Ui()->QueueAnswer(vbOK);
  bare.cmdCancel_Click();
  EXPECT_THAT(Boxes(), ::testing::ElementsAre(::testing::StartsWith("16 ")));
}

// With unsaved changes New asks and stays on No; on a new record it rekeys
// nothing. A new bank lists no firms, and written takes its OIDR.
TEST_F(FrmBanksTest, NewMovesTheWindowToANewRecordAndRekeysIt) {
  auto w = Open("O00003005");
  Grid(*w).EditField("Name", Variant("X"));
  host_.Ui()->QueueAnswer(vbNo);
  w->SSCNew_Click();
  EXPECT_EQ(w->OrvelObjectUIO()->OIDR(), "O00003005");
  EXPECT_EQ(Boxes(), Lines{"52 Orvel Apskaita Banko kortelė\n\nUždaryti be išsaugojimo?"});
  w->cmdCancel_Click();
  for (const char* shown : {"QueryRemove O00003005 True|Rekey O00003005", "QueryRemove  True"}) {
    host_.Log().Clear();
    w->SSCNew_Click();
    EXPECT_EQ(w->OrvelObjectUIO()->OIDR() + w->SOPanel.Caption(), "Naujas bankas");
    EXPECT_EQ(Join(WindowLines(), "|"), shown);
  }
  w = Open("", "1");  // lists no firms, and written takes its OIDR
  EXPECT_EQ(w->SOPanel.Caption() + " " + Buttons(*w), "Naujas bankas 001");
  EXPECT_EQ(Grid(*w).TabList("Firms").ListItems().Count(), 0);
  Grid(*w).EditField("Name", Variant("Naujas"));
  w->cmdEnter_Click();
  EXPECT_EQ(w->OrvelObjectUIO()->OIDR() + " " + w->SOPanel.Caption(), "O00003006 Banko kortelė");
  EXPECT_EQ(WindowLines(), Lines{"ObjectSaved O00003006"});
}

// A refused close keeps the close button disabled, so a right click on it
// does nothing; an accepted one enables it again. Close lets events run and
// closes through the host.
TEST_F(FrmBanksTest, CloseAsksWhenDirtyAndClosesThroughTheHost) {
  auto w = Open("O00003005");
  Grid(*w).EditField("Name", Variant("X"));
  host_.Ui()->QueueAnswer(vbNo);
  w->SSCClose_Click();
  EXPECT_TRUE(host_.WindowManager()->IsOpen("O00003005"));
  EXPECT_FALSE(w->SSCClose.Enabled());
  w->SSCClose_MouseUp(2);  // asks nothing more
  bool cancel = false;
  host_.Ui()->QueueAnswer(vbYes);
  w->QueryRemove(cancel);
  EXPECT_TRUE(!cancel && w->SSCClose.Enabled());
  w->cmdCancel_Click();
  const int before = host_.Ui()->DoEventsCount();
  w->SSCClose_Click();
  EXPECT_EQ(host_.Ui()->DoEventsCount(), before + 1);
  EXPECT_FALSE(host_.WindowManager()->IsOpen("O00003005"));
  EXPECT_FALSE(w->Loaded());
  // A right click on Close deletes after asking; a left button does nothing.
  w = Open("O00003005");
  host_.Ui()->QueueAnswer(vbCancel);
  w->SSCClose_MouseUp(2);
  EXPECT_TRUE(BO(oid_).Table().Contains(5));
  w->SSCClose_MouseUp(1);  // asks nothing
  host_.Ui()->QueueAnswer(vbOK);
  w->SSCClose_MouseUp(2);
  EXPECT_FALSE(BO(oid_).Table().Contains(5));
  EXPECT_EQ(Boxes(), Lines(2, "49 Orvel Apskaita Ar tikrai norite panaikinti?\nŠiaulių bankas"));
  EXPECT_EQ(WindowLines().back(), "RemoveWindow O00003005 False");
}

// No selection or the left button: no menu.
TEST_F(FrmBanksTest, ARightClickOnASelectedFirmOffersTheDesktop) {
  auto w = Open("O00003005");
  ListView& firms = Grid(*w).TabList("Firms");
  w->OrvelGrid_ListMouseUp("Firms", 0, 2, 0);
  firms.SetSelectedItem(&firms.ListItems().Item(2));
  w->OrvelGrid_ListMouseUp("Firms", 0, 1, 0);
  EXPECT_TRUE(WindowLines().empty());
  host_.Ui()->QueuePopupPick("mnuToDesktop");
  w->OrvelGrid_ListMouseUp("Firms", 0, 2, 0);
  EXPECT_EQ(WindowLines(), Lines{"PopupMenu mnuFirms"});
  EXPECT_EQ(host_.Log().Lines(Channel::Host).back(), "AddToDesktop O00001009");
  EXPECT_EQ(w->mnuToDesktop.Caption(), "Padėti &ant darbo stalo");
}

using BankAdaptersTest = FrmBanksTest;

// The root offers New and Select, a record also the desktop and Delete. Key 0
// builds the bank's card, key 1 a card on a new bank, without showing either;
// a bank that cannot be read is handed out as ShowWindow with nothing.
TEST_F(BankAdaptersTest, TheMenuAndItsCardKeys) {
  EXPECT_EQ(Keys("O0000300", ""), "1 &Naujas bankas|4 &Atrinkti");
  EXPECT_EQ(Keys("O00003005", "C"),
            "0 Padėti &ant darbo stalo|1 &Naujas bankas|6 &Panaikinti|4 &Atrinkti");
  for (const auto& [oidr, key, built] : {std::tuple{"O00003005", "0", "O00003005"},
                                         {"O00003005", "1", ""},
                                         {"O00003009", "0", "-"}}) {
    auto result = adapter_->ClickMenu(oidr, "", key, "");
    EXPECT_EQ(result.Action, OrvelMenuResult::kShowWindow);
    auto window = result.Value.ObjectAs<frmBanks>();
    EXPECT_EQ(window ? window->OrvelObjectUIO()->OIDR() : "-", built);
    EXPECT_TRUE(window ? !window->Loaded() : result.Value.IsNothing());
  }
  EXPECT_TRUE(host_.Log().Lines(Channel::Window).empty());
  EXPECT_EQ(BusinessLines(), (Lines{"GetCall Orvel_ReadObject 'O00003005'",
                                    "GetCall Orvel_NewObject 'O0000300'",
                                    "GetCall Orvel_ReadObject 'O00003009'"}));
}

// Selecting by text, by the menu and the chord alike, replaces the list with
// the matches; an empty answer changes nothing. Delete asks with OK and Cancel
// and removes on OK; a delete that fails leaves the node; unknown keys do
// nothing.
TEST_F(BankAdaptersTest, SelectingReplacesTheListAndDeleteAsks) {
  for (const char* key : {"4", "70S2"}) {
    SCOPED_TRACE(key);
    host_.Log().Clear();
    auto none = adapter_->ClickMenu("O0000300", "", key, "");
    EXPECT_TRUE(none.Action == OrvelMenuResult::kNothing && none.Value.IsEmpty());
    host_.HostClasses()->QueueObjectSelect("šiaul");
    auto result = adapter_->ClickMenu("O0000300", "", key, "");
    EXPECT_EQ(result.Action, OrvelMenuResult::kReplaceList);
    const auto& value = result.Value.ArrayValue();
    ASSERT_EQ(value.size(), 2u);
    EXPECT_EQ(value[0].ObjectAs<Recordset>()->RecordCount(), 1);
    EXPECT_EQ(value[1], Variant("šiaul"));
    EXPECT_EQ(BusinessLines(), Lines{"GetCall Orvel_GetObjectList '','šiaul'"});
    auto dialog = host_.HostClasses()->LastObjectSelect();
    EXPECT_EQ(dialog->OType() + (dialog->MultiSelect() ? " many" : ""), "O0000300");
  }
  host_.Ui()->QueueAnswer(vbCancel);
  EXPECT_EQ(adapter_->ClickMenu("O00003005", "", "6", "").Action, OrvelMenuResult::kNothing);
  EXPECT_TRUE(BO("O0000300").Table().Contains(5));
  host_.Ui()->QueueAnswer(vbOK);
  EXPECT_EQ(adapter_->ClickMenu("O00003005", "", "6", "").Action, OrvelMenuResult::kRemoved);
  EXPECT_FALSE(BO("O0000300").Table().Contains(5));
  EXPECT_EQ(Boxes(), Lines(2, "49 Apskaita Ar tikrai norite panaikinti?"));
  host_.Ui()->QueueAnswer(vbOK);
  EXPECT_EQ(adapter_->ClickMenu("O00003005", "", "6", "").Action, OrvelMenuResult::kNothing);
  host_.Log().Clear();
  for (const char* key : {"2", "3", "5", "7", "116S0", "82S2", ""}) {
    EXPECT_EQ(adapter_->ClickMenu("O00003001", "", key, "").Action, OrvelMenuResult::kNothing)
        << key;
  }
  EXPECT_TRUE(BusinessLines().empty());
}

TEST_F(BankAdaptersTest, AddToDesktopShowsACardOnlyWhenNoneIsOpen) {
  EXPECT_TRUE(adapter_->AddToDeskTopOrvelObject("O00003005"));
  EXPECT_TRUE(adapter_->AddToDeskTopOrvelObject("O00003005"));
  EXPECT_EQ(host_.WindowManager()->Count(), 1u);
  auto lines = host_.Log().Lines(Channel::Window);
  EXPECT_EQ(std::count(lines.begin(), lines.end(), "ShowWindow O00003005"), 1);
  // A bank that cannot be read is still handed over, with no window.
  host_.Log().Clear();
  EXPECT_TRUE(adapter_->AddToDeskTopOrvelObject("O00003009"));
  EXPECT_EQ(host_.Log().Lines(Channel::Window), (Lines{"IsOpen O00003009", "ShowWindow"}));
  EXPECT_EQ(host_.WindowManager()->Count(), 1u);
  EXPECT_EQ(adapter_->GetIconsTable()->Count(), 1);
  EXPECT_EQ(adapter_->GetIconsTable()->Item("C"), "C0000300");
}

TEST_F(BankAdaptersTest, PropertiesStructureFirmsAndObjectForm) {
  auto bank = adapter_->GetOrvelObject("O00003005");
  host_.Log().Clear();
  auto structure = bank->Properties("Structure", "");
  // The whole business reply travels in Value.
  auto reply = structure.Value.ObjectAs<OrvelBoResult>();
  ASSERT_NE(reply, nullptr);
  EXPECT_NE(std::dynamic_pointer_cast<Recordset>(reply->Object), nullptr);
  auto firms = bank->Properties("Firms", "");
  EXPECT_NE(firms.Value.ObjectAs<Recordset>(), nullptr);
  EXPECT_EQ(structure.Number + firms.Number, 0);
  bank->Properties("Firms", "'O00003005',1");
  auto window = bank->Properties("GetObjectForm", "").Value.ObjectAs<frmBanks>();
  EXPECT_EQ(window ? window->OrvelObjectUIO() : nullptr, bank);

  EXPECT_EQ(BusinessLines(), (Lines{"RecordsetCall Orvel_GetObjectStructure Banks",
                                    "GetCall GetFirms O00003005",
                                    "GetCall GetFirms 'O00003005',1"}));
}

}  // namespace
}  // namespace orvel
