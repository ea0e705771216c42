#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <stdexcept>
#include <tuple>

#include "FirmCardFixture.h"
#include "hostkit/TextDragData.h"
#include "orvel/OrvelObjectUIO.h"
#include "orvel/OrvelShowObject.h"
#include "testhost/TestRights.h"
#include "testhost/TestSession.h"
#include "testhost/TestWindowManager.h"
#include "ui/ControlConstants.h"

namespace orvel {
namespace {

using Right = TestRights::Right;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::StartsWith;

// One answer record: the four sums (0 unless given), the limit (1000000, no
// limit, unless given) and the given terms, as "name=value;...".
std::shared_ptr<MemoryRecordset> Record(const std::string& figures) {
  std::map<std::string, Variant> fields{
      {"Sum220", 0}, {"Sum240", 0}, {"Sum450", 0}, {"Sum460", 0}, {"Limit", 1000000}};
  for (auto& [name, value] : Assignments(figures)) fields[name] = value;
  auto rs = std::make_shared<MemoryRecordset>();
  std::vector<Variant> values;
  for (const auto& [name, value] : fields) {
    rs->AddField(name);
    values.push_back(value);
  }
  rs->AddRow(values);
  return rs;
}

// A window that notes which editor the deferred dialogs open.
class RecordingFirms : public frmFirms {
 public:
  void EditDetail(bool isNew) override { opened.push_back(isNew ? "NewDetail" : "EditDetail"); }
  void EditFirmInfo(bool isNew) override { opened.push_back(isNew ? "NewInfo" : "EditInfo"); }
  Lines opened;
};

class FrmFirmsTest : public FirmCardTest {
 protected:
  std::shared_ptr<RecordingFirms> OpenOwn(const std::string& oidr) {
    auto window = std::make_shared<RecordingFirms>();
    window->SetOrvelObjectUIO(adapter_->GetOrvelObject(oidr));
    window->Load();
    return window;
  }

  // "CheckBranch" finding `count` branches.
  void HasBranches(int count = 1) { Reply("CheckBranch", "Exist", std::to_string(count)); }

