#include <gtest/gtest.h>

#include "goods/GoodsCardFixture.h"
#include "host/Text.h"
#include "hostkit/TextDragData.h"
#include "support/Controls.h"
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

// The card's catalogue laid out as a tree: group 1 (code path "001", VAT 21) holds good 2 (with
// rests) and subgroup 3 ("001002"), which holds good 5; good 4 (serial numbers, no rests) stands
// at the top. Prices are kept with VAT.
class FrmGoodsTest : public GoodsCardTest {
 protected:
  void SetUp() override {
    GoodsCardTest::SetUp();
    auto& table = BO("O0000200").Table();
    table.Clear();
    table.Seed(SeedRows("Name GroupFlag ParentID WithRest WithItems OwnCode PreviewPath VAT",
                        {"Maistas|1||||#001|Prekės\\|21", "Duona||1|true", "Pieno|1|1|||#001002",
                         "Paslauga|||false|true", "Sūris||3"}));
    StructuredCodes("false");
  }

  void StructuredCodes(const std::string& on) {
    host_.Session()->SetSettingObject("O00018021",
                                      TextRecords("StructuredCode PriceWithVAT", {on + "|true"}));
  }

  std::shared_ptr<RecordingGoods> OpenOwn(const std::string& oidr) {
    auto window = std::make_shared<RecordingGoods>();
    window->SetOrvelObjectUIO(adapter_->GetOrvelObject(oidr));
    host_.WindowManager()->ShowWindow(window);
    host_.Log().Clear();
    window->ran.clear();
    return window;
  }

  const ScriptedUi::Popup& LastPopup() { return host_.Ui()->Popups().back(); }
};

// The menu key builds the window; the rights denied and the tab keys by blanks, then the
// prices, rests, discounts and templates tab numbers, a digit each.
struct TabCase {
  const char *name, *oidr, *key, *denied, *tabs, *numbers;
};

