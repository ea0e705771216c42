#include <gtest/gtest.h>

#include "adapters/UI0000200.h"
#include "goods/GoodsDialogs.h"
#include "goods/GoodsSettings.h"
#include "goods/frmGoods.h"
#include "host/Convert.h"
#include "host/MemoryRecordset.h"
#include "host/Text.h"
#include "hostkit/TextDragData.h"
#include "orvel/OrvelObjectUIO.h"
#include "support/CardTest.h"
#include "support/Controls.h"
#include "support/TextRecords.h"
#include "testhost/TestGroupSelect.h"
#include "testhost/TestRights.h"

namespace orvel {
namespace {

using Right = TestRights::Right;

// The words of a text by blanks.
std::vector<std::string> Words(const char* text) {
  return *text ? Split(text, " ") : std::vector<std::string>{};
}

// A window that notes which list loaders and row editors run.
class RecordingGoods : public frmGoods {
 public:
  void LoadGroupGoods() override { ran.push_back("LoadGroupGoods"); }
  void LoadTraffic(bool reload) override { ran.push_back(reload ? "Traffic+" : "Traffic"); }
  void LoadRests() override { ran.push_back("LoadRests"); }
  void LoadMeasures() override { ran.push_back("LoadMeasures"); }
  void LoadPrices() override { ran.push_back("LoadPrices"); }
  void LoadSerials(bool reload) override { ran.push_back(reload ? "Serials+" : "Serials"); }
  void LoadTemplates() override { ran.push_back("LoadTemplates"); }
  void LoadDiscounts() override { ran.push_back("LoadDiscounts"); }
  void PrintTraffic() override { ran.push_back("PrintTraffic"); }
  void EditRow() override { ran.push_back("EditRow " + MenuAction); }
  void EditDiscount() override { ran.push_back("EditDiscount " + MenuAction); }
  std::vector<std::string> ran;
};

class HistoryDialogs : public GoodsDialogs {
 public:
  void ShowGoodsHistory(const std::shared_ptr<OrvelObjectUIO>& good, int32_t id) override {
    shown.push_back(good->OIDR() + " " + std::to_string(id));
  }
  std::vector<std::string> shown;
};

// Group 1 (code path "001", VAT 21) holds good 2 (with rests) and subgroup 3
// ("001002"), which holds good 5; good 4 (serial numbers, no rests) stands at
// the top.
class FrmGoodsTest : public CardTest<frmGoods> {
 protected:
  FrmGoodsTest() : CardTest("O0000200") {}

  void SetUp() override {
    CardTest::SetUp();
    ResetVatFactor();
    auto& table = BO("O0000200").Table();
    table.SetFields({"ID", "Name", "Code", "ParentID", "GroupFlag", "Active", "WithRest",
                     "WithItems", "OwnCode", "PreviewPath", "VAT", "PriceWithVAT",
                     "AmountPrecision", "MeasureID"});
    for (const char* field :
         {"ParentID", "VAT", "PriceWithVAT", "AmountPrecision", "MeasureID", "WithItems"}) {
      table.SetDefault(field, Variant::Null());
    }
    table.SetDefault("GroupFlag", Variant(0));
    table.Seed(SeedRows("Name GroupFlag ParentID WithRest WithItems OwnCode PreviewPath VAT",
                        {"Maistas|1||||#001|Prekės\\|21", "Duona||1|true", "Pieno|1|1|||#001002",
                         "Paslauga|||false|true", "Sūris||3"}));
    host_.Session()->SetSettingObject("O00018021",
                                      TextRecords("StructuredCode PriceWithVAT", "false|true"));
    MakeAdapter();
  }

  void TearDown() override {
    InstallGoodsDialogs(nullptr);
    ResetVatFactor();
    ModuleTest::TearDown();
  }

  std::shared_ptr<RecordingGoods> OpenOwn(const std::string& oidr) {
    auto window = std::make_shared<RecordingGoods>();
    window->SetOrvelObjectUIO(adapter_->GetOrvelObject(oidr));
    host_.WindowManager()->ShowWindow(window);
    host_.Log().Clear();
    return window;
  }