  // Opens firm 2 and answers "GetFirmDebt" (or "GetOurDebt") with one record.
  std::shared_ptr<frmFirms> OpenWithDebt(const std::string& figures,
                                         const char* call = "GetFirmDebt") {
    BO("O0000100").ReplyRead(call, Record(figures));
    return Open("O00001002");
  }
};

// Each row: the node and the menu key that builds the window, the contract
// and account rights, CheckBranch's answer, the tab keys ("-key" a firm's
// tab left out), the goods' and discounts' tab numbers and the caption.
TEST_F(FrmFirmsTest, TabsFollowKindAndRights) {
  const std::string all = " Traffic FirmContracts GOODS Accounts FirmAddresses FirmContacts "
                          "FirmBRANCH FirmServers FirmInfo FirmActivity Discounts";
  const char* const F = "O00001002";
  const char* const G = "O00001001";
  for (const auto& [oidr, key, contracts, accounts, exist, tabs, goodsTab, discountsTab,
                    caption] :
       {std::tuple{F, "0", true, true, 1, "", 3, 11, "Įmonės kortelė"},
        {F, "0", false, true, 1, "-FirmContracts", 2, 10, "Įmonės kortelė"},
        {F, "0", true, false, 0, "-Accounts -FirmBRANCH", 3, 9, "Įmonės kortelė"},
        // A new firm has no branches to show, whatever the check says.
        {G, "1", true, true, 1, "-FirmBRANCH", 3, 10, "Nauja įmonė"},
        {G, "0", true, true, 1, " Firms Discounts", 0, 2, "Įmonių grupė"},
        {G, "3", true, true, 1, " Firms Discounts", 0, 2, "Nauja įmonių grupė"}}) {
    SCOPED_TRACE(std::string(caption) + tabs);
    host_.Rights()->GrantAll();
    if (!contracts) host_.Rights()->Deny("CContracts", Right::Read);
    if (!accounts) host_.Rights()->Deny("CFirmsAC", Right::Allowed);
    HasBranches(exist);
    auto w = Open(oidr, key);
    ASSERT_TRUE(w);
    std::string expected = *tabs == ' ' ? tabs : all;
    for (const auto& word : Split(tabs, " ")) {
      if (word[0] == '-') expected = Replace(expected, " " + word.substr(1) + " ", " ");
    }
    EXPECT_EQ(" " + Join(TabKeys(*w), " "), expected);
    EXPECT_EQ(w->SOPanel.Caption(), caption);
    EXPECT_EQ(std::to_string(w->GoodsTab) + " " + std::to_string(w->DiscountsTab),
              std::to_string(goodsTab) + " " + std::to_string(discountsTab));
    EXPECT_EQ(Grid(*w).LabelWidth(), 2000);
    for (int i = 1; i <= static_cast<int>(Grid(*w).Tabs().size()); ++i) {
      EXPECT_EQ(&w->List(i), &Grid(*w).Tabs()[i - 1].list) << i;
    }
    EXPECT_FALSE(w->HasListHandle(0));
  }
}

// Cancel adds the discounts again at index two: handle 2 and the discounts'
// number point at the new list. Unload releases the handles up to ten and
// keeps the eleventh; a stale handle is a clear error, not a dangling list.
TEST_F(FrmFirmsTest, ListHandlesFollowTheTabs) {
  HasBranches();
  auto w = Open("O00001002");
  ASSERT_EQ(w->DiscountsTab, 11);
  Grid(*w).EditField("Name", Variant("UAB Kitas"));
  w->cmdCancel_Click();
  auto keys = TabKeys(*w);
  ASSERT_EQ(keys.size(), 12u);
  EXPECT_EQ(keys.back() + std::to_string(w->DiscountsTab) + std::to_string(w->ContractsTab),
            "Discounts22");
  EXPECT_EQ(&w->List(2), &Grid(*w).Tabs()[11].list);
  w->Unload();
  for (int i = 0; i <= 10; ++i) EXPECT_FALSE(w->HasListHandle(i)) << i;
  EXPECT_TRUE(w->HasListHandle(11));
  w = Open("O00001002");
  w->SSCNew_Click();  // clears the grid's tabs; the new firm lists ten
  EXPECT_ANY_THROW(w->List(11));
  EXPECT_NO_THROW(w->List(10));
}

// A dirty card asks before it goes and sets its close button by the answer.
TEST_F(FrmFirmsTest, StartUpShowsGroupLineAndCleanButtonsAndQueryRemoveAsks) {
  auto w = Open("O00001002");
  EXPECT_EQ(w->txtGroup.Text() + "|" + w->lblDebt.Caption() + "|" + w->MsgTitle + "|" +
                std::to_string(w->IsRoot) + std::to_string(w->IsNew) + "|" + Buttons(*w),
            "Tiekėjai|Informacija...|Apskaita|00|001");
  EXPECT_THAT(w->SOPanel.ToolTipText(), StartsWith("Sukūrė:"));
  auto top = Open("O00001003");
  EXPECT_EQ(top->txtGroup.Text() + std::to_string(top->IsRoot), "1");
  Grid(*w).EditField("Name", Variant("X"));
  for (const int answer : {vbNo, vbYes}) {
    host_.Ui()->QueueAnswer(answer);
    bool cancel = false;
    w->QueryRemove(cancel);
    EXPECT_EQ(cancel, answer == vbNo);
    EXPECT_EQ(w->SSCClose.Enabled(), answer == vbNo);
  }
  EXPECT_EQ(Boxes(), Lines(2, "52 Apskaita Įmonės kortelė\n\nUždaryti be išsaugojimo?"));
}

// A stored firm needs the update right, a new one the insert right.
TEST_F(FrmFirmsTest, AChangeEnablesWriteOnlyWithTheRight) {
  for (const auto& [key, right, granted, enabled] : {std::tuple{"0", Right::Update, true, "11"},
                                                     {"0", Right::Update, false, "00"},
                                                     {"0", Right::Insert, false, "11"},
                                                     {"1", Right::Insert, true, "11"},
                                                     {"1", Right::Insert, false, "00"},
                                                     {"1", Right::Update, false, "11"}}) {
    SCOPED_TRACE(std::string(key) + (granted ? "" : " denied"));
    host_.Rights()->GrantAll();
    if (!granted) host_.Rights()->Deny("CFirms", right);
    auto w = Open(*key == '0' ? "O00001002" : "O00001001", key);
    Grid(*w).EditField("Name", Variant("X"));
    EXPECT_EQ(OnOff({&w->cmdEnter, &w->cmdCancel}), enabled);
  }
}

// Each row: the window's node (a group's OIDR opens a new firm, but for its
// own lists), the tab, the selected row's tag ("-" none selected) and the menu
// shown without "mnu", then its entries without the menu's name, "!" marking
// one disabled ("" when no menu opens).
TEST_F(FrmFirmsTest, RightClickPreparesThatTabsMenu) {
  const char* const F = "O00001002";
  const char* const N = "O00001001";
  for (const auto& [oidr, key, tag, shown] :
       {std::tuple{F, "Accounts", "", "Accounts: New Edit Delete"},
        // Delete is hidden, not disabled, so Edit stays enabled.
        {F, "Accounts", "-", "Accounts: New Edit"},
        {N, "Accounts", "-", "Accounts: !New Edit"},
        {F, "GOODS", "", "Main: ToDesktop GoodsToDesktop Preview Blank"},
        {N, "GOODS", "-", "Main: !ToDesktop !GoodsToDesktop !Preview Blank"},
        {N, "Firms", F, "Main: ToDesktop Refresh Blank FirmDelete"},
        {F, "Traffic", "O10000015", "Main: ToDesktop Preview Refresh Blank FirmDelete"},
        {F, "Traffic", "", "Main: !ToDesktop Preview Refresh Blank !FirmDelete"},
        {F, "FirmContacts", "", "FirmParameters: New Edit Delete"},
        {F, "FirmAddresses", "-", "FirmParameters: New !Edit !Delete"},
        {N, "FirmServers", "", "FirmParameters: !New Edit Delete"},
        {F, "FirmActivity", "-", "FirmParameters: New !Edit !Delete"},
        {F, "FirmInfo", "", "FirmInfo: Add Edit Delete"},
        {F, "Discounts", "-", "Discount: New !Edit Blank0 !Delete Blank1 Refresh"},
        {F, "FirmContracts", "O20000011", "Contracts: ContractToDeskTop ContractRefresh"},
        {F, "FirmContracts", "-", "Contracts: !ContractToDeskTop ContractRefresh"},
        {F, "FirmBRANCH", "", ""}}) {
    SCOPED_TRACE(std::string(oidr) + " " + key + " " + tag);
    HasBranches();
    const std::string tab = key;
    const bool isNew = oidr == std::string(N) && tab != "Firms" && tab != "Discounts";
    auto w = Open(oidr, isNew ? "1" : "0");
    if (*tag != '-') SelectRow(*w, tab, "row", *tag ? Variant(tag) : Variant());
    const int index = TabIndex(*w, tab);
    if (*shown) host_.Ui()->QueuePopupPick("");  // the user closes the menu
    const size_t before = host_.Ui()->Popups().size();
    Grid(*w).ClickList(index, 2);
    EXPECT_EQ(w->CurrentTab, index + 1);
    const auto& popups = host_.Ui()->Popups();
    std::string seen;
    if (popups.size() > before) {
      const std::string name = popups.back().menu;
      Menu* menu = static_cast<Menu*>(w->FindControl(name));
      seen = name.substr(3) + ":";
      for (const auto& entry : popups.back().shown) {
        seen += (menu->Find(entry)->Enabled() ? " " : " !") +
                entry.substr(entry.rfind(name, 0) == 0 ? name.size() : 3);
      }
    }
    EXPECT_EQ(seen, shown);
  }
}

// Without its right the discounts' list offers no menu, nor does a left click;
// the "more" row of the firms keeps the desktop and delete off.
TEST_F(FrmFirmsTest, NoMenuWithoutTheRightOrOnTheLeftButton) {
  host_.Rights()->Deny("CCatalogueDiscounts", Right::Allowed);
  auto firm = Open("O00001002");
  Grid(*firm).ClickList(static_cast<int>(Grid(*firm).Tabs().size()) - 1, 2);
  auto w = Open("O00001001");
  SelectRow(*w, "Firms", "more", Variant("more"));
  Grid(*w).ClickList(0, 1);  // no menu
  host_.Ui()->QueuePopupPick("");  // the user closes the menu
  Grid(*w).ClickList(0, 2);
  EXPECT_EQ(OnOff({&w->mnuToDesktop, &w->mnuFirmDelete}), "00");
}

// A menu entry arms the timer that opens its editor once; an unknown action
// only stops the timer.
TEST_F(FrmFirmsTest, MenuEntryArmsTheTimerThatOpensTheEditor) {
  for (const auto& [entry, editor] : {std::pair{"mnuFirmParametersNew", "NewDetail"},
                                      {"mnuFirmParametersEdit", "EditDetail"},
                                      {"mnuFirmInfoAdd", "NewInfo"},
                                      {"mnuFirmInfoEdit", "EditInfo"},
                                      {"", ""}}) {
    auto w = OpenOwn("O00001002");
    auto* item = w->mnuFirmParameters.Find(entry);
    if (!item) item = w->mnuFirmInfo.Find(entry);
    if (item) item->Click();
    if (!item) w->ModalAction = 7;
    if (!item) w->timerModal.SetEnabled(true);
    EXPECT_TRUE(w->timerModal.Enabled() && w->opened.empty());
    w->timerModal.Tick();
    EXPECT_FALSE(w->timerModal.Enabled());
    w->timerModal.Tick();
    EXPECT_EQ(Join(w->opened, "|"), editor);
  }
}

// Only a saved group accepts firms. A firm dropped on a group is listed there
// and moves, unless the group lists it already or is the firm's own
// descendant.
TEST_F(FrmFirmsTest, OnlyASavedGroupAcceptsFirmsAndListsAndMovesThem) {
  for (const auto& [window, text, effect] : {std::tuple{"O00001001", "O00001003", 1},
                                             {"O00001001", "O00003005", 0},
                                             {"O00001002", "O00001003", 0},
                                             {"O0000100", "O00001003", 0}}) {
    auto w = Open(window, window == std::string("O0000100") ? "2" : "0");
    EXPECT_EQ(Grid(*w).ListDragOver(std::make_shared<TextDragData>(text), 1), effect) << window;
  }
  for (const auto& [group, listed, dragged, parent, shown] :
       {std::tuple{"O00001004", "O00001003", "O00001003", Variant::Null(), "O00001003"},
        {"O00001004", "", "O00001001", Variant::Null(), ""},
        {"O00001001", "", "O00001003", Variant(1), "AB Vėjas"}}) {
    SCOPED_TRACE(std::string(group) + " " + dragged);
    auto w = Open(group);
    if (*listed) SelectRow(*w, "Firms", listed);
    Grid(*w).ListDragDrop(std::make_shared<TextDragData>(dragged));
    EXPECT_EQ(adapter_->GetOrvelObject(dragged)->Fields("ParentID").Value(), parent);
    ListItem* row = Grid(*w).TabList("Firms").ListItems().Find(dragged);
    EXPECT_EQ(row ? row->Text() : "", shown);
  }
}

// A new record, plain or a copy, keeps the group and flag; only a copy keeps
// the name. A new firm has no branch tab; the managers take its number.
TEST_F(FrmFirmsTest, NewRecordKeepsGroupAndFlagAndOnlyACopyTheName) {
  for (const bool copy : {false, true}) {
    HasBranches();
    auto w = Open("O00001002");
    ASSERT_EQ(w->BranchTab, 7);
    if (copy) host_.Ui()->QueuePopupPick("mnuNewWithCopy");
    copy ? w->SSCNew_MouseUp(2) : w->SSCNew.Click();
    auto& object = *w->OrvelObjectUIO();
    EXPECT_EQ(object.OIDR() + "|" + ConcatText(object.Fields("ParentID").Value()) + "|" +
                  ConcatText(object.Fields("GroupFlag").Value()),
              "|1|0");
    EXPECT_EQ(object.Fields("Name").Value(), copy ? Variant("UAB Šilas") : Variant());
    EXPECT_EQ(std::to_string(w->IsNew) + Buttons(*w) + " " + w->SOPanel.Caption() + " " +
                  std::to_string(w->BranchTab) + std::to_string(w->ServersTab),
              "1000 Nauja įmonė 07");
    EXPECT_EQ(Grid(*w).TabList("FirmServers").ColumnHeaders().Count(), 1);
    EXPECT_THAT(host_.Log().Lines(Channel::Window), Contains(StartsWith("Rekey O00001002")));
  }
}

// The new menu opens even while the button is off; deleting from the close
// button needs a stored record.
TEST_F(FrmFirmsTest, NewMenuAndDeleteFromCloseOnANewFirm) {
  auto w = Open("O00001003");
  host_.Ui()->QueueAnswer(vbOK);
  w->SSCClose_MouseUp(2);
  EXPECT_FALSE(BO("O0000100").Table().Contains(3));
  EXPECT_EQ(Boxes(), Lines{"49 Apskaita Ar tikrai norite panaikinti?\nAB Vėjas"});
  auto fresh = Open("O00001001", "1");
  fresh->SSCClose_MouseUp(2);  // asks nothing
  ASSERT_FALSE(fresh->SSCNew.Enabled());
  host_.Ui()->QueuePopupPick("");  // the user closes the menu
  fresh->SSCNew_MouseUp(2);
  EXPECT_EQ(host_.Ui()->Popups().back().menu, "mnuNew");
}

using FirmDebtTest = FrmFirmsTest;

struct DebtCase {
  const char* figures;      // "!" a failed read, "" an answer without a record
  const char* debt;         // lblDebt
  const char* credit = "";  // lblCredit; "" when left as it stood
  bool red = false;         // lblDebt's colour
  bool invariant = false;
};

// Each click reads under the hourglass and puts the pointer back; a failed or
// empty answer shows zero and no message, and leaves the credit line as it was.
TEST_F(FirmDebtTest, TextColourAndCreditLine) {
  for (const DebtCase& c : std::initializer_list<DebtCase>{
           {"Sum460=-50", "Skola: 0,00 Lt (avansas 50,00 Lt)"},
           {"Sum240=100;Sum450=-20", "Skola: 100,00 Lt ; Mūsų skola: 20,00 Lt "},
           {"Sum220=5", "Mūsų skola: 0,00 Lt (avansas 5,00 Lt)"},
           {"Sum240=80.1234567;Sum460=-10;Sum450=-1.25;Sum220=2",
            "Skola: 80,123457 Lt (avansas 10,00 Lt); Mūsų skola: 1,25 Lt (avansas 2,00 Lt)"},
           {"Sum240=~;Sum450=~", "Skola: 0,00 Lt "},
           {"!", "Skola: 0,00 Lt ", "Kredito apribojimai: Maksimali suma:0,00; Dienos:0"},
           {"", "Skola: 0,00 Lt ", "Kredito apribojimai: Maksimali suma:0,00; Dienos:0"},
           // 0 is a limit, not the absence of one.
           {"Sum240=10;Limit=0;LimitDays=30", "Skola: 10,00 Lt (Viršytas kredito apribojimas !,0)",
            "Kredito apribojimai: Maksimali suma:0,00; Dienos:30", true},
           {"Sum240=500;Limit=500;LimitDays=14", "Skola: 500,00 Lt ",
            "Kredito apribojimai: Maksimali suma:500,00; Dienos:14"},
           // The advance counts against the limit.
           {"Sum240=700;Sum460=-300;Limit=500", "Skola: 700,00 Lt (avansas 300,00 Lt)",
            "Kredito apribojimai: Maksimali suma:500,00; Dienos:0"},
           // The limit in its plain number text.
           {"Sum240=2000;Limit=1500.5",
            "Skola: 2000,00 Lt (Viršytas kredito apribojimas !,1500,5)",
            "Kredito apribojimai: Maksimali suma:1500,50; Dienos:0", true},
           {"Sum240=100;LimitTerm=0.5", "Skola: 100,00 Lt (,50Lt.  Viršytas kredito terminas ! )",
            "", true},
           {"Sum240=100;Limit=50;LimitTerm=20;LimitDays=10",
            "Skola: 100,00 Lt (Viršytas kredito apribojimas !,50)"
            "(20,00Lt.  Viršytas kredito terminas ! )",
            "Kredito apribojimai: Maksimali suma:50,00; Dienos:10", true},
           // A negative debt never passes the term.
           {"Sum240=-30;Limit=0;LimitTerm=10", "Skola: -30,00 Lt ",
            "Kredito apribojimai: Maksimali suma:0,00; Dienos:0"},
           {"Sum240=1234.5;Limit=1000.25;LimitTerm=0.5;LimitDays=7",
            "Skola: 1234.50 Lt (Viršytas kredito apribojimas !,1000.25)"
            "(.50Lt.  Viršytas kredito terminas ! )",
            "Kredito apribojimai: Maksimali suma:1000.25; Dienos:7", true, true}}) {
    SCOPED_TRACE(c.figures);
    BO("O0000100").ClearFailures();
    if (*c.figures == '!') BO("O0000100").FailCallsNamed("GetFirmDebt", 5, "Nepavyko");
    if (c.invariant) host_.Ui()->SetLocale(Locale::Invariant());
    const bool answered = *c.figures && *c.figures != '!';
    auto w = OpenWithDebt(answered ? c.figures : "");
    if (!answered) BO("O0000100").ReplyRead("GetFirmDebt", TextRecords("Sum240", ""));
    w->lblCredit.SetForeColor(vbBlue);
    const size_t before = host_.Ui()->MousePointers().size();
    w->lblDebt.Click();
    const auto& pointers = host_.Ui()->MousePointers();
    EXPECT_THAT(std::vector<int32_t>(pointers.begin() + before, pointers.end()),
                ElementsAre(vbHourglass, vbDefault));
    EXPECT_EQ(w->lblDebt.Caption() + "|" + w->lblCredit.Caption(),
              std::string(c.debt) + "|" + c.credit);
    EXPECT_EQ(w->lblDebt.ForeColor(), c.red ? vbRed : vbBlack);
    EXPECT_EQ(w->lblCredit.ForeColor(), answered ? vbBlack : vbBlue);
    EXPECT_EQ(BusinessLines(), Lines{"GetCall GetFirmDebt O00001002"});
    EXPECT_TRUE(host_.Ui()->Boxes().empty());
  }
}

// An unreadable sum is shown and the pointer comes back.
TEST_F(FirmDebtTest, AnUnreadableAnswer) {
  auto w = Open("O00001002");
  BO("O0000100").ReplyRead("GetFirmDebt", Record("Sum240=daug"));
  host_.Ui()->QueueAnswer(vbOK);
  w->lblDebt.Click();
  EXPECT_EQ(w->lblDebt.Caption(), "");
  EXPECT_THAT(Boxes(), ElementsAre(StartsWith("16 ")));
  EXPECT_EQ(host_.Ui()->GetMousePointer(), vbDefault);
}

// A session without an own firm, or with one that cannot be read, is not
// this firm's; the own firm shows our side without limits.
TEST_F(FirmDebtTest, TheOwnFirmShowsOurSideWithoutLimits) {
  for (auto own : {std::shared_ptr<MemoryRecordset>(), TextRecords("ID", "")}) {
    host_.Session()->SetOwnFirm(own);
    auto w = OpenWithDebt("Sum240=3");
    w->lblDebt.Click();
    EXPECT_EQ(w->lblDebt.Caption(), "Skola: 3,00 Lt ");
    EXPECT_EQ(BusinessLines(), Lines{"GetCall GetFirmDebt O00001002"});
  }
  host_.Session()->SetOwnFirm(TextRecords("OIDR", "O00001002"));
  auto w = OpenWithDebt("Sum240=100;Sum450=-7;Limit=0;LimitTerm=3", "GetOurDebt");
  w->lblCredit.SetCaption("ankstesnė");
  w->lblCredit.SetForeColor(vbBlue);
  w->lblDebt.Click();
  EXPECT_EQ(w->lblDebt.Caption() + "|" + w->lblCredit.Caption(),
            "Skola: 100,00 Lt ; Mūsų skola: 7,00 Lt |ankstesnė");
  EXPECT_EQ(w->lblDebt.ForeColor() + w->lblCredit.ForeColor(), vbBlack + vbBlue);
  EXPECT_EQ(BusinessLines(), Lines{"GetCall GetOurDebt O00001002"});
}

// Groups and new firms have an empty line and ask nothing. Missing limit
// fields keep their former values; once red, the line stays red.
TEST_F(FirmDebtTest, GroupsAskNothingAndMissingLimitsKeepTheirValues) {
  for (const char* key : {"0", "1"}) {
    auto w = Open("O00001001", key);
    ASSERT_EQ(w->lblDebt.Caption(), "Informacija...");
    w->lblDebt.Click();
    EXPECT_EQ(w->lblDebt.Caption(), "");
    EXPECT_TRUE(BusinessLines().empty());
  }
  auto w = OpenWithDebt("Sum240=100;Limit=50;LimitTerm=5.0");
  w->lblDebt.Click();
  ASSERT_EQ(w->lblDebt.ForeColor(), vbRed);
  BO("O0000100").ReplyRead("GetFirmDebt", Record("Sum240=60;Limit=~"));
  w->lblDebt.Click();
  EXPECT_EQ((std::vector<double>{w->Limit, w->LimitTerm, w->Debt}),
            (std::vector<double>{50, 5, 60}));
  EXPECT_EQ(w->lblDebt.Caption(),
            "Skola: 60,00 Lt (Viršytas kredito apribojimas !,50)"
            "(5,00Lt.  Viršytas kredito terminas ! )");
  BO("O0000100").ReplyRead("GetFirmDebt", Record("Sum240=5;Limit=10;LimitTerm=0"));
  w->lblDebt.Click();
  EXPECT_EQ(w->lblDebt.Caption(), "Skola: 5,00 Lt ");
  EXPECT_EQ(w->lblDebt.ForeColor(), vbRed);
}

const char* const kCheckCode = "GetCall CheckCode 'O00001002','302245871'";

// The object that showed a window; it fails to unload, being gone already.
class ShowHostSpy : public OrvelShowObject {
 public:
  void UnloadShowOrvelObject() override {
    ++unloads;
    throw std::runtime_error("already gone");
  }
  int unloads = 0;
};

// Firm 2 renamed "UAB Kitas", moved to group 4 and made inactive, then
// written. The rights CCatalogueCredits and CFirmsCH decide whether a firm
// used in documents is renamed and moved; only the CFirmsCode right and a Yes
// write a repeated code (a host answering Yes to an OK box still cannot); a
// failed call leaves the stored record, and the window keeps the edits unless
// the record was changed meanwhile (60000) and read again. The object that
// showed the window is told once and let go when the write is tried, whether
// it fails or not; an early stop keeps it. Each row: the rights taken away
// (C credits, R rename, K code, U the update right), the count of documents
// ("" an answer without a record; an unreadable one is shown and nothing is
// written), the call that fails and its number
// ("repeats" CheckCode finding the code), the answer to the one box, the
// stored "name|group|active", the window's name and Write, Cancel and New,
// and how many of the four calls were made.
TEST_F(FirmCardTest, WritingFollowsRightsAndFailures) {
  const auto firm = BO("O0000100").Table().ReadRecord(2);
  const std::map<char, std::pair<const char*, Right>> rights{
      {'C', {"CCatalogueCredits", Right::Allowed}}, {'R', {"CFirmsCH", Right::Allowed}},
      {'K', {"CFirmsCode", Right::Allowed}}, {'U', {"CFirms", Right::Update}}};
  const Lines calls{kCheckCode, "GetCall GetFirmIsUsedInDocuments O00001002",
                    "ExecArrayCall Orvel_SaveObject 'O0000100','O00001002'",
                    "GetCall Orvel_ReadObject 'O00001002'"};
  const char* const ask = "52 Apskaita Įmonės kodas kartojasi!\nĮrašyti informacija?";
  const char* const tell = "48 Apskaita Įmonės kodas kartojasi!";
  const char* const failed = "16 Apskaita Klaida!\n\nĮrašo negalima išsaugoti";
  const char* const unreadable = "16 Apskaita Klaida!\nNetinkamas tipas: CDbl negali paversti "
                                 "String 'daug'";
  const char* const kept = "UAB Šilas|1|";
  const char* const moved = "UAB Kitas|4|False";
  for (const auto& [denied, count, failing, number, answer, box, stored, shown, made] :
       {std::tuple{"CR", "3", "", 0, 0, "", "UAB Šilas|1|False", "UAB Šilas 001", 4},
        {"R", "1", "", 0, 0, "", "UAB Šilas|4|False", "UAB Šilas 001", 4},
        {"C", "1", "", 0, 0, "", moved, "UAB Kitas 001", 4},
        {"", "12.5", "", 0, 0, "", moved, "UAB Kitas 001", 4},
        {"CR", "0", "", 0, 0, "", moved, "UAB Kitas 001", 4},
        {"CR", "-1", "", 0, 0, "", moved, "UAB Kitas 001", 4},
        {"CR", "~", "", 0, 0, "", moved, "UAB Kitas 001", 4},
        {"CR", "#2", "", 0, 0, "", "UAB Šilas|1|False", "UAB Šilas 001", 4},
        {"CR", "", "", 0, 0, "", moved, "UAB Kitas 001", 4},
        {"", "daug", "", 0, vbOK, unreadable, kept, "UAB Kitas 110", 2},
        {"", "0", "repeats", 0, vbNo, ask, kept, "UAB Kitas 110", 1},
        {"K", "0", "repeats", 0, vbOK, tell, kept, "UAB Kitas 110", 1},
        {"K", "0", "repeats", 0, vbYes, tell, kept, "UAB Kitas 110", 1},
        {"", "0", "repeats", 0, vbYes, ask, moved, "UAB Kitas 001", 4},
        {"", "0", "CheckCode", 3, 0, "", kept, "UAB Kitas 110", 1},
        {"", "0", "GetFirmIsUsedInDocuments", 3, 0, "", kept, "UAB Kitas 111", 2},
        {"", "0", "Orvel_SaveObject", 5, vbOK, failed, kept, "UAB Kitas 111", 3},
        {"U", "0", "Orvel_SaveObject", 5, vbOK, failed, kept, "UAB Kitas 001", 3},
        {"", "0", "Orvel_SaveObject", 60000, vbOK, failed, kept, "UAB Šilas 001", 4}}) {
    SCOPED_TRACE(std::string(denied) + " " + count + " " + failing + " " + std::to_string(answer));
    host_.Rights()->GrantAll();
    for (const char* d = denied; *d; ++d) {
      host_.Rights()->Deny(rights.at(*d).first, rights.at(*d).second);
    }
    BO("O0000100").ClearFailures();
    BO("O0000100").ClearScripts();
    BO("O0000100").Table().Store(2, *firm);
    Reply("GetFirmIsUsedInDocuments", "Cnt", count);
    if (std::string(failing) == "repeats") CodeRepeats();
    auto spy = std::make_shared<ShowHostSpy>();
    auto w = Open("O00001002");
    w->ShowHost = spy;
    Grid(*w).EditField("Name", Variant("UAB Kitas"));
    Grid(*w).EditField("ParentID", Variant(4));
    Grid(*w).TypeIntoField("Active", Variant(false));  // committed by the click
    w->SSCNew.SetEnabled(false);
    if (number) BO("O0000100").FailCallsNamed(failing, number, "Įrašo negalima išsaugoti");
    if (answer) host_.Ui()->QueueAnswer(answer);
    w->cmdEnter_Click();
    EXPECT_EQ(Boxes(), *box ? Lines{box} : Lines{});
    EXPECT_EQ(ConcatText(Stored(2, "Name")) + "|" + ConcatText(Stored(2, "ParentID")) + "|" +
                  ConcatText(Stored(2, "Active")),
              stored);
    EXPECT_EQ(CStr(w->OrvelObjectUIO()->Fields("Name").Value()) + " " + Buttons(*w), shown);
    Lines lines = BusinessLines();  // a record read again reloads its lists after these
    lines.resize(std::min<size_t>(lines.size(), 4));
    EXPECT_EQ(lines, Lines(calls.begin(), calls.begin() + made));
    EXPECT_EQ(Join(host_.Log().Lines(Channel::Window), "|"),
              made == 4 && !number ? "ObjectSaved O00001002" : "");
    EXPECT_EQ(spy->unloads, made > 2 ? 1 : 0);
    EXPECT_EQ(w->ShowHost, made > 2 ? nullptr : spy);
  }
}

// The rule on a used firm also runs for a new firm: its group is its new
// value against the business layer's empty record, so without the rights a
// "used" count puts it back at the top.
TEST_F(FirmCardTest, TheUsedFirmRuleRunsForANewFirm) {
  host_.Rights()->Deny("CFirmsCH", Right::Allowed);
  host_.Rights()->Deny("CCatalogueCredits", Right::Allowed);
  Reply("GetFirmIsUsedInDocuments", "Cnt", "1");
  auto fresh = Open("O00001001", "1");
  Grid(*fresh).EditField("Name", Variant("UAB Naujas"));
  fresh->cmdEnter_Click();
  ASSERT_EQ(BO("O0000100").Table().Count(), 5u);
  EXPECT_TRUE(Stored(5, "ParentID").IsNull());
  EXPECT_EQ(Stored(5, "Name"), Variant());
  EXPECT_EQ(BusinessLines()[0], "GetCall GetFirmIsUsedInDocuments");
}

// Only a firm's non-blank code is checked (the call, "" when none is made),
// and it goes as typed.
TEST_F(FirmCardTest, OnlyAFirmsNonBlankCodeIsCheckedAndGoesAsTyped) {
  for (const auto& [name, oidr, code, check] :
       {std::tuple{"Blanks", "O00001002", Variant("   "), ""},
        {"Null", "O00001002", Variant::Null(), ""},
        {"GroupsAreNotChecked", "O00001001", Variant("302245871"), ""},
        {"BlanksKept", "O00001002", Variant(" 12 "), "GetCall CheckCode 'O00001002',' 12 '"},
        {"Number", "O00001003", Variant(144523896), "GetCall CheckCode 'O00001003','144523896'"}}) {
    SCOPED_TRACE(name);
    CodeRepeats();  // any check made would stop the write
    host_.Rights()->Deny("CFirmsCode", Right::Allowed);
    auto w = Open(oidr);
    Grid(*w).EditField("Code", code);
    if (*check) host_.Ui()->QueueAnswer(vbOK);  // the code repeats
    w->cmdEnter_Click();
    const auto lines = BusinessLines();
    ASSERT_FALSE(lines.empty());
    if (std::string(check).empty()) {
      EXPECT_EQ(lines[0].find("CheckCode"), std::string::npos) << lines[0];
      EXPECT_EQ(Stored(static_cast<int32_t>(oidr[8] - '0'), "Code"), code);
    } else {
      EXPECT_EQ(lines, Lines{check});
    }
  }
}

TEST_F(FirmCardTest, ANewFirmWrittenBecomesStoredAndTellsTheHost) {
  auto w = Open("O00001001", "1");
  Grid(*w).EditField("Name", Variant("UAB Naujas"));
  w->cmdEnter_Click();
  EXPECT_EQ(std::to_string(w->IsNew) + Buttons(*w) + " " + w->SOPanel.Caption(),
            "0001 Įmonės kortelė");
  EXPECT_EQ(host_.Log().Lines(Channel::Window), Lines{"ObjectSaved O00001005"});
  EXPECT_EQ(Stored(5, "ParentID"), Variant(1));
  EXPECT_EQ(BusinessLines(), (Lines{"GetCall GetFirmIsUsedInDocuments",
                                    "ExecArrayCall Orvel_SaveObject 'O0000100',''",
                                    "GetCall Orvel_ReadObject 'O00001005'"}));
}

// Cancel of a new firm keeps it in its group, or at the top with no group; a
// stored record that vanished meanwhile closes its window.
TEST_F(FirmCardTest, CancelKeepsANewFirmInItsGroupAndClosesOnAVanishedRecord) {
  auto w = Open("O00001001", "1");
  Grid(*w).EditField("Name", Variant("UAB Naujas"));
  w->cmdCancel.Click();
  auto& object = *w->OrvelObjectUIO();
  EXPECT_EQ(object.Fields("ParentID").Value(), Variant(1));
  EXPECT_EQ(object.Fields("Name").Value(), Variant());
  EXPECT_FALSE(w->cmdEnter.Enabled());
  auto top = Open("O00001003");
  top->SSCNew_Click();
  top->OrvelObjectUIO()->Fields("ParentID").SetValue(Variant(4));
  top->cmdCancel_Click();
  EXPECT_TRUE(top->OrvelObjectUIO()->Fields("ParentID").Value().IsNull());
  w = Open("O00001002");
  Grid(*w).EditField("Name", Variant("UAB Kitas"));
  BO("O0000100").FailCallsNamed("Orvel_ReadObject", 3021, "Įrašas nerastas");
  host_.Ui()->QueueAnswer(vbOK);
  w->cmdCancel_Click();
  EXPECT_EQ(Boxes(), Lines{"48 Apskaita Įrašas nerastas"});
  EXPECT_EQ(host_.Log().Lines(Channel::Window), Lines{"RemoveWindow O00001002 True"});
}

}  // namespace
}  // namespace orvel