TEST_F(FrmGoodsTest, TabsFollowKindFlagsAndRights) {
  for (const TabCase& c : std::initializer_list<TabCase>{
           {"GoodWithRests", "O00002002", "0", "",
            "Traffic Measures PRICES Rests MinAmount Discounts BRTemplates", "3467"},
           // Without the price right the rests move up to where prices stood.
           {"NoPriceRight", "O00002002", "0", "CGoodsPT",
            "Traffic Measures Rests MinAmount Discounts BRTemplates", "0356"},
           {"NoMinimumRight", "O00002002", "0", "CGoodsMIN CGoodsBR",
            "Traffic Measures PRICES Rests Discounts", "3450"},
           {"SerialsWithoutRests", "O00002004", "0", "",
            "Traffic Measures PRICES SN Discounts BRTemplates", "3056"},
           {"Group", "O00002001", "0", "", "Goods Discounts BRTemplates", "0023"},
           {"GroupWithoutTemplates", "O00002001", "0", "CGoodsBR", "Goods Discounts", "0020"},
           // A new good keeps rests on saving, but gets its rest tabs only then.
           {"NewGood", "O00002001", "1", "", "Traffic Measures PRICES Discounts BRTemplates",
            "3045"},
           {"NewSubgroup", "O00002001", "3", "", "Goods Discounts BRTemplates", "0023"}}) {
    SCOPED_TRACE(c.name);
    host_.Rights()->GrantAll();
    for (const auto& key : Words(c.denied)) host_.Rights()->Deny(key, Right::Allowed);
    auto w = Open(c.oidr, c.key, "CGroup");
    ASSERT_TRUE(w);
    EXPECT_EQ(TabKeys(*w), Words(c.tabs));
    std::string numbers;
    for (int tab : {w->PricesTab, w->RestsTab, w->DiscountsTab, w->TemplatesTab}) {
      numbers += std::to_string(tab);
    }
    EXPECT_EQ(numbers, c.numbers);
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
  const auto goodLists = Words("Traffic LoadRests LoadMeasures LoadPrices Serials LoadTemplates "
                               "LoadDiscounts");
  auto good = std::make_shared<RecordingGoods>();
  good->SetOrvelObjectUIO(adapter_->GetOrvelObject("O00002002"));
  EXPECT_EQ(good->ran, goodLists);
  EXPECT_EQ(good->SOPanel.Caption(), "Prekės kortelė");
  good->ran.clear();
  host_.WindowManager()->ShowWindow(good);
  EXPECT_EQ(good->ran, goodLists);
  auto group = std::make_shared<RecordingGoods>();
  group->SetOrvelObjectUIO(adapter_->GetOrvelObject("O00002001"));
  EXPECT_EQ(group->ran, Words("LoadGroupGoods LoadTemplates LoadDiscounts"));
}

// A new good in a group inherits the group's VAT and price basis and is
// primed; a new group at the root takes neither; a stored record is not given
// a code. The state: "heading|IsNew IsRoot WithRest|ParentID|RecordKey|group
// line|" New, Write and Cancel on (the start-up's last step turns them off),
// then VAT, PriceWithVAT, AmountPrecision, MeasureID and Code, and the fields
// refreshed (the code is proposed when the record is set and again at load).
TEST_F(FrmGoodsTest, ANewRecordInheritsAndIsPrimedAStoredOneIsNot) {
  StructuredCodes("true");
  BO("O0000200").ReplyRead("GetStructuredCode", TextRecords("PARENTCODE MAXCODE", "#12|#1207"));
  for (const auto& [oidr, key, otype, state] :
       {std::tuple{"O00002001", "1", "CGroup",
                   "Nauja prekė|100|1|O0000200|Prekės\\Maistas|000|21 True 2 1 1208|Code Code"},
        {"O0000200", "2", "", "Nauja prekių grupė|110|0|O0000200||000|  2 1 1208|Code Code"},
        {"O00002002", "0", "", "Prekės kortelė|001|1|O00002002|Prekės\\Maistas|100|    |"}}) {
    SCOPED_TRACE(oidr);
    auto w = Open(oidr, key, otype);
    ASSERT_TRUE(w);
    auto& object = *w->OrvelObjectUIO();
    std::vector<std::string> fields;
    for (const char* field : {"VAT", "PriceWithVAT", "AmountPrecision", "MeasureID", "Code"}) {
      fields.push_back(ConcatText(object.Fields(field).Value()));
    }
    EXPECT_EQ(w->SOPanel.Caption() + "|" + std::to_string(w->IsNew) + std::to_string(w->IsRoot) +
                  std::to_string(w->WithRest) + "|" + std::to_string(w->ParentID) + "|" +
                  w->RecordKey + "|" + w->txtGroup.Text() + "|" +
                  OnOff({&w->SSCNew, &w->cmdEnter, &w->cmdCancel}) + "|" + Join(fields, " ") +
                  "|" + Join(Grid(*w).RefreshedFields(), " "),
              state);
  }
}

// The row selected ("" none) by key, tag and icon, and whether deleting is allowed; the menu
// shown: the pop-up with its entries by blanks, or the main one with New, Edit and Delete, 1 when
// enabled.
struct MenuCase {
  const char *name, *oidr, *tab, *rowKey;
  Variant tag;
  const char* icon;
  bool canDelete;
  const char* menu;
};

TEST_F(FrmGoodsTest, ShowsTheMenuOfTheTabAndRow) {
  const Variant none, sale("O00120015"), own("O00008003"), inherited = Variant::Null();
  for (const MenuCase& c : std::initializer_list<MenuCase>{
           {"TrafficSaleRow", "O00002002", "Traffic", "15_3", sale, "SALE", true,
            "mnuPopUp mnuToDesktop mnuHistory mnuByPurch mnuPreview mnuPrint mmuBlank mnuRefresh"},
           // Without rests a sale row has no history.
           {"TrafficSaleRowWithoutRests", "O00002004", "Traffic", "15_3", sale, "SALE", true,
            "mnuPopUp mnuToDesktop mnuByPurch mnuPreview mnuPrint mmuBlank mnuRefresh"},
           {"TrafficMoreRow", "O00002002", "Traffic", "more", none, "", true,
            "mnuPopUp mnuByPurch mnuPreview mmuBlank mnuRefresh"},
           {"TrafficRowWithoutTag", "O00002002", "Traffic", "17_1", none, "SALE", true,
            "mnuPopUp mnuHistory mnuByPurch mnuPreview mmuBlank mnuRefresh"},
           {"RestsRow", "O00002002", "Rests", "O000160512", Variant("O000160512"), "", true,
            "mnuPopUp mnuToDesktop mmuBlank mnuRefresh"},
           {"RestsSummaryRow", "O00002002", "Rests", "O0000000", none, "", true,
            "mnuPopUp mmuBlank mnuRefresh"},
           {"SerialRow", "O00002004", "SN", "AB123", none, "", true,
            "mnuPopUp mnuToDesktop mnuPreview mmuBlank mnuRefresh"},
           {"GroupGoodsRow", "O00002001", "Goods", "O00002002", none, "", true,
            "mnuPopUp mnuToDesktop mmuBlank mnuRefresh"},
           {"GroupGoodsMoreRow", "O00002001", "Goods", "more", none, "", true,
            "mnuPopUp mmuBlank mnuRefresh"},
           {"MeasureRow", "O00002002", "Measures", "O00004002", none, "", true, "mnuMain 111"},
           {"NoPriceRow", "O00002002", "PRICES", "", none, "", true, "mnuMain 100"},
           // The template entries never make a new row; inherited rows (no tag) cannot be
           // deleted here.
           {"OwnTemplate", "O00002002", "BRTemplates", "O00004002", own, "", true, "mnuMain 011"},
           {"InheritedTemplate", "O00002002", "BRTemplates", "O00004002", inherited, "", true,
            "mnuMain 010"},
           {"TemplateWithoutDeleteRight", "O00002002", "BRTemplates", "O00004002", own, "", false,
            "mnuMain 010"},
           {"DiscountWithoutRow", "O00002002", "Discounts", "", none, "", true, "mnuMain 101"}}) {
    SCOPED_TRACE(c.name);
    host_.Rights()->GrantAll();
    if (!c.canDelete) host_.Rights()->Deny("CGoods", Right::Delete);
    const size_t shown = host_.Ui()->Popups().size();
    auto w = Open(c.oidr);
    ASSERT_TRUE(w);
    if (*c.rowKey) SelectRow(*w, c.tab, c.rowKey, c.tag, c.icon);
    host_.Ui()->QueuePopupPick("");  // the user closes the menu
    Grid(*w).ClickList(TabIndex(*w, c.tab), vbRightButton);
    ASSERT_EQ(host_.Ui()->Popups().size(), shown + 1);
    const bool main = LastPopup().menu == "mnuMain";
    EXPECT_EQ(LastPopup().menu + " " +
                  (main ? OnOff({&w->mnuNew, &w->mnuEdit, &w->mnuDelete})
                        : Join(LastPopup().shown, " ")),
              c.menu);
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

// A double click, or (pick not null) a right click and the entry picked from the menu, "" for
// none; the loaders and editors run. A menu closed without a pick opens nothing, even when the
// last menu left an action behind.
struct OpenCase {
  const char *name, *oidr, *tab, *rowKey, *pick;
  std::vector<std::string> ran;
};

TEST_F(FrmGoodsTest, OpensOrLoadsByTabAndRow) {
  for (const OpenCase& c : std::initializer_list<OpenCase>{
           {"TrafficMore", "O00002002", "Traffic", "more", nullptr, {"Traffic+"}},
           {"RestsMore", "O00002002", "Rests", "more", nullptr, {"LoadRests"}},
           {"MeasureRow", "O00002002", "Measures", "O00004002", nullptr, {"EditRow 101"}},
           {"DiscountRow", "O00002002", "Discounts", "O10006001", nullptr, {"EditDiscount 101"}},
           {"SerialRow", "O00002004", "SN", "AB123", nullptr, {}},
           {"GroupTemplates", "O00002001", "BRTemplates", "", nullptr, {"EditRow 101"}},
           {"GroupDiscounts", "O00002001", "Discounts", "", nullptr, {"EditDiscount 101"}},
           {"GroupGoods", "O00002001", "Goods", "O00002002", nullptr, {}},
           {"NewPicked", "O00002002", "Measures", "O00004002", "mnuNew", {"EditRow 100"}},
           {"EditPicked", "O00002002", "Discounts", "O10006001", "mnuEdit", {"EditDiscount 101"}},
           {"MenuClosed", "O00002002", "PRICES", "", "", {}}}) {
    SCOPED_TRACE(c.name);
    auto w = OpenOwn(c.oidr);
    if (*c.rowKey) SelectRow(*w, c.tab, c.rowKey);
    if (c.pick) {
      w->MenuAction = "101";
      host_.Ui()->QueuePopupPick(c.pick);
      Grid(*w).ClickList(TabIndex(*w, c.tab), vbRightButton);
    } else {
      Grid(*w).DoubleClickList(TabIndex(*w, c.tab));
    }
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

TEST_F(FrmGoodsTest, DeleteAsksThenDeletesTheRowsObjectOrTheRecord) {
  auto& measures = BO("O0000400").Table();
  measures.SetFields({"ID", "Name"});
  measures.Seed(SeedRows("Name", {"vnt.", "kg"}));
  auto w = OpenOwn("O00002002");
  SelectRow(*w, "Measures", "O00004002");
  w->CurrentTab = w->MeasuresTab;
  host_.Ui()->QueueAnswer(vbNo);
  w->mnuDelete.Click();
  EXPECT_TRUE(measures.Contains(2));
  host_.Ui()->QueueAnswer(vbYes);
  w->mnuDelete.Click();
  EXPECT_FALSE(measures.Contains(2));
  EXPECT_EQ(w->ran, Words("LoadMeasures"));
  EXPECT_EQ(Boxes(), std::vector<std::string>(2, "52 Apskaita Panaikinti?"));
  // An inherited template row is not deleted, even on a yes.
  Clear();
  SelectRow(*w, "BRTemplates", "O00008003", Variant::Null());
  w->CurrentTab = w->TemplatesTab;
  host_.Ui()->QueueAnswer(vbYes);
  w->mnuDelete.Click();
  EXPECT_EQ(w->ran.size(), 1u);
  EXPECT_TRUE(BusinessLines().empty());
  // A right click on Close deletes the record and the window, when confirmed.
  auto service = Open("O00002004");
  for (const auto& [answer, kept] : {std::pair{vbCancel, true}, {vbOK, false}}) {
    host_.Ui()->QueueAnswer(answer);
    service->SSCClose.MouseUp(1);
    service->SSCClose.MouseUp(vbRightButton);
    EXPECT_EQ(BO("O0000200").Table().Contains(4), kept);
  }
  EXPECT_FALSE(host_.WindowManager()->IsOpen("O00002004"));
  EXPECT_EQ(Boxes(),
            std::vector<std::string>(2, "49 Apskaita Ar tikrai norite panaikinti?\nPaslauga"));
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

TEST_F(FrmGoodsTest, TheParentGroupPickerMovesTheRecordAndAChangeWakesTheButtons) {
  auto w = Open("O00002002");
  host_.HostClasses()->QueueGroupSelect("O0000200O00002003", "Pieno", "CGroup");
  w->cmdParentGroup.Click();
  auto picker = host_.HostClasses()->LastGroupSelect();
  EXPECT_EQ(picker->OType() + "|" + picker->RootOType() + "|" + picker->SelectKind() + "|" +
                picker->Caption() + "|" + picker->ExcludeTypes(),
            "O0000200|O0000200|Group GroupNA Root|Pažymėkite norimą grupę|"
            "'C','FirmNA','Service','ServiceNA','GEXIST'");
  EXPECT_EQ(w->OrvelObjectUIO()->Fields("ParentID").Value(), Variant(3));
  EXPECT_EQ(std::to_string(w->ParentID) + " " + w->txtGroup.Text() + " " + OnOff({&w->cmdEnter}),
            "3 Pieno 1");
  host_.HostClasses()->QueueGroupSelect("O0000200", "Prekės", "Root");
  w->cmdParentGroup.Click();
  EXPECT_EQ(w->OrvelObjectUIO()->Fields("ParentID").Value(), Variant(0));
  EXPECT_EQ(std::to_string(w->ParentID) + " " + w->txtGroup.Text(), "0 ");
  // A change wakes the buttons only with the right to write.
  Grid(*w).EditField("Name", Variant("Juoda duona"));
  EXPECT_EQ(OnOff({&w->cmdEnter, &w->cmdCancel}), "11");
  host_.Rights()->Deny("CGoods", Right::Update);
  auto other = Open("O00002004");
  Grid(*other).EditField("Name", Variant("Kita"));
  EXPECT_FALSE(other->cmdEnter.Enabled());
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
