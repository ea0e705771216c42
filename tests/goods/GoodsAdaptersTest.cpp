// The goods adapters: the menu by kind of node and right, the click
// dispatch, the list settings, and every property's and method's business
// call.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <tuple>
#include <vector>

#include "adapters/UI0000200.h"
#include "goods/GoodsDialogs.h"
#include "goods/frmGoods.h"
#include "host/Convert.h"
#include "host/MemoryRecordset.h"
#include "orvel/OrvelObjectUIO.h"
#include "host/Text.h"
#include "support/ModuleTest.h"
#include "testhost/TestEnvironment.h"
#include "testhost/TestObjectSelect.h"
#include "testhost/TestRights.h"
#include "testhost/TestSession.h"
#include "testhost/TestUser.h"
#include "testhost/TestWindowManager.h"

namespace orvel {
namespace {

using Right = TestRights::Right;

// Dialogs that note what they were opened on and answer as told.
class RecordingDialogs : public GoodsDialogs {
 public:
  bool EditListSettings(std::string& settings) override {
    opened.push_back("ListSettings " + settings);
    if (!answer.empty()) settings = answer;
    return !answer.empty();
  }
  void ChangePrices(const std::shared_ptr<OrvelObjectUIO>& group) override {
    opened.push_back("ChangePrices " + group->OIDR());
  }
  void AddGuarantee(const std::shared_ptr<OrvelObjectUIO>& group) override {
    opened.push_back("AddGuarantee " + group->OIDR());
  }

  std::vector<std::string> opened;
  std::string answer;  // empty: the user cancels
};

// Group 1 holds good 2 and subgroup 3; good 4 stands at the top.
class GoodsAdaptersTest : public ModuleTest {
 protected:
  void SetUp() override {
    ModuleTest::SetUp();
    host_.Session()->SetAppTitle("Apskaita");
    host_.Session()->SetAppPath("C:\\Orvel\\");
    auto& table = BO("O0000200").Table();
    table.SetFields({"ID", "Name", "Code", "ParentID", "GroupFlag", "Active", "WithRest", "OwnCode",
                     "PreviewPath", "VAT"});
    table.SetDefault("GroupFlag", Variant(0));
    table.SetDefault("ParentID", Variant::Null());
    table.Seed({{{"Name", Variant("Maistas")}, {"GroupFlag", Variant(1)}},
                {{"Name", Variant("Duona")},
                 {"ParentID", Variant(1)},
                 {"Active", Variant(false)},
                 {"WithRest", Variant(false)}},
                {{"Name", Variant("Pieno")}, {"GroupFlag", Variant(1)}, {"ParentID", Variant(1)}},
                {{"Name", Variant("Paslauga")}}});
    dialogs_ = std::make_shared<RecordingDialogs>();
    InstallGoodsDialogs(dialogs_);
  }

  void TearDown() override {
    InstallGoodsDialogs(nullptr);
    ModuleTest::TearDown();
  }

  std::shared_ptr<OrvelObjectUI> Goods() {
    auto goods = Adapter("O0000200");
    host_.Log().Clear();
    return goods;
  }

  UI0000200& Own(const std::shared_ptr<OrvelObjectUI>& goods) {
    return dynamic_cast<UI0000200&>(*goods);
  }

  static std::vector<std::string> Lines(const std::optional<OrvelMenuItems>& menu) {
    std::vector<std::string> lines;
    for (const auto& item : *menu) lines.push_back(item.Key + " " + item.Caption);
    return lines;
  }

  std::vector<ScriptedUi::Box> Boxes() { return host_.Ui()->Boxes(); }