  const ScriptedUi::Popup& LastPopup() { return host_.Ui()->Popups().back(); }
};

// The menu key builds the window; the rights denied and the tab keys by blanks, then the
// prices, rests, discounts and templates tab numbers.
struct TabCase {
  const char *name, *oidr, *key, *denied, *tabs, *numbers;
};

TEST_F(FrmGoodsTest, TabsFollowKindFlagsAndRights) {
  for (const TabCase& c : std::initializer_list<TabCase>{
           {"GoodWithRests", "O00002002", "0", "",
            "Traffic Measures PRICES Rests MinAmount Discounts BRTemplates", "3 4 6 7"},
           // Without the price right the rests move up to where prices stood.
           {"NoPriceRight", "O00002002", "0", "CGoodsPT",
            "Traffic Measures Rests MinAmount Discounts BRTemplates", "0 3 5 6"},
           {"NoMinimumRight", "O00002002", "0", "CGoodsMIN CGoodsBR",
            "Traffic Measures PRICES Rests Discounts", "3 4 5 0"},
           {"SerialsWithoutRests", "O00002004", "0", "",
            "Traffic Measures PRICES SN Discounts BRTemplates", "3 0 5 6"},
           {"Group", "O00002001", "0", "", "Goods Discounts BRTemplates", "0 0 2 3"},
           {"GroupWithoutTemplates", "O00002001", "0", "CGoodsBR", "Goods Discounts", "0 0 2 0"},
           // A new good keeps rests on saving, but gets its rest tabs only then.
           {"NewGood", "O00002001", "1", "", "Traffic Measures PRICES Discounts BRTemplates",
            "3 0 4 5"},
           {"NewSubgroup", "O00002001", "3", "", "Goods Discounts BRTemplates", "0 0 2 3"}}) {
    SCOPED_TRACE(c.name);
    host_.Rights()->GrantAll();
    for (const auto& key : Words(c.denied)) host_.Rights()->Deny(key, Right::Allowed);
    auto w = Open(c.oidr, c.key, "CGroup");
    ASSERT_TRUE(w);
    EXPECT_EQ(TabKeys(*w), Words(c.tabs));
    std::vector<std::string> numbers;
    for (int tab : {w->PricesTab, w->RestsTab, w->DiscountsTab, w->TemplatesTab}) {
      numbers.push_back(std::to_string(tab));
    }
    EXPECT_EQ(Join(numbers, " "), c.numbers);
    for (int i = 1; i <= static_cast<int>(Grid(*w).Tabs().size()); ++i) {
      EXPECT_EQ(&w->List(i), &Grid(*w).Tabs()[i - 1].list) << i;
    }
    EXPECT_FALSE(w->HasList(0));
  }
  // A rebuild replaces the tabs instead of adding them.
  auto w = Open("O00002002");
  w->cmdCancel.SetEnabled(true);
  w->cmdCancel.Click();
  EXPECT_EQ(TabKeys(*w), Words("Traffic Measures PRICES Rests MinAmount Discounts BRTemplates"));
  EXPECT_EQ(w->RestsTab, 4);
}

// Setting the record builds the window at once; its load builds it again.
TEST_F(FrmGoodsTest, ListsLoadByKindWhenTheRecordIsSetAndAgainAtLoad) {
  const std::vector<std::string> goodLists{"Traffic", "LoadRests",     "LoadMeasures", "LoadPrices",
                                           "Serials", "LoadTemplates", "LoadDiscounts"};
  auto good = std::make_shared<RecordingGoods>();
  good->SetOrvelObjectUIO(adapter_->GetOrvelObject("O00002002"));
  EXPECT_EQ(good->ran, goodLists);
  EXPECT_EQ(good->SOPanel.Caption(), "Prekės kortelė");
  good->ran.clear();
  host_.WindowManager()->ShowWindow(good);
  EXPECT_EQ(good->ran, goodLists);
  auto group = std::make_shared<RecordingGoods>();
  group->SetOrvelObjectUIO(adapter_->GetOrvelObject("O00002001"));
  EXPECT_EQ(group->ran,
            (std::vector<std::string>{"LoadGroupGoods", "LoadTemplates", "LoadDiscounts"}));
}

TEST_F(FrmGoodsTest, ANewRecordShowsItsProposedCode) {
  host_.Session()->SetSettingObject("O00018021",
                                    TextRecords("StructuredCode PriceWithVAT", "true|false"));
  BO("O0000200").ReplyRead("GetStructuredCode", TextRecords("PARENTCODE MAXCODE", "#12|#1207"));
  auto w = Open("O00002001", "1", "CGroup");
  ASSERT_TRUE(w);
  EXPECT_EQ(w->OrvelObjectUIO()->Fields("Code").Value(), Variant("1208"));
  // Proposed when the record is set and again when the window loads.
  EXPECT_EQ(Grid(*w).RefreshedFields(), (std::vector<std::string>{"Code", "Code"}));
  // The last step of the start-up turns the buttons off again.
  EXPECT_FALSE(w->cmdEnter.Enabled());
}

// A new good in a group inherits the group's VAT and price basis and is
// primed; a new group at the root takes neither; a stored record is not given
// a code. The state: "heading|IsNew IsRoot WithRest|ParentID|RecordKey|group
// line|" New, Write and Cancel on, then VAT, PriceWithVAT, AmountPrecision
// and MeasureID.
TEST_F(FrmGoodsTest, ANewRecordInheritsAndIsPrimedAStoredOneIsNot) {
  for (const auto& [oidr, key, otype, state] :
       {std::tuple{"O00002001", "1", "CGroup",
                   "Nauja prekė|100|1|O0000200|Prekės\\Maistas|000|21 True 2 1"},
        {"O0000200", "2", "", "Nauja prekių grupė|110|0|O0000200||000|  2 1"},
        {"O00002002", "0", "", "Prekės kortelė|001|1|O00002002|Prekės\\Maistas|100|   "}}) {
    SCOPED_TRACE(oidr);
    auto w = Open(oidr, key, otype);
    ASSERT_TRUE(w);
    auto& object = *w->OrvelObjectUIO();
    std::vector<std::string> fields;
    for (const char* field : {"VAT", "PriceWithVAT", "AmountPrecision", "MeasureID"}) {
      fields.push_back(ConcatText(object.Fields(field).Value()));
    }
    EXPECT_EQ(w->SOPanel.Caption() + "|" + std::to_string(w->IsNew) + std::to_string(w->IsRoot) +
                  std::to_string(w->WithRest) + "|" + std::to_string(w->ParentID) + "|" +
                  w->RecordKey + "|" + w->txtGroup.Text() + "|" +
                  OnOff({&w->SSCNew, &w->cmdEnter, &w->cmdCancel}) + "|" + Join(fields, " "),
              state);
    if (*key == '0') {
      EXPECT_TRUE(Grid(*w).RefreshedFields().empty());
    }
  }
}

TEST_F(FrmGoodsTest, AChangeWakesTheButtonsOnlyWithTheRightToWrite) {
  auto w = Open("O00002002");
  Grid(*w).EditField("Name", Variant("Juoda duona"));
  EXPECT_EQ(OnOff({&w->cmdEnter, &w->cmdCancel}), "11");
  host_.Rights()->Deny("CGoods", Right::Update);
  auto other = Open("O00002004");
  Grid(*other).EditField("Name", Variant("Kita"));
  EXPECT_FALSE(other->cmdEnter.Enabled());
}

// The row selected ("" none) by key, tag and icon; the menu entries shown, by blanks.
struct PopupCase {
  const char *name, *oidr, *tab, *rowKey, *rowTag, *rowIcon, *shown;
};

TEST_F(FrmGoodsTest, ShowsTheEntriesOfTheTabAndRow) {
  for (const PopupCase& c : std::initializer_list<PopupCase>{
           {"TrafficSaleRow", "O00002002", "Traffic", "15_3", "O00120015", "SALE",
            "mnuToDesktop mnuHistory mnuByPurch mnuPreview mnuPrint mmuBlank mnuRefresh"},
           // Without rests a sale row has no history.
           {"TrafficSaleRowWithoutRests", "O00002004", "Traffic", "15_3", "O00120015", "SALE",
            "mnuToDesktop mnuByPurch mnuPreview mnuPrint mmuBlank mnuRefresh"},
           {"TrafficMoreRow", "O00002002", "Traffic", "more", "", "",
            "mnuByPurch mnuPreview mmuBlank mnuRefresh"},
           {"TrafficRowWithoutTag", "O00002002", "Traffic", "17_1", "", "SALE",
            "mnuHistory mnuByPurch mnuPreview mmuBlank mnuRefresh"},
           {"RestsRow", "O00002002", "Rests", "O000160512", "O000160512", "",
            "mnuToDesktop mmuBlank mnuRefresh"},
           {"RestsSummaryRow", "O00002002", "Rests", "O0000000", "", "", "mmuBlank mnuRefresh"},
           {"SerialRow", "O00002004", "SN", "AB123", "", "",
            "mnuToDesktop mnuPreview mmuBlank mnuRefresh"},
           {"GroupGoodsRow", "O00002001", "Goods", "O00002002", "O00002002", "",
            "mnuToDesktop mmuBlank mnuRefresh"},
           {"GroupGoodsMoreRow", "O00002001", "Goods", "more", "", "", "mmuBlank mnuRefresh"}}) {
    SCOPED_TRACE(c.name);
    host_.Rights()->GrantAll();
    const size_t shown = host_.Ui()->Popups().size();
    auto w = Open(c.oidr);
    ASSERT_TRUE(w);
    if (*c.rowKey) SelectRow(*w, c.tab, c.rowKey, Variant(c.rowTag), c.rowIcon);
    host_.Ui()->QueuePopupPick("");  // the user closes the menu
    Grid(*w).ClickList(TabIndex(*w, c.tab), vbRightButton);
    ASSERT_EQ(host_.Ui()->Popups().size(), shown + 1);
      EXPECT_EQ(LastPopup().menu, "mnuPopUp");
    EXPECT_EQ(LastPopup().shown, Words(c.shown));
  }
}

// Nor on the discounts without their right.
TEST_F(FrmGoodsTest, NoPopupOnANewRecordOrWithTheLeftButton) {
  auto fresh = Open("O00002001", "1", "CGroup");
  Grid(*fresh).ClickList(0, vbRightButton);
  auto stored = Open("O00002002");
  Grid(*stored).ClickList(0, 1);
  host_.Rights()->Deny("CCatalogueDiscounts", Right::Allowed);
  Grid(*stored).ClickList(TabIndex(*stored, "Discounts"), vbRightButton);
  EXPECT_TRUE(host_.Ui()->Popups().empty());
}

// New, Edit and Delete, 1 when enabled.
struct MainMenuCase {
  const char* name;
  const char* tab;
  bool selected;
  Variant tag;
  bool canDelete;
  const char* entries;
};

TEST_F(FrmGoodsTest, EnablesTheRowEntriesByTabRowAndRight) {
  for (const MainMenuCase& c : std::initializer_list<MainMenuCase>{
           {"MeasureRow", "Measures", true, Variant(), true, "111"},
           {"NoPriceRow", "PRICES", false, Variant(), true, "100"},
           // The template entries never make a new row; inherited rows (no tag)
           // cannot be deleted here.
           {"OwnTemplate", "BRTemplates", true, Variant("O00008003"), true, "011"},
           {"InheritedTemplate", "BRTemplates", true, Variant::Null(), true, "010"},
           {"TemplateWithoutDeleteRight", "BRTemplates", true, Variant("O00008003"), false, "010"},
           {"DiscountWithoutRow", "Discounts", false, Variant(), true, "101"}}) {
    SCOPED_TRACE(c.name);
    host_.Rights()->GrantAll();
    const size_t shown = host_.Ui()->Popups().size();
    if (!c.canDelete) host_.Rights()->Deny("CGoods", Right::Delete);
    auto w = Open("O00002002");
    if (c.selected) SelectRow(*w, c.tab, "O00004002", c.tag);
    host_.Ui()->QueuePopupPick("");  // the user closes the menu
    Grid(*w).ClickList(TabIndex(*w, c.tab), vbRightButton);
    ASSERT_EQ(host_.Ui()->Popups().size(), shown + 1);
    EXPECT_EQ(LastPopup().menu, "mnuMain");
    EXPECT_EQ(OnOff({&w->mnuNew, &w->mnuEdit, &w->mnuDelete}), c.entries);
  }
}

TEST_F(FrmGoodsTest, NewAndEditPicksReachTheEditors) {
  auto w = OpenOwn("O00002002");
  w->ran.clear();
  SelectRow(*w, "Measures", "O00004002");
  host_.Ui()->QueuePopupPick("mnuNew");
  Grid(*w).ClickList(TabIndex(*w, "Measures"), vbRightButton);
  SelectRow(*w, "Discounts", "O10006001", Variant("O10006001"));
  host_.Ui()->QueuePopupPick("mnuEdit");
  Grid(*w).ClickList(TabIndex(*w, "Discounts"), vbRightButton);
  // A menu closed without a pick opens nothing.
  host_.Ui()->QueuePopupPick("");
  Grid(*w).ClickList(TabIndex(*w, "PRICES"), vbRightButton);
  EXPECT_EQ(w->ran, (std::vector<std::string>{"EditRow 100", "EditDiscount 101"}));
  EXPECT_EQ(w->MenuAction, "");
}

struct DoubleClickCase {
  const char *name, *oidr, *tab, *rowKey;
  std::vector<std::string> ran;
};

TEST_F(FrmGoodsTest, OpensOrLoadsByTabAndRow) {
  for (const DoubleClickCase& c : std::initializer_list<DoubleClickCase>{
           {"TrafficMore", "O00002002", "Traffic", "more", {"Traffic+"}},
           {"RestsMore", "O00002002", "Rests", "more", {"LoadRests"}},
           {"MeasureRow", "O00002002", "Measures", "O00004002", {"EditRow 101"}},
           {"DiscountRow", "O00002002", "Discounts", "O10006001", {"EditDiscount 101"}},
           {"SerialRow", "O00002004", "SN", "AB123", {}},
           {"GroupTemplates", "O00002001", "BRTemplates", "", {"EditRow 101"}},
           {"GroupDiscounts", "O00002001", "Discounts", "", {"EditDiscount 101"}},
           {"GroupGoods", "O00002001", "Goods", "O00002002", {}}}) {
    SCOPED_TRACE(c.name);
    auto w = OpenOwn(c.oidr);
    w->ran.clear();
    if (*c.rowKey) SelectRow(*w, c.tab, c.rowKey);
    Grid(*w).DoubleClickList(TabIndex(*w, c.tab));
    EXPECT_EQ(w->ran, c.ran);
  }
}

TEST_F(FrmGoodsTest, HistoryOpensFromTheTimerAfterTheMenu) {
  auto dialogs = std::make_shared<HistoryDialogs>();
  InstallGoodsDialogs(dialogs);
  auto w = Open("O00002002");
  SelectRow(*w, "Traffic", "15_3", Variant("O00120015"), "SALE");
  host_.Ui()->QueuePopupPick("mnuHistory");
  Grid(*w).ClickList(TabIndex(*w, "Traffic"), vbRightButton);
  EXPECT_TRUE(dialogs->shown.empty() && w->timerModal.Enabled());
  w->timerModal.Tick();
  EXPECT_FALSE(w->timerModal.Enabled());
  w->timerModal.Tick();
  EXPECT_EQ(dialogs->shown, std::vector<std::string>{"O00002002 15"});
}

TEST_F(FrmGoodsTest, DeleteAsksThenDeletesTheRowsObjectAndReloads) {
  auto& measures = BO("O0000400").Table();
  measures.SetFields({"ID", "Name"});
  measures.Seed(SeedRows("Name", {"vnt.", "kg"}));
  auto w = OpenOwn("O00002002");
  w->ran.clear();
  SelectRow(*w, "Measures", "O00004002");
  w->CurrentTab = w->MeasuresTab;
  host_.Ui()->QueueAnswer(vbNo);
  w->mnuDelete.Click();
  EXPECT_TRUE(measures.Contains(2));
  host_.Ui()->QueueAnswer(vbYes);
  w->mnuDelete.Click();
  EXPECT_FALSE(measures.Contains(2));
  EXPECT_EQ(w->ran, std::vector<std::string>{"LoadMeasures"});
  EXPECT_EQ(Boxes(), std::vector<std::string>(2, "52 Apskaita Panaikinti?"));
  // An inherited template row is not deleted, even on a yes.
  Clear();
  SelectRow(*w, "BRTemplates", "O00008003", Variant::Null());
  w->CurrentTab = w->TemplatesTab;
  host_.Ui()->QueueAnswer(vbYes);
  w->mnuDelete.Click();
  EXPECT_EQ(w->ran.size(), 1u);
  EXPECT_TRUE(BusinessLines().empty());
}

// The effect after the drag over; whether the dragged record is now under the target.
struct DropCase {
  const char *name, *target, *dragged;
  int effect;
  bool moved;
};

TEST_F(FrmGoodsTest, TakesOnlyWhatMayMoveIntoTheGroup) {
  for (const DropCase& c : std::initializer_list<DropCase>{
           {"GoodFromAnotherGroup", "O00002001", "O00002005", 1, true},
           {"GroupIntoAnotherGroup", "O00002003", "O00002002", 1, true},
           // Group 1 would go into its own branch.
           {"GroupIntoItsOwnBranch", "O00002003", "O00002001", 1, false},
           // A record at the top cannot be dragged.
           {"TopLevelGood", "O00002001", "O00002004", 1, false},
           {"OntoAGood", "O00002002", "O00002005", 0, false},
           {"AnotherType", "O00002001", "O00001002", 0, false}}) {
    SCOPED_TRACE(c.name);
    auto w = Open(c.target);
    auto data = std::make_shared<TextDragData>(c.dragged);
    EXPECT_EQ(Grid(*w).ListDragOver(data, 1), c.effect);
    Grid(*w).ListDragDrop(data);
    auto& table = BO("O0000200").Table();
    auto target = *table.IdOf(c.target);
    auto dragged = table.IdOf(c.dragged);
    const bool under = dragged && table.Value(*dragged, "ParentID") == Variant(target);
    EXPECT_EQ(under, c.moved);
    if (c.moved) {
      EXPECT_NE(Grid(*w).TabList("Goods").ListItems().Find(c.dragged), nullptr);
    }
  }
}

TEST_F(FrmGoodsTest, ARightClickOnCloseDeletesTheRecordAndTheWindow) {
  auto w = Open("O00002004");
  for (const auto& [answer, kept] : {std::pair{vbCancel, true}, {vbOK, false}}) {
    host_.Ui()->QueueAnswer(answer);
    w->SSCClose.MouseUp(1);
    w->SSCClose.MouseUp(vbRightButton);
    EXPECT_EQ(BO("O0000200").Table().Contains(4), kept);
  }
  EXPECT_FALSE(host_.WindowManager()->IsOpen("O00002004"));
  EXPECT_EQ(Boxes(),
            std::vector<std::string>(2, "49 Apskaita Ar tikrai norite panaikinti?\nPaslauga"));
}

TEST_F(FrmGoodsTest, TheParentGroupPickerMovesTheRecord) {
  auto w = Open("O00002002");
  host_.HostClasses()->QueueGroupSelect("O0000200O00002003", "Pieno", "CGroup");
  w->cmdParentGroup.Click();
  auto picker = host_.HostClasses()->LastGroupSelect();
  EXPECT_EQ(picker->OType() + "|" + picker->RootOType() + "|" + picker->SelectKind() + "|" +
                picker->Caption() + "|" + picker->ExcludeTypes(),
            "O0000200|O0000200|Group GroupNA Root|Pažymėkite norimą grupę|"
            "'C','FirmNA','Service','ServiceNA','GEXIST'");
  EXPECT_EQ(w->OrvelObjectUIO()->Fields("ParentID").Value(), Variant(3));
  EXPECT_EQ(std::to_string(w->ParentID) + " " + w->txtGroup.Text(), "3 Pieno");
  EXPECT_TRUE(w->cmdEnter.Enabled());

  host_.HostClasses()->QueueGroupSelect("O0000200", "Prekės", "Root");
  w->cmdParentGroup.Click();
  EXPECT_EQ(w->OrvelObjectUIO()->Fields("ParentID").Value(), Variant(0));
  EXPECT_EQ(w->txtGroup.Text(), "");
}

TEST_F(FrmGoodsTest, TheVatRateIsReadOnceForAllWindows) {
  BO("O0000200").ReplyRead("GetVatFactor", OrvelBoResult(5, "nėra"));
  auto good = adapter_->GetOrvelObject("O00002002");
  auto other = adapter_->GetOrvelObject("O00002004");
  host_.Log().Clear();
  EXPECT_EQ(EnsureVatFactor(*good), 0);  // a failure leaves it unknown
  BO("O0000200").ReplyRead("GetVatFactor", TextRecords("Value", "21"));
  EXPECT_EQ(EnsureVatFactor(*good), 21);
  EXPECT_EQ(EnsureVatFactor(*other), 21);
  EXPECT_EQ(VatFactor(), 21);
  EXPECT_EQ(BusinessLines(), (std::vector<std::string>{"GetCall GetVatFactor O00002002",
                                                       "GetCall GetVatFactor O00002002"}));
}

}  // namespace
}  // namespace orvel