  std::shared_ptr<RecordingDialogs> dialogs_;
};

// ---- menus ----

struct MenuCase {
  const char* name;
  const char* oidr;
  const char* otype;
  bool canPrice;
  bool canDelete;
  const char* lines;  // "key caption" of each entry, joined by "|"
};

class GoodsMenuTest : public GoodsAdaptersTest, public ::testing::WithParamInterface<MenuCase> {};

TEST_P(GoodsMenuTest, EntriesFollowKindAndRights) {
  const MenuCase& c = GetParam();
  if (!c.canPrice) host_.Rights()->Deny("CGoodsPT", Right::Read);
  if (!c.canDelete) host_.Rights()->Deny("CGoods", Right::Delete);
  auto menu = Goods()->GetMenu(c.oidr, c.otype, "");
  ASSERT_TRUE(menu);
  EXPECT_EQ(Join(Lines(menu), "|"), c.lines);
  for (const auto& item : *menu) {
    EXPECT_EQ(item.Tag, nullptr);
    EXPECT_EQ(item.Flags, 0);
  }
}

constexpr const char* kRootMenu =
    "2 Sukurti naują &grupę|100 -|5 &Atrinkti|6 P&eržiūros nustatymai|100 -|8 Pagalba|100 -";
constexpr const char* kFolderMenu =
    "0 Padėti &ant darbo stalo|100 -|1 Pridėti &naują prekę|2 Sukurti naują &grupę|"
    "3 Sukurti p&ogrupį|100 -|9 Kainų keitimas|100 -|10 Garantijos pridėjimas|100 -|5 &Atrinkti|"
    "6 P&eržiūros nustatymai|100 -|7 &Panaikinti|100 -|8 Pagalba|100 -";
constexpr const char* kGoodMenu =
    "0 Padėti &ant darbo stalo|100 -|1 Pridėti &naują prekę|100 -|4 &Kopijuoti|100 -|"
    "5 &Atrinkti|6 P&eržiūros nustatymai|100 -|7 &Panaikinti|100 -|8 Pagalba|100 -";

INSTANTIATE_TEST_SUITE_P(
    Cases, GoodsMenuTest,
    ::testing::Values(
        MenuCase{"Root", "O0000200", "", true, true, kRootMenu},
        // The root never offers the price dialogs nor deletion.
        MenuCase{"RootWithoutRights", "O0000200", "CRoot", false, false, kRootMenu},
        MenuCase{"Group", "O00002001", "CGroup", true, true, kFolderMenu},
        MenuCase{"InactiveGroupLowerCase", "O00002001", "ogroupna", true, true, kFolderMenu},
        MenuCase{"RootTypeBelowTheCatalogue", "O00002001", "Root", true, true, kFolderMenu},
        MenuCase{"GroupWithoutPriceRight", "O00002001", "OGroup", false, true,
                 "0 Padėti &ant darbo stalo|100 -|1 Pridėti &naują prekę|2 Sukurti naują &grupę|"
                 "3 Sukurti p&ogrupį|100 -|5 &Atrinkti|6 P&eržiūros nustatymai|100 -|"
                 "7 &Panaikinti|100 -|8 Pagalba|100 -"},
        // Without the delete right two separators stand together.
        MenuCase{"GroupWithoutDelete", "O00002001", "CGroup", true, false,
                 "0 Padėti &ant darbo stalo|100 -|1 Pridėti &naują prekę|2 Sukurti naują &grupę|"
                 "3 Sukurti p&ogrupį|100 -|9 Kainų keitimas|100 -|10 Garantijos pridėjimas|"
                 "100 -|5 &Atrinkti|6 P&eržiūros nustatymai|100 -|100 -|8 Pagalba|100 -"},
        MenuCase{"Good", "O00002002", "C", true, true, kGoodMenu},
        MenuCase{"Service", "O00002004", "Service", false, true, kGoodMenu},
        MenuCase{"GoodWithoutDelete", "O00002002", "GoodNA", true, false,
                 "0 Padėti &ant darbo stalo|100 -|1 Pridėti &naują prekę|100 -|4 &Kopijuoti|"
                 "100 -|5 &Atrinkti|6 P&eržiūros nustatymai|100 -|100 -|8 Pagalba|100 -"}),
    [](const auto& info) { return std::string(info.param.name); });

// ---- list settings ----

class GoodsPreviewSettingTest
    : public GoodsAdaptersTest,
      public ::testing::WithParamInterface<std::tuple<const char*, const char*>> {};

TEST_P(GoodsPreviewSettingTest, OnlySevenFieldsAreTakenAndNothingIsRewritten) {
  auto [stored, used] = GetParam();
  host_.Environment()->PresetSetting("O0000200", "Preview", stored);
  auto goods = Goods();
  EXPECT_EQ(Own(goods).PreviewSettings(), used);
  goods->GetOrvelObjectList("O00002001", "x", "y");
  EXPECT_EQ(BusinessLines(),
            std::vector<std::string>{
                std::string("GetCall Orvel_GetObjectList 'O00002001',''," + std::string(used))});
  EXPECT_EQ(host_.Environment()->StoredSetting("O0000200", "Preview"), std::string(stored));
}

INSTANTIATE_TEST_SUITE_P(
    Stored, GoodsPreviewSettingTest,
    ::testing::Values(std::make_tuple("0,1,0,'O000160512',1,0,1", "0,1,0,'O000160512',1,0,1"),
                      std::make_tuple("0,1,0,'',1,0", "1,0,1,'',0,1,0"),
                      std::make_tuple("0,1,0,'',1,0,1,1", "1,0,1,'',0,1,0"),
                      // A warehouse name with a comma breaks the count.
                      std::make_tuple("0,1,0,'Sandėlis, 2',1,0,1", "1,0,1,'',0,1,0"),
                      std::make_tuple("", "1,0,1,'',0,1,0")));

class GoodsRefreshKeyTest : public GoodsAdaptersTest,
                            public ::testing::WithParamInterface<const char*> {};

TEST_P(GoodsRefreshKeyTest, AcceptedSettingsReplaceTheListWithThem) {
  auto goods = Goods();
  dialogs_->answer = "0,1,1,'O000160512',1,0,0";
  auto result = goods->ClickMenu("O0000200", "", GetParam(), "");
  EXPECT_EQ(dialogs_->opened, std::vector<std::string>{"ListSettings 1,0,1,'',0,1,0"});
  EXPECT_EQ(result.Action, OrvelMenuResult::kReplaceList);
  ASSERT_EQ(result.Value.ArrayValue().size(), 2u);
  EXPECT_NE(result.Value.ArrayValue()[0].ObjectAs<Recordset>(), nullptr);
  EXPECT_EQ(result.Value.ArrayValue()[1], Variant(""));
  EXPECT_EQ(BusinessLines(),
            std::vector<std::string>{"GetCall Orvel_GetObjectList '','',0,1,1,'O000160512',1,0,0"});
  EXPECT_EQ(Own(goods).PreviewSettings(), "0,1,1,'O000160512',1,0,0");
  // Applied for this run, not stored.
  EXPECT_FALSE(host_.Environment()->StoredSetting("O0000200", "Preview").has_value());
}

TEST_P(GoodsRefreshKeyTest, CancelledSettingsChangeNothing) {
  auto goods = Goods();
  auto result = goods->ClickMenu("O0000200", "", GetParam(), "");
  EXPECT_EQ(result.Action, OrvelMenuResult::kNothing);
  EXPECT_TRUE(BusinessLines().empty());
  EXPECT_EQ(Own(goods).PreviewSettings(), "1,0,1,'',0,1,0");
}

INSTANTIATE_TEST_SUITE_P(MenuAndChord, GoodsRefreshKeyTest, ::testing::Values("6", "82S2"));

TEST_F(GoodsAdaptersTest, RefreshKeyFetchesTheListWithTheSettings) {
  auto result = Goods()->ClickMenu("O00002001", "CGroup", "116S0", "");
  EXPECT_EQ(result.Action, OrvelMenuResult::kReplaceList);
  ASSERT_EQ(result.Value.ArrayValue().size(), 2u);
  EXPECT_EQ(result.Value.ArrayValue()[1], Variant(""));
  EXPECT_EQ(BusinessLines(),
            std::vector<std::string>{"GetCall Orvel_GetObjectList '','',1,0,1,'',0,1,0"});
}

class GoodsFilterTest : public GoodsAdaptersTest,
                        public ::testing::WithParamInterface<const char*> {};

TEST_P(GoodsFilterTest, FilterSendsTheTextBothOptionsAndTheLastFiveSettings) {
  host_.Environment()->PresetSetting("O0000200", "Preview", "0,1,0,'O000160512',1,0,1");
  auto goods = Goods();
  host_.HostClasses()->QueueObjectSelect("duon", 1, 2);
  auto result = goods->ClickMenu("O00002001", "CGroup", GetParam(), "");
  EXPECT_EQ(result.Action, OrvelMenuResult::kReplaceList);
  const auto& value = result.Value.ArrayValue();
  ASSERT_EQ(value.size(), 2u);
  EXPECT_NE(value[0].ObjectAs<Recordset>(), nullptr);
  EXPECT_EQ(value[1], Variant("duon"));
  EXPECT_EQ(BusinessLines(), std::vector<std::string>{
                                 "GetCall Orvel_GetObjectList '','duon',1,2,0,'O000160512',1,0,1"});
  auto picker = host_.HostClasses()->LastObjectSelect();
  EXPECT_TRUE(picker->MultiSelect());
  EXPECT_EQ(picker->OType(), "O0000200");
}

TEST_P(GoodsFilterTest, ACancelledPickerDoesNothing) {
  auto result = Goods()->ClickMenu("O0000200", "", GetParam(), "");
  EXPECT_EQ(result.Action, OrvelMenuResult::kNothing);
  EXPECT_TRUE(BusinessLines().empty());
}

INSTANTIATE_TEST_SUITE_P(MenuAndChord, GoodsFilterTest, ::testing::Values("5", "70S2"));

// ---- new records ----

struct CreateCase {
  const char* name;
  const char* oidr;
  const char* otype;
  const char* key;
  int32_t parentId;
  int32_t groupFlag;
};

class GoodsCreateTest : public GoodsAdaptersTest,
                        public ::testing::WithParamInterface<CreateCase> {};

TEST_P(GoodsCreateTest, NewRecordGetsParentAndGroupFlag) {
  const CreateCase& c = GetParam();
  auto result = Goods()->ClickMenu(c.oidr, c.otype, c.key, "");
  EXPECT_EQ(result.Action, OrvelMenuResult::kShowWindow);
  auto window = result.Value.ObjectAs<frmGoods>();
  ASSERT_NE(window, nullptr);
  auto object = window->OrvelObjectUIO();
  EXPECT_EQ(object->OIDR(), "");
  EXPECT_EQ(object->Fields("ParentID").Value(), Variant(c.parentId));
  EXPECT_EQ(object->Fields("GroupFlag").Value(), Variant(c.groupFlag));
  // Every new record starts active and kept in rests.
  EXPECT_EQ(object->Fields("Active").Value(), Variant(true));
  EXPECT_EQ(object->Fields("WithRest").Value(), Variant(true));
  EXPECT_FALSE(window->Loaded());
}

INSTANTIATE_TEST_SUITE_P(
    Cases, GoodsCreateTest,
    ::testing::Values(CreateCase{"GoodInGroup", "O00002001", "CGroup", "1", 1, 0},
                      CreateCase{"GoodBesideGood", "O00002002", "C", "1", 1, 0},
                      // Key 2 makes a sibling of the node, key 3 a child.
                      CreateCase{"SiblingOfSubgroup", "O00002003", "CGroup", "2", 1, 1},
                      CreateCase{"ChildOfSubgroup", "O00002003", "CGroup", "3", 3, 1},
                      CreateCase{"SiblingOfTopGroup", "O00002001", "CGroup", "2", 0, 1},
                      // On a good, 3 takes the good's own parent, as 1 does.
                      CreateCase{"SubgroupKeyOnGood", "O00002002", "C", "3", 1, 1},
                      CreateCase{"GoodBesideTopGood", "O00002004", "C", "1", 0, 0},
                      CreateCase{"GroupAtRoot", "O0000200", "", "2", 0, 1}),
    [](const auto& info) { return std::string(info.param.name); });

TEST_F(GoodsAdaptersTest, CreatingUnderAGoneNodeDoesNothingSilently) {
  auto result = Goods()->ClickMenu("O00002009", "CGroup", "1", "");
  EXPECT_EQ(result.Action, OrvelMenuResult::kNothing);
  EXPECT_TRUE(Boxes().empty());
}

TEST_F(GoodsAdaptersTest, KeyZeroBuildsTheWindowAndAGoneGoodGivesNothing) {
  auto goods = Goods();
  auto result = goods->ClickMenu("O00002002", "C", "0", "");
  EXPECT_EQ(result.Action, OrvelMenuResult::kShowWindow);
  auto window = result.Value.ObjectAs<frmGoods>();
  ASSERT_NE(window, nullptr);
  EXPECT_EQ(window->OrvelObjectUIO()->OIDR(), "O00002002");
  auto gone = goods->ClickMenu("O00002009", "C", "0", "");
  EXPECT_EQ(gone.Action, OrvelMenuResult::kShowWindow);
  EXPECT_TRUE(gone.Value.IsNothing());
  EXPECT_TRUE(Boxes().empty());
}

TEST_F(GoodsAdaptersTest, CopyOpensTheCopyMadeForTheUser) {
  host_.User()->SetId("7");
  BO("O0000200").OnRead("CopyGood", [&](const std::string&) {
    auto copy = BO("O0000200")
                    .Table()
                    .Seed({{{"Name", Variant("Duona (kopija)")}, {"ParentID", Variant(1)}}});
    auto rs = std::make_shared<MemoryRecordset>(std::vector<std::string>{"OIDR"});
    rs->AddRow({Variant(copy.front())});
    return OrvelBoResult(0, "", rs);
  });
  auto result = Goods()->ClickMenu("O00002002", "C", "4", "");
  EXPECT_EQ(result.Action, OrvelMenuResult::kShowWindow);
  auto window = result.Value.ObjectAs<frmGoods>();
  ASSERT_NE(window, nullptr);
  EXPECT_EQ(window->OrvelObjectUIO()->OIDR(), "O00002005");
  auto lines = BusinessLines();
  ASSERT_GE(lines.size(), 2u);
  EXPECT_EQ(lines[1], "GetCall CopyGood 'O00002002','7'");
}

TEST_F(GoodsAdaptersTest, PriceAndGuaranteeKeysOpenTheirDialogsOnTheGroup) {
  auto goods = Goods();
  EXPECT_EQ(goods->ClickMenu("O00002001", "CGroup", "9", "").Action, OrvelMenuResult::kNothing);
  EXPECT_EQ(goods->ClickMenu("O00002003", "CGroup", "10", "").Action, OrvelMenuResult::kNothing);
  goods->ClickMenu("O00002009", "CGroup", "9", "");  // gone: no dialog
  EXPECT_EQ(dialogs_->opened,
            (std::vector<std::string>{"ChangePrices O00002001", "AddGuarantee O00002003"}));
}

// ---- delete, help, desktop, others ----

TEST_F(GoodsAdaptersTest, DeleteAsksOkCancelAndReportsRemovalOnOk) {
  auto goods = Goods();
  host_.Ui()->QueueAnswer(vbCancel);
  EXPECT_EQ(goods->ClickMenu("O00002002", "C", "7", "").Action, OrvelMenuResult::kNothing);
  EXPECT_TRUE(BO("O0000200").Table().Contains(2));
  host_.Ui()->QueueAnswer(vbOK);
  EXPECT_EQ(goods->ClickMenu("O00002002", "C", "7", "").Action, OrvelMenuResult::kRemoved);
  EXPECT_FALSE(BO("O0000200").Table().Contains(2));
  ASSERT_EQ(Boxes().size(), 2u);
  EXPECT_EQ(Boxes()[0].prompt, "Ar tikrai norite panaikinti?");
  EXPECT_EQ(Boxes()[0].flags, 49);
  EXPECT_EQ(Boxes()[0].title, "Apskaita");
}

TEST_F(GoodsAdaptersTest, DeleteWithoutTheRightDoesNothingYetReadsAsRemoved) {
  host_.Rights()->Deny("CGoods", Right::Delete);
  auto goods = Goods();
  EXPECT_EQ(goods->DeleteOrvelObject("O00002002"), 0);
  host_.Ui()->QueueAnswer(vbOK);
  EXPECT_EQ(goods->ClickMenu("O00002002", "C", "7", "").Action, OrvelMenuResult::kRemoved);
  EXPECT_TRUE(BO("O0000200").Table().Contains(2));
  EXPECT_TRUE(BusinessLines().empty());
}

TEST_F(GoodsAdaptersTest, HelpKeyAsksTheHostForTheGoodsPage) {
  auto result = Goods()->ClickMenu("O0000200", "", "8", "");
  EXPECT_EQ(result.Action, OrvelMenuResult::kNothing);
  auto lines = host_.Log().Lines(Channel::Host);
  ASSERT_EQ(lines.size(), 1u);
  EXPECT_NE(lines[0].find("ShowHelp"), std::string::npos);
  EXPECT_NE(lines[0].find("Atsargos"), std::string::npos);
  EXPECT_NE(lines[0].find("C:\\Orvel\\help\\atsargos.htm"), std::string::npos);
}

TEST_F(GoodsAdaptersTest, UnknownKeysDoNothing) {
  auto goods = Goods();
  for (const char* key : {"", "11", "100", "116S2", "70S0", " 0"}) {
    EXPECT_EQ(goods->ClickMenu("O00002002", "C", key, "").Action, OrvelMenuResult::kNothing) << key;
  }
  EXPECT_TRUE(BusinessLines().empty());
  EXPECT_TRUE(Boxes().empty());
}

TEST_F(GoodsAdaptersTest, AddToDesktopShowsOneWindowAndIsTrueEvenForAGoneGood) {
  auto goods = Goods();
  EXPECT_TRUE(goods->AddToDeskTopOrvelObject("O00002002"));
  EXPECT_EQ(host_.WindowManager()->Count(), 1u);
  EXPECT_TRUE(goods->AddToDeskTopOrvelObject("O00002002"));
  EXPECT_EQ(host_.WindowManager()->Count(), 1u);
  EXPECT_TRUE(goods->AddToDeskTopOrvelObject("O00002009"));
  EXPECT_EQ(host_.WindowManager()->Count(), 1u);
}

// ---- UIO0000200: read, properties ----

struct PropertyCase {
  const char* name;
  const char* par;
  const char* line;
};

class GoodsPropertyTest : public GoodsAdaptersTest,
                          public ::testing::WithParamInterface<PropertyCase> {};

TEST_P(GoodsPropertyTest, SendsItsCallAndParameterString) {
  const PropertyCase& c = GetParam();
  auto good = Goods()->GetOrvelObject("O00002002");
  ASSERT_NE(good, nullptr);
  host_.Log().Clear();
  auto result = good->Properties(c.name, c.par);
  EXPECT_EQ(result.Number, 0);
  EXPECT_NE(result.Value.ObjectAs<Recordset>(), nullptr);
  EXPECT_EQ(BusinessLines(), std::vector<std::string>{c.line});
}

INSTANTIATE_TEST_SUITE_P(
    Names, GoodsPropertyTest,
    ::testing::Values(
        PropertyCase{"Goods", "'O00002001',1", "GetCall GetGoods 'O00002001',1"},
        PropertyCase{"FindGoods", "duon", "GetCall GetFindGoods 'O00002002','duon'"},
        PropertyCase{"FindGoods", "", "GetCall GetFindGoods 'O00002002',''"},
        PropertyCase{"Rests", "", "GetCall GetRests O00002002"},
        PropertyCase{"Traffic", "'O00002002',1,0", "GetCall GetTraffic 'O00002002',1,0"},
        PropertyCase{"Prices", "", "GetCall GetPrices O00002002"},
        PropertyCase{"MinAmount", "", "GetCall GetMinAmount O00002002"},
        PropertyCase{"Measures", "", "GetCall GetMeasures O00002002"},
        PropertyCase{"Discounts", "", "GetCall GetDiscounts O00002002"},
        PropertyCase{"GoodBRTemplates", "", "GetCall GetGoodBRTemplates O00002002"},
        PropertyCase{"StructuredCode", "1", "GetCall GetStructuredCode 1"},
        PropertyCase{"VatFactor", "", "GetCall GetVatFactor O00002002"},
        PropertyCase{"GoodIsUsedInDocuments", "", "GetCall GetGoodIsUsedInDocuments O00002002"},
        // Names compare exactly: another spelling is another business call.
        PropertyCase{"goods", "", "GetCall Getgoods O00002002"},
        PropertyCase{"parent", "", "GetCall Getparent O00002002"}));

TEST_F(GoodsAdaptersTest, FailedOrEmptyPropertiesPassNumberAndTextWithoutValue) {
  auto good = Goods()->GetOrvelObject("O00002002");
  auto& bo = BO("O0000200");
  bo.ReplyRead("GetRests", OrvelBoResult(4, "neleista"));
  bo.ReplyRead("GetFindGoods", OrvelBoResult(-3, "atšaukta"));
  bo.ReplyRead("GetPrices", OrvelBoResult(0, "tuščia"));
  auto rests = good->Properties("Rests", "");
  EXPECT_EQ(rests.Number, 4);
  EXPECT_EQ(rests.Text, "neleista");
  EXPECT_TRUE(rests.Value.IsEmpty());
  auto find = good->Properties("FindGoods", "x");
  EXPECT_EQ(find.Number, -3);
  EXPECT_EQ(find.Text, "atšaukta");
  EXPECT_TRUE(find.Value.IsEmpty());
  auto prices = good->Properties("Prices", "");
  EXPECT_EQ(prices.Number, 0);
  EXPECT_EQ(prices.Text, "tuščia");
  EXPECT_TRUE(prices.Value.IsEmpty());
}

TEST_F(GoodsAdaptersTest, ParentIsTheGroupObjectOrNothingAtTheTop) {
  auto goods = Goods();
  auto parent = goods->GetOrvelObject("O00002002")->Properties("Parent", "");
  ASSERT_NE(parent.Value.ObjectAs<OrvelObjectUIO>(), nullptr);
  EXPECT_EQ(parent.Value.ObjectAs<OrvelObjectUIO>()->OIDR(), "O00002001");
  auto none = goods->GetOrvelObject("O00002004")->Properties("Parent", "");
  EXPECT_EQ(none.Number, 0);
  EXPECT_TRUE(none.Value.IsNothing());
  EXPECT_TRUE(BusinessLines().size() >= 1u);
}

TEST_F(GoodsAdaptersTest, MeasureIsTheObjectOfItsOwnType) {
  auto& measures = BO("O0000400").Table();
  measures.SetFields({"ID", "Name", "MeasureType"});
  measures.Seed({{{"Name", Variant("vnt.")}, {"MeasureType", Variant("1")}}});
  auto good = Goods()->GetOrvelObject("O00002002");
  auto result = good->Properties("Measure", "O00004001");
  EXPECT_EQ(result.Number, 0);
  auto measure = result.Value.ObjectAs<OrvelObjectUIO>();
  ASSERT_NE(measure, nullptr);
  EXPECT_EQ(measure->Fields("MeasureType").Value(), Variant("1"));
}

// ---- UIO0000200: methods ----

class GoodsArrayCallTest : public GoodsAdaptersTest,
                           public ::testing::WithParamInterface<const char*> {};

TEST_P(GoodsArrayCallTest, SendsTheOneArgumentAndReturnsTheStatusAsValue) {
  const std::string name = GetParam();
  auto group = Goods()->GetOrvelObject("O00002001");
  std::vector<MemoryBusinessObject::Call> received;
  BO("O0000200")
      .OnAction(UCase(name) == "UPDATEGARANTY" ? "UpdateGaranty" : "UpdateGoodsPrice",
                [&](const std::string&, Variant::Array& args) {
                  received.push_back({MemoryBusinessObject::Op::ExecArrayCall, "", "", args});
                  return OrvelStatus{8, "užrakinta"};
                });
  Variant::Array params{Variant("'O00002001',5.5,1"), Variant("dropped")};
  auto result = group->Methods(name, params);
  EXPECT_EQ(result.Number, 0);
  EXPECT_EQ(result.Value, Variant(Variant::Array{Variant(8), Variant("užrakinta")}));
  ASSERT_EQ(received.size(), 1u);
  EXPECT_EQ(received[0].array, Variant::Array{Variant("'O00002001',5.5,1")});
  auto calls = BO("O0000200").Calls();
  ASSERT_FALSE(calls.empty());
  EXPECT_EQ(calls.back().op, MemoryBusinessObject::Op::ExecArrayCall);
  EXPECT_EQ(calls.back().param, "");
}

INSTANTIATE_TEST_SUITE_P(Names, GoodsArrayCallTest,
                         ::testing::Values("UpdateGoodsPrice", "updategoodsprice", "UpdateGaranty",
                                           "UPDATEGARANTY"));

class GoodsMissingArgumentTest : public GoodsAdaptersTest,
                                 public ::testing::WithParamInterface<const char*> {};

TEST_P(GoodsMissingArgumentTest, IsABoundsErrorAndNoCall) {
  auto good = Goods()->GetOrvelObject("O00002002");
  host_.Log().Clear();
  Variant::Array none;
  auto result = good->Methods(GetParam(), none);
  EXPECT_EQ(result.Number, 9);
  EXPECT_FALSE(result.Text.empty());
  EXPECT_TRUE(BusinessLines().empty());
}

INSTANTIATE_TEST_SUITE_P(Names, GoodsMissingArgumentTest,
                         ::testing::Values("CopyGood", "UpdateGoodsPrice", "UpdateGaranty"));

TEST_F(GoodsAdaptersTest, CopyGoodReturnsTheCopysReferenceOrTheFailure) {
  host_.User()->SetId("42");
  auto copy = std::make_shared<MemoryRecordset>(std::vector<std::string>{"OIDR"});
  copy->AddRow({Variant("O000020012")});
  BO("O0000200").ReplyRead("CopyGood", copy);
  auto catalogue = Goods()->GetOrvelObject("");
  host_.Log().Clear();
  Variant::Array params{Variant("O00002002")};
  auto result = catalogue->Methods("copygood", params);
  EXPECT_EQ(result.Number, 0);
  EXPECT_EQ(result.Value, Variant("O000020012"));
  EXPECT_EQ(BusinessLines(), std::vector<std::string>{"GetCall CopyGood 'O00002002','42'"});

  BO("O0000200").ReplyRead("CopyGood", OrvelBoResult(3, "nėra"));
  auto failed = catalogue->Methods("CopyGood", params);
  EXPECT_EQ(failed.Number, 3);
  EXPECT_EQ(failed.Text, "nėra");
  EXPECT_TRUE(failed.Value.IsEmpty());
}

TEST_F(GoodsAdaptersTest, UnknownMethodsDoNothing) {
  auto good = Goods()->GetOrvelObject("O00002002");
  host_.Log().Clear();
  Variant::Array params{Variant("x")};
  auto result = good->Methods("SetTypeAndRegion", params);
  EXPECT_EQ(result.Number, 0);
  EXPECT_TRUE(result.Value.IsEmpty());
  EXPECT_TRUE(BusinessLines().empty());
}

}  // namespace
}  // namespace orvel
