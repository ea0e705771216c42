// The firm and goods type adapters: the menu by kind of node and right, the
// click dispatch, the list settings and their dialog, and every property's and
// method's business call. Cases the two share are rows of one table.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <tuple>

#include "adapters/UI0000100.h"
#include "adapters/UI0000200.h"
#include "common/GroupedCard.h"
#include "firms/frmPreview.h"
#include "goods/GoodsDialogs.h"
#include "orvel/OrvelObjectUIO.h"
#include "orvel/OrvelServices.h"
#include "support/CardTest.h"
#include "support/TextRecords.h"
#include "testhost/TestEnvironment.h"
#include "testhost/TestObjectSelect.h"
#include "testhost/TestRights.h"
#include "testhost/TestServices.h"
#include "testhost/TestSession.h"
#include "testhost/TestUser.h"
#include "testhost/TestWindowManager.h"

namespace orvel {
namespace {

using Right = TestRights::Right;
using Lines = std::vector<std::string>;
using ::testing::Contains;

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

// Firms: group 1 holds firm 2, firm 3 stands at the top. Goods: group 1 holds
// good 2 and subgroup 3, good 4 stands at the top. Firm 2 and good 2 are
// inactive.
class AdaptersTest : public CardTest<GroupedCard> {
 protected:
  AdaptersTest() : CardTest("O0000100") {}

  void SetUp() override {
    CardTest::SetUp();
    host_.Session()->SetAppPath("C:\\Orvel\\");
    const std::string fields = "ID Name Code ParentID GroupFlag Active OwnCode PreviewPath ";
    for (const auto& [oid, own, rows] :
         {std::tuple{"O0000100", "FirmTypeId RegionID", Lines{"Tiekėjai|1", "UAB Šilas||1|false",
                                                              "AB Vėjas"}},
          {"O0000200", "WithRest VAT",
           Lines{"Maistas|1", "Duona||1|false|false", "Pieno|1|1", "Paslauga"}}}) {
      auto& table = BO(oid).Table();
      table.SetFields(Split(fields + own, " "));
      table.SetDefault("GroupFlag", Variant(0));
      table.SetDefault("ParentID", Variant::Null());
      table.Seed(SeedRows("Name GroupFlag ParentID Active WithRest", rows));
    }
    dialogs_ = std::make_shared<RecordingDialogs>();
    InstallGoodsDialogs(dialogs_);
  }

  void TearDown() override {
    InstallGoodsDialogs(nullptr);
    CardTest::TearDown();
  }

  // The adapter of the type an OIDR (or OID) names, the journal cleared.
  std::shared_ptr<OrvelObjectUI> Of(const std::string& oidr) {
    auto adapter = Adapter(oidr.substr(0, 8));
    host_.Log().Clear();
    return adapter;
  }

  // A record's object; a type's OID gives a new record of that type.
  std::shared_ptr<OrvelObjectUIO> Object(const std::string& oidr) {
    auto object = Of(oidr)->GetOrvelObject(oidr.size() > 8 ? oidr : "");
    EXPECT_NE(object, nullptr) << oidr;
    host_.Log().Clear();
    return object;
  }

  // A list replaced by a fresh record set, `text` the selection shown.
  static void ExpectList(const OrvelMenuResult& result, const char* text) {
    EXPECT_EQ(result.Action, OrvelMenuResult::kReplaceList);
    ASSERT_EQ(result.Value.ArrayValue().size(), 2u);
    EXPECT_TRUE(result.Value.ArrayValue()[0].ObjectAs<Recordset>() &&
                result.Value.ArrayValue()[1] == Variant(text));
  }

  std::shared_ptr<RecordingDialogs> dialogs_;
};

struct Catalogue {
  const char* oid;
  const char* rights;  // the class whose Delete right guards deletion
  const char* deleteKey;
  const char* helpKey;
  const char* help;         // the page's topic and file
  const char* unknownKeys;  // by "|"
  int top;                  // a record at the top
};

const Catalogue kFirms{"O0000100", "CFirms", "6", "7", "Įmonės|imones.htm", "|8|100|116S2|82S0", 3};
const Catalogue kGoods{
    "O0000200", "CGoods", "7", "8", "Atsargos|atsargos.htm", "|11|100|116S2|70S0| 0", 4};

class CatalogueTest : public AdaptersTest, public ::testing::WithParamInterface<Catalogue> {
 protected:
  std::string Oidr(int id) { return std::string(GetParam().oid) + std::to_string(id); }
  int Click(const std::string& key, int answer = 0) {
    if (answer) host_.Ui()->QueueAnswer(answer);
    return Of(GetParam().oid)->ClickMenu(Oidr(2), "C", key, "").Action;
  }
};

// Delete asks OK or Cancel and reports the removal on OK; without the right
// it does nothing, yet reads as removed. Help asks the host for the
// catalogue's page; unknown keys do nothing; the parent is the group's
// object, or nothing at the top.
TEST_P(CatalogueTest, DeleteHelpUnknownKeysAndParent) {
  const Catalogue& c = GetParam();
  auto& table = BO(c.oid).Table();
  EXPECT_EQ(Click(c.deleteKey, vbCancel), OrvelMenuResult::kNothing);
  EXPECT_TRUE(table.Contains(2));
  EXPECT_EQ(Click(c.deleteKey, vbOK), OrvelMenuResult::kRemoved);
  EXPECT_FALSE(table.Contains(2));
  EXPECT_EQ(Boxes(), Lines(2, "49 Apskaita Ar tikrai norite panaikinti?"));
  table.Seed(SeedRows("ID Name ParentID", {"2|X|1"}));
  host_.Rights()->Deny(c.rights, Right::Delete);
  EXPECT_EQ(Of(c.oid)->DeleteOrvelObject(Oidr(2)), 0);
  EXPECT_EQ(Click(c.deleteKey, vbOK), OrvelMenuResult::kRemoved);
  EXPECT_TRUE(table.Contains(2));
  EXPECT_EQ(Of(c.oid)->ClickMenu(c.oid, "", c.helpKey, "").Action, OrvelMenuResult::kNothing);
  const auto help = Split(c.help, "|");
  EXPECT_EQ(host_.Log().Lines(Channel::Host),
            Lines{"ExecCommand ShowHelp " + help[0] + " C:\\Orvel\\help\\" + help[1]});
  for (const auto& key : Split(c.unknownKeys, "|")) {
    EXPECT_EQ(Click(key), OrvelMenuResult::kNothing) << key;
  }
  EXPECT_TRUE(BusinessLines().empty());
  auto parent = Object(Oidr(2))->Properties("Parent", "").Value.ObjectAs<OrvelObjectUIO>();
  EXPECT_EQ(parent ? parent->OIDR() : "", Oidr(1));
  auto none = Object(Oidr(c.top))->Properties("Parent", "");
  EXPECT_TRUE(none.Number == 0 && none.Value.IsNothing());
}

INSTANTIATE_TEST_SUITE_P(Catalogues, CatalogueTest, ::testing::Values(kFirms, kGoods));

constexpr const char* kFirmRoot =
    "2 Sukurti naują &grupę|100 -|4 &Atrinkti|5 P&eržiūros nustatymai|100 -|7 Pagalba|100 -";
constexpr const char* kFirmFolder =
    "0 Padėti &ant darbo stalo|100 -|1 Pridėti &naują įmonę|2 Sukurti naują &grupę|"
    "3 Sukurti p&ogrupį|100 -|4 &Atrinkti|5 P&eržiūros nustatymai|100 -|6 &Panaikinti|100 -|"
    "7 Pagalba|100 -";
constexpr const char* kFirm =
    "0 Padėti &ant darbo stalo|100 -|1 Pridėti &naują įmonę|100 -|4 &Atrinkti|"
    "5 P&eržiūros nustatymai|100 -|6 &Panaikinti|100 -|7 Pagalba|100 -";
constexpr const char* kGoodsRoot =
    "2 Sukurti naują &grupę|100 -|5 &Atrinkti|6 P&eržiūros nustatymai|100 -|8 Pagalba|100 -";
constexpr const char* kGoodsFolder =
    "0 Padėti &ant darbo stalo|100 -|1 Pridėti &naują prekę|2 Sukurti naują &grupę|"
    "3 Sukurti p&ogrupį|100 -|9 Kainų keitimas|100 -|10 Garantijos pridėjimas|100 -|5 &Atrinkti|"
    "6 P&eržiūros nustatymai|100 -|7 &Panaikinti|100 -|8 Pagalba|100 -";
constexpr const char* kGood =
    "0 Padėti &ant darbo stalo|100 -|1 Pridėti &naują prekę|100 -|4 &Kopijuoti|100 -|"
    "5 &Atrinkti|6 P&eržiūros nustatymai|100 -|7 &Panaikinti|100 -|8 Pagalba|100 -";

// Each denied right takes out exactly its entries: without the delete right
// two separators stand in a row where the entry was.
// Each row: the node, its type, the rights denied ("D" delete, "P" the goods'
// price right) and the "key caption" of each entry by "|".
TEST_F(AdaptersTest, EntriesFollowKindAndRights) {
  for (const auto& [name, oidr, otype, denied, entries] :
       {std::tuple{"FirmRoot", "O0000100", "", "", kFirmRoot},
        {"FirmRootWithoutDelete", "O0000100", "", "D", kFirmRoot},
        {"FirmGroup", "O00001001", "CGroup", "", kFirmFolder},
        {"FirmGroupWithoutDelete", "O00001001", "OGroupNA", "D", kFirmFolder},
        {"FirmC", "O00001002", "C", "", kFirm},
        {"FirmTypeFirmWithoutDelete", "O00001002", "Firm", "D", kFirm},
        // "FirmNA" is neither "C" nor "Firm": the group entries show.
        {"InactiveFirmKind", "O00001002", "FirmNA", "", kFirmFolder},
        {"GoodsRoot", "O0000200", "", "", kGoodsRoot},
        // The root never offers the price dialogs nor deletion.
        {"GoodsRootWithoutRights", "O0000200", "CRoot", "DP", kGoodsRoot},
        {"GoodsGroup", "O00002001", "CGroup", "", kGoodsFolder},
        {"InactiveGoodsGroupLowerCase", "O00002001", "ogroupna", "", kGoodsFolder},
        {"RootTypeBelowTheCatalogue", "O00002001", "Root", "", kGoodsFolder},
        {"GoodsGroupWithoutPriceRight", "O00002001", "OGroup", "P", kGoodsFolder},
        {"GoodsGroupWithoutDelete", "O00002001", "CGroup", "D", kGoodsFolder},
        {"Good", "O00002002", "C", "", kGood},
        {"Service", "O00002004", "Service", "P", kGood},
        {"GoodWithoutDelete", "O00002002", "GoodNA", "D", kGood}}) {
    SCOPED_TRACE(name);
    host_.Rights()->GrantAll();
    const std::string oid = std::string(oidr).substr(0, 8);
    std::string expected = entries;
    if (std::string(denied).find('D') != std::string::npos) {
      host_.Rights()->Deny(oid == "O0000100" ? "CFirms" : "CGoods", Right::Delete);
      expected = Replace(Replace(expected, "6 &Panaikinti|", ""), "7 &Panaikinti|", "");
    }
    if (std::string(denied).find('P') != std::string::npos) {
      host_.Rights()->Deny("CGoodsPT", Right::Read);
      expected = Replace(expected, "9 Kainų keitimas|100 -|10 Garantijos pridėjimas|100 -|", "");
    }
    const auto menu = Of(oid)->GetMenu(oidr, otype, "");
    std::string shown;
    for (const auto& item : *menu) {
      shown += "|" + item.Key + " " + item.Caption + (item.Tag || item.Flags ? " tagged" : "");
    }
    EXPECT_EQ(shown, "|" + expected);
  }
}

// Keys 1 to 3 build a card on a new record under the node, key 0 the node's
// own; a gone record or no read right gives no window. Each row: the node, its
// type, the key, the read right, a new record's "ParentID GroupFlag" ("~"
// Null; "-" no window; "" nothing) and the one box shown.
TEST_F(AdaptersTest, NewRecordGetsParentAndGroupFlag) {
  for (const auto& [name, oidr, otype, key, read, shown, box] :
       {std::tuple{"FirmInGroup", "O00001001", "CGroup", "1", true, "1 0", ""},
        {"FirmBesideFirm", "O00001002", "C", "1", true, "1 0", ""},
        {"GroupBesideGroup", "O00001001", "CGroup", "2", true, "~ 1", ""},
        {"GroupBesideFirmInGroup", "O00001002", "C", "2", true, "1 1", ""},
        // Val of a Null parent joined to "" is 0, written back as Null.
        {"GroupBesideTopFirm", "O00001003", "C", "2", true, "~ 1", ""},
        {"SubgroupOfGroup", "O00001001", "CGroup", "3", true, "1 1", ""},
        // Not offered on a firm; it makes a group beside the firm.
        {"SubgroupKeyOnFirm", "O00001002", "C", "3", true, "1 1", ""},
        {"FirmGroupAtRoot", "O0000100", "", "2", true, "~ 1", ""},
        {"GoodInGroup", "O00002001", "CGroup", "1", true, "1 0", ""},
        {"GoodBesideGood", "O00002002", "C", "1", true, "1 0", ""},
        // Key 2 makes a sibling of the node, key 3 a child.
        {"SiblingOfSubgroup", "O00002003", "CGroup", "2", true, "1 1", ""},
        {"ChildOfSubgroup", "O00002003", "CGroup", "3", true, "3 1", ""},
        {"SiblingOfTopGroup", "O00002001", "CGroup", "2", true, "0 1", ""},
        // On a good, 3 takes the good's own parent, as 1 does.
        {"SubgroupKeyOnGood", "O00002002", "C", "3", true, "1 1", ""},
        {"GoodBesideTopGood", "O00002004", "C", "1", true, "0 0", ""},
        {"GoodsGroupAtRoot", "O0000200", "", "2", true, "0 1", ""},
        {"FirmWithoutReadRight", "O00001002", "C", "0", false, "-", ""},
        {"NewFirmWithoutReadRight", "O00001001", "CGroup", "1", false, "", ""},
        // The window builder is given no type, so it names a firm even for a group.
        {"GoneFirm", "O00001009", "CGroup", "0", true, "-", "Įmonė panaikinta!"},
        {"NewUnderGoneFirm", "O00001009", "C", "1", true, "", "Įmonė panaikinta!"},
        {"NewUnderGoneFirmGroup", "O00001009", "CGroup", "1", true, "", "Įmonių grupė panaikinta!"},
        {"NewUnderGoneUntyped", "O00001009", "", "1", true, "", "Įmonių grupė panaikinta!"},
        {"GoneGood", "O00002009", "C", "0", true, "-", ""},
        {"NewUnderGoneGoodsGroup", "O00002009", "CGroup", "1", true, "", ""}}) {
    SCOPED_TRACE(name);
    host_.Rights()->GrantAll();
    host_.Ui()->ClearBoxes();
    if (!read) host_.Rights()->Deny("CFirms", Right::Read);
    if (*box) host_.Ui()->QueueAnswer(vbOK);
    auto result = Of(oidr)->ClickMenu(oidr, otype, key, "");
    auto window = result.Value.ObjectAs<GroupedCard>();
    std::string made = result.Action == OrvelMenuResult::kShowWindow ? "-" : "";
    if (window) {
      // Every new record starts active and unloaded, and a good kept in rests.
      auto object = window->OrvelObjectUIO();
      const Variant parent = object->Fields("ParentID").Value();
      made = (parent.IsNull() ? "~" : ConcatText(parent)) + " " +
             ConcatText(object->Fields("GroupFlag").Value());
      EXPECT_EQ(object->OIDR(), "");
      EXPECT_EQ(object->Fields("Active").Value(), Variant(true));
      EXPECT_FALSE(window->Loaded());
      if (std::string(oidr).substr(0, 8) == "O0000200") {
        EXPECT_EQ(object->Fields("WithRest").Value(), Variant(true));
      }
    }
    EXPECT_EQ(made, shown);
    EXPECT_EQ(Boxes(), *box ? Lines{std::string("16 Apskaita ") + box} : Lines{});
  }
}

// The filter sends the text and both options; no answer from the picker reads
// nothing. The firms' refresh reads the whole list, whatever the settings; the
// goods' filter sends the last five settings too.
// Each row: the group clicked, the filter's key or chord, the stored settings,
// and the list call's parameters of the filter and of F5.
TEST_F(AdaptersTest, FilterSendsTheTextAndBothOptionsAndRefreshReadsTheList) {
  const std::string list = "GetCall Orvel_GetObjectList ";
  for (const auto& [group, key, stored, filtered, refreshed] :
       {std::tuple{"O00001001", "4", "0,1,2", "'','šil',1,2", "''"},
        {"O00001001", "70S2", "0,1,2", "'','šil',1,2", "''"},
        {"O00002001", "5", "0,1,0,'O000160512',1,0,1", "'','šil',1,2,0,'O000160512',1,0,1",
         "'','',0,1,0,'O000160512',1,0,1"},
        {"O00002001", "70S2", "", "'','šil',1,2,1,'',0,1,0", "'','',1,0,1,'',0,1,0"}}) {
    SCOPED_TRACE(std::string(group) + " " + key);
    const std::string oid = std::string(group).substr(0, 8);
    host_.Environment()->PresetSetting(oid, "Preview", stored);
    host_.ObjectManager()->ClearAdapters();
    auto adapter = Of(oid);
    EXPECT_EQ(adapter->ClickMenu(group, "CGroup", key, "").Action, OrvelMenuResult::kNothing);
    EXPECT_TRUE(BusinessLines().empty());
    host_.HostClasses()->QueueObjectSelect("šil", 1, 2);
    ExpectList(adapter->ClickMenu(group, "CGroup", key, ""), "šil");
    EXPECT_EQ(BusinessLines(), Lines{list + filtered});
    auto picker = host_.HostClasses()->LastObjectSelect();
    EXPECT_TRUE(picker->MultiSelect());
    EXPECT_EQ(picker->OType(), oid);
    host_.Log().Clear();
    ExpectList(adapter->ClickMenu(group, "CGroup", "116S0", ""), "");
    EXPECT_EQ(BusinessLines(), Lines{list + refreshed});
  }
}

// Stored settings are read with the services and never rewritten; the goods
// take only a setting of seven fields, and a warehouse name with a comma
// breaks the count. A firm list argument with an apostrophe goes on unchanged.
TEST_F(AdaptersTest, StoredSettingsAreReadWithTheServicesAndNeverRewritten) {
  for (const auto& [group, stored, used] :
       {std::tuple{"O00001001", "0,1,2", "0,1,2"},
        {"O00002001", "0,1,0,'O000160512',1,0,1", "0,1,0,'O000160512',1,0,1"},
        {"O00002001", "0,1,0,'',1,0", "1,0,1,'',0,1,0"},
        {"O00002001", "0,1,0,'',1,0,1,1", "1,0,1,'',0,1,0"},
        {"O00002001", "0,1,0,'Sandėlis, 2',1,0,1", "1,0,1,'',0,1,0"},
        {"O00002001", "", "1,0,1,'',0,1,0"}}) {
    const std::string oid = std::string(group).substr(0, 8);
    host_.Environment()->PresetSetting(oid, "Preview", stored);
    host_.ObjectManager()->ClearAdapters();
    Of(oid)->GetOrvelObjectList(group, "x", "y");
    EXPECT_EQ(BusinessLines(),
              Lines{std::string("GetCall Orvel_GetObjectList '") + group + "',''," + used});
    EXPECT_EQ(host_.Environment()->StoredSetting(oid, "Preview"), std::string(stored));
  }
  Of("O0000100")->GetOrvelObjectList("'','šil',0,0", "", "");
  EXPECT_EQ(BusinessLines(), Lines{"GetCall Orvel_GetObjectList '','šil',0,0"});
}

// The firms' settings dialog, by the menu and the chord: cancelled, then
// accepted; applied, not stored.
TEST_F(AdaptersTest, FirmSettingsReplaceTheListOnlyWhenAccepted) {
  for (const char* key : {"5", "82S2"}) {
    SCOPED_TRACE(key);
    host_.ObjectManager()->ClearAdapters();
    auto firms = Of("O0000100");
    auto& own = dynamic_cast<UI0000100&>(*firms);
    host_.Ui()->QueueModal([](Form& form) { dynamic_cast<frmPreview&>(form).cmdCancel.Click(); });
    EXPECT_EQ(firms->ClickMenu("O0000100", "", key, "").Action, OrvelMenuResult::kNothing);
    EXPECT_EQ(own.PreviewSettings(), "1,0,1");
    std::string given;
    host_.Ui()->QueueModal([&](Form& form) {
      auto& dialog = dynamic_cast<frmPreview&>(form);
      given = dialog.Settings + " " + dialog.OType;
      dialog.chkNotActive.Click();
      dialog.optByCode.Click();
      dialog.cmdOK.Click();
    });
    ExpectList(firms->ClickMenu("O0000100", "", key, ""), "");
    EXPECT_EQ(given, "1,0,1 O0000100");
    EXPECT_EQ(BusinessLines(), Lines{"GetCall Orvel_GetObjectList '','',1,1,2"});
    EXPECT_FALSE(host_.Environment()->StoredSetting("O0000100", "Preview").has_value());
    EXPECT_EQ(own.PreviewSettings(), "1,1,2");
  }
}

// The goods' settings dialog, through the goods dialogs, by the menu and the
// chord.
TEST_F(AdaptersTest, GoodsSettingsReplaceTheListOnlyWhenAccepted) {
  for (const char* key : {"6", "82S2"}) {
    SCOPED_TRACE(key);
    host_.ObjectManager()->ClearAdapters();
    dialogs_->opened.clear();
    dialogs_->answer.clear();
    auto goods = Of("O0000200");
    auto& own = dynamic_cast<UI0000200&>(*goods);
    EXPECT_EQ(goods->ClickMenu("O0000200", "", key, "").Action, OrvelMenuResult::kNothing);
    EXPECT_TRUE(BusinessLines().empty());
    dialogs_->answer = "0,1,1,'O000160512',1,0,0";
    auto result = goods->ClickMenu("O0000200", "", key, "");
    EXPECT_EQ(dialogs_->opened, Lines(2, "ListSettings 1,0,1,'',0,1,0"));
    ExpectList(result, "");
    EXPECT_EQ(BusinessLines(), Lines{"GetCall Orvel_GetObjectList '','',0,1,1,'O000160512',1,0,0"});
    EXPECT_EQ(own.PreviewSettings(), "0,1,1,'O000160512',1,0,0");
    EXPECT_FALSE(host_.Environment()->StoredSetting("O0000200", "Preview").has_value());
  }
}

// Copy opens the copy made for the user. A firm's desktop entry fails on a
// gone firm or without the read right; a good's is true even for a gone good;
// either shows one window per record.
TEST_F(AdaptersTest, CopyOpensTheCopyAndTheDesktopShowsOneWindowPerRecord) {
  host_.User()->SetId("7");
  BO("O0000200").OnRead("CopyGood", [&](const std::string&) {
    auto copy = BO("O0000200")
                    .Table()
                    .Seed({{{"Name", Variant("Duona (kopija)")}, {"ParentID", Variant(1)}}});
    return OrvelBoResult(0, "", TextRecords("OIDR", copy.front().c_str()));
  });
  auto result = Of("O0000200")->ClickMenu("O00002002", "C", "4", "");
  EXPECT_EQ(result.Action, OrvelMenuResult::kShowWindow);
  auto window = result.Value.ObjectAs<GroupedCard>();
  EXPECT_EQ(window ? window->OrvelObjectUIO()->OIDR() : "", "O00002005");
  EXPECT_THAT(BusinessLines(), Contains("GetCall CopyGood 'O00002002','7'"));
  auto firms = Of("O0000100");
  // The card's own read fails on this fixture's firm (no CreatedByUser) and says so.
  for (int box = 0; box < 2; ++box) host_.Ui()->QueueAnswer(vbOK);
  EXPECT_TRUE(firms->AddToDeskTopOrvelObject("O00001002"));
  EXPECT_TRUE(firms->AddToDeskTopOrvelObject("O00001002"));
  EXPECT_EQ(host_.WindowManager()->Count(), 1u);
  EXPECT_FALSE(firms->AddToDeskTopOrvelObject("O00001009"));
  auto goods = Of("O0000200");
  EXPECT_TRUE(goods->AddToDeskTopOrvelObject("O00002002"));
  EXPECT_TRUE(goods->AddToDeskTopOrvelObject("O00002002"));
  EXPECT_TRUE(goods->AddToDeskTopOrvelObject("O00002009"));
  EXPECT_EQ(host_.WindowManager()->Count(), 2u);
  host_.Rights()->Deny("CFirms", Right::Read);
  EXPECT_FALSE(firms->AddToDeskTopOrvelObject("O00001003"));
}

// The price and guarantee keys open their dialogs on the group (none on a gone
// one); firms drag always and drop never.
TEST_F(AdaptersTest, PriceAndGuaranteeKeysOpenTheirDialogsAndFirmsDragButNeverDrop) {
  auto goods = Of("O0000200");
  EXPECT_EQ(goods->ClickMenu("O00002001", "CGroup", "9", "").Action, OrvelMenuResult::kNothing);
  EXPECT_EQ(goods->ClickMenu("O00002003", "CGroup", "10", "").Action, OrvelMenuResult::kNothing);
  goods->ClickMenu("O00002009", "CGroup", "9", "");  // gone: no dialog
  EXPECT_EQ(dialogs_->opened, (Lines{"ChangePrices O00002001", "AddGuarantee O00002003"}));
  auto firms = Of("O0000100");
  for (const char* oidr : {"", "O0000100", "O00001001", "garbage"}) {
    EXPECT_TRUE(firms->DragOK(oidr, "C", "")) << oidr;
    EXPECT_FALSE(firms->DropOK(oidr)) << oidr;
  }
}

// Read makes a new firm active and leaves a saved one alone; a second set of
// services re-reads the title and settings through the stored ones. A good's
// measure is the object of its own type; a firm's object form is a firm
// window on that object, not loaded.
TEST_F(AdaptersTest, ObjectsReadAndPropertiesGiveObjects) {
  auto fresh = Object("O0000100");
  auto saved = Object("O00001002");
  EXPECT_EQ(CStr(fresh->Fields("Active").Value()) + CStr(saved->Fields("Active").Value()) +
                fresh->GetGUID() + std::to_string(saved->RsFields()->MarshalOptions()),
            "TrueFalse1");
  auto firms = Of("O0000100");
  host_.Session()->SetAppTitle("Kita");
  host_.Environment()->PresetSetting("O0000100", "Preview", "1,1,0");
  firms->SetOrvelS(nullptr);  // not stored: the first services stay
  EXPECT_NE(OrvelS(), nullptr);
  auto& own = dynamic_cast<UI0000100&>(*firms);
  EXPECT_EQ(own.MsgTitle(), "Kita");
  EXPECT_EQ(own.PreviewSettings(), "1,1,0");
  auto& measures = BO("O0000400").Table();
  measures.SetFields({"ID", "Name", "MeasureType"});
  measures.Seed({{{"Name", Variant("vnt.")}, {"MeasureType", Variant("1")}}});
  auto result = Object("O00002002")->Properties("Measure", "O00004001");
  auto measure = result.Value.ObjectAs<OrvelObjectUIO>();
  EXPECT_EQ(measure ? measure->Fields("MeasureType").Value() : Variant(), Variant("1"));
  auto firm = Object("O00001002");
  auto window = firm->Properties("GetObjectForm", "").Value.ObjectAs<GroupedCard>();
  ASSERT_NE(window, nullptr);
  EXPECT_TRUE(window->OrvelObjectUIO() == firm && !window->Loaded());
}

// A record's property (its one parameter) or method (`args`), with the
// business layer's answer scripted: "" its own, "<call> <field>=<value>" a
// record, "<call> !<n>" failure n "neleista". The call sent (a property's
// without "GetCall ") and "<Number>[ <Text>]|<Value>[|<parameter when
// changed>]", a record set shown as "rs".
struct CallCase {
  const char* oidr;
  const char* name;
  const char* reply;
  bool method;
  Variant::Array args;
  const char* line;  // "" for no call
  const char* result;
};

TEST_F(AdaptersTest, PropertiesAndMethodsSendTheirCallAndParameterString) {
  host_.User()->SetId("42");
  const char* const F = "O00001002";
  const char* const G = "O00002002";
  const auto P = [](const char* oidr, const char* name, const char* par, const char* reply,
                    const char* line, const char* result) {
    return CallCase{oidr, name, reply, false, {Variant(par)}, line, result};
  };
  const auto M = [](const char* oidr, const char* name, Variant::Array args, const char* reply,
                    const char* line, const char* result) {
    return CallCase{oidr, name, reply, true, std::move(args), line, result};
  };
  const CallCase cases[] = {
      P(F, "firms", "", "", "Getfirms O00001002", "0|rs"),
      P(F, "FirmInfo", "", "", "GetFirmInfo 'O00001002',0", "0|rs|0"),
      P(F, "FirmInfo", "7", "", "GetFirmInfo 'O00001002',7", "0|rs"),
      P(F, "CHECKCODE", "123", "", "CheckCode 'O00001002','123'", "0|False"),
      P(F, "CheckBranch", "x", "", "CheckBranch 'O00001002'", "0|False"),
      P(F, "Traffic", "", "", "GetTraffic O00001002", "0|rs"),
      P(F, "TypeAndRegion", "1", "", "GetTypeAndRegion 1", "0|rs"),
      P(F, "FirmParameters", "'O00001002',3", "", "GetFirmParameters 'O00001002',3", "0|rs"),
      P(G, "Goods", "'O00002001',1", "", "GetGoods 'O00002001',1", "0|rs"),
      P(G, "FindGoods", "", "", "GetFindGoods 'O00002002',''", "0|rs"),
      P(G, "Traffic", "'O00002002',1,0", "", "GetTraffic 'O00002002',1,0", "0|rs"),
      P(G, "Prices", "", "", "GetPrices O00002002", "0|rs"),
      P(G, "MinAmount", "", "", "GetMinAmount O00002002", "0|rs"),
      P(G, "GoodBRTemplates", "", "", "GetGoodBRTemplates O00002002", "0|rs"),
      // Names compare exactly: another spelling is another business call.
      P(G, "goods", "", "", "Getgoods O00002002", "0|rs"),
      P(G, "parent", "", "", "Getparent O00002002", "0|rs"),
      // The checks read Exist above zero.
      P(F, "CheckCode", "1", "CheckCode Exist=2", "CheckCode 'O00001002','1'", "0|True"),
      P(F, "CheckBranch", "", "CheckBranch Exist=0", "CheckBranch 'O00001002'", "0|False"),
      P(F, "checkbranch", "", "CheckBranch Exist=1", "CheckBranch 'O00001002'", "0|True"),
      P(F, "SaldoByAccountCode", "'2410'", "GetSaldoByAccountCode Saldo=125.5",
        "GetSaldoByAccountCode '2410'", "0|125,5"),
      // A failure passes its number and text and keeps the property's value.
      P(F, "CheckBranch", "1", "CheckBranch !-7", "CheckBranch 'O00001002'", "-7 neleista|False"),
      P(F, "SaldoByAccountCode", "1", "GetSaldoByAccountCode !12",
        "GetSaldoByAccountCode 1", "12 neleista|0"),
      P(F, "CheckCode", "1", "CheckCode !3", "CheckCode 'O00001002','1'", "3 neleista|Empty"),
      P(F, "Traffic", "1", "GetTraffic !4", "GetTraffic 1", "4 neleista|Nothing"),
      P(G, "Rests", "1", "GetRests !4", "GetRests 1", "4 neleista|Empty"),
      // An answer without records is no value either.
      P(G, "Prices", "1", "GetPrices !0", "GetPrices 1", "0 neleista|Empty"),
      // A method sends only its first argument.
      M(F, "DeleteFirmInfo", {Variant("12")}, "", "ExecCall DeleteFirmInfo 12", "0|Empty"),
      M(F, "AddUpdateFirmInfo", {Variant(5), Variant("x")}, "", "ExecCall AddUpdateFirmInfo 5",
        "0|Empty"),
      M(F, "Anything", {}, "", "ExecCall Anything", "0|Empty"),
      M(F, "DeleteFirmInfo", {Variant("1")}, "DeleteFirmInfo !9", "ExecCall DeleteFirmInfo 1",
        "9 neleista|Empty"),
      // The goods know their own methods only.
      M(G, "SetTypeAndRegion", {Variant("x")}, "", "", "0|Empty"),
      // Without its argument a goods method is a bounds error and no call.
      M(G, "CopyGood", {}, "", "", "9 CopyGood: trūksta argumento|Empty"),
      M(G, "UpdateGoodsPrice", {}, "", "", "9 UpdateGoodsPrice: trūksta argumento|Empty"),
      M(G, "UpdateGaranty", {}, "", "", "9 UpdateGaranty: trūksta argumento|Empty"),
      // The copy's reference, or the failure.
      M("O0000200", "copygood", {Variant(G)}, "CopyGood OIDR=O000020012",
        "GetCall CopyGood 'O00002002','42'", "0|O000020012"),
      M("O0000200", "CopyGood", {Variant(G)}, "CopyGood !3", "GetCall CopyGood 'O00002002','42'",
        "3 neleista|Empty")};
  for (CallCase c : cases) {
    SCOPED_TRACE(std::string(c.oidr) + " " + c.name);
    const std::string oid = std::string(c.oidr).substr(0, 8);
    auto object = Object(c.oidr);
    BO(oid).ClearScripts();
    const auto reply = Split(c.reply, " ");
    if (reply.size() == 2 && reply[1][0] == '!') {
      const int32_t number = std::stoi(reply[1].substr(1));
      BO(oid).ReplyRead(reply[0], OrvelBoResult(number, "neleista"));
      BO(oid).ReplyAction(reply[0], OrvelStatus{number, "neleista"});
    } else if (reply.size() == 2) {
      const auto eq = reply[1].find('=');
      BO(oid).ReplyRead(reply[0],
                        TextRecords(reply[1].substr(0, eq), Lines{reply[1].substr(eq + 1)}));
    }
    std::string par = c.method ? "" : CStr(c.args[0]);
    auto r = c.method ? object->Methods(c.name, c.args) : object->Properties(c.name, par);
    const Variant& v = r.Value;
    const std::string value = v.ObjectAs<Recordset>() ? "rs"
                              : v.IsNothing()         ? "Nothing"
                              : v.IsEmpty()           ? "Empty"
                                                      : ConcatText(v);
    const std::string changed = c.method || par == CStr(c.args[0]) ? "" : "|" + par;
    EXPECT_EQ(std::to_string(r.Number) + (r.Text.empty() ? "" : " " + r.Text) + "|" + value +
                  changed,
              c.result);
    const std::string line = (c.method ? "" : "GetCall ") + std::string(c.line);
    EXPECT_EQ(BusinessLines(), *c.line ? Lines{line} : Lines{});
  }
}

// A new firm takes its group's type and region; at the top it asks for
// group 0, and a failure is reported and leaves the fields alone.
TEST_F(AdaptersTest, SetTypeAndRegionCopiesTheGroupsDefaults) {
  for (const bool top : {false, true}) {
    auto fresh = Object("O0000100");
    fresh->Fields("ParentID").SetValue(top ? Variant::Null() : Variant(1));
    auto defaults = TextRecords("FirmTypeId RegionID", "4|17");
    BO("O0000100").ReplyRead("GetTypeAndRegion",
                             top ? OrvelBoResult(8, "nėra") : OrvelBoResult(0, "", defaults));
    Variant::Array none;
    auto result = fresh->Methods(top ? "SetTypeAndRegion" : "settypeandregion", none);
    EXPECT_EQ(std::to_string(result.Number) + result.Text, top ? "8nėra" : "0");
    EXPECT_EQ(BusinessLines(), Lines{std::string("GetCall GetTypeAndRegion ") + (top ? "0" : "1")});
    EXPECT_EQ(ConcatText(fresh->Fields("FirmTypeId").Value()) + "|" +
                  ConcatText(fresh->Fields("RegionID").Value()),
              top ? "|" : "4|17");
  }
}

// The goods' array calls send the one argument and return the status as value.
TEST_F(AdaptersTest, GoodsArrayCallsSendTheOneArgumentAndReturnTheStatusAsValue) {
  for (const char* name :
       {"UpdateGoodsPrice", "updategoodsprice", "UpdateGaranty", "UPDATEGARANTY"}) {
    SCOPED_TRACE(name);
    auto group = Object("O00002001");
    Variant::Array received;
    BO("O0000200")
        .OnAction(UCase(name) == "UPDATEGARANTY" ? "UpdateGaranty" : "UpdateGoodsPrice",
                  [&](const std::string&, Variant::Array& args) {
                    received = args;
                    return OrvelStatus{8, "užrakinta"};
                  });
    Variant::Array params{Variant("'O00002001',5.5,1"), Variant("dropped")};
    auto result = group->Methods(name, params);
    EXPECT_TRUE(result.Number == 0 && BO("O0000200").Calls().back().param.empty());
    EXPECT_EQ(result.Value, Variant(Variant::Array{Variant(8), Variant("užrakinta")}));
    EXPECT_EQ(received, Variant::Array{Variant("'O00002001',5.5,1")});
    EXPECT_EQ(BO("O0000200").Calls().back().op, MemoryBusinessObject::Op::ExecArrayCall);
  }
}

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
// three elements read as 1, 1, 1. OK hands out the choice without storing
// it; Cancel ("" result) leaves the settings. The result is built before the
// boxes are put right: two zeros leave the dialog, yet it shows Active checked.
TEST_F(FrmPreviewTest, SettingsFillTheBoxesAndOkHandsOutTheChoiceWithoutStoringIt) {
  using Play = void (*)(frmPreview&);
  for (const auto& [settings, shown, play, result] :
       {std::tuple{"1,0,1", "101 01 11", Play{[](frmPreview& d) { d.optByCode.Click(); }}, "1,0,2"},
        {"1,1,2", "111 10 11", [](frmPreview& d) { d.chkCode.Click(); }, "1,1,0"},
        {"1,1,0", "110 01 00", [](frmPreview& d) { d.chkCode.Click(); }, "1,1,1"},
        {"1,0,1", "101 01 11", [](frmPreview& d) { d.chkActive.Click(); }, "0,0,1"},
        {"1,0,0", "100 01 00", [](frmPreview& d) { d.chkActive.Click(); }, "0,0,0"},
        {"0,1,0", "010 01 00", [](frmPreview& d) { d.chkActive.Click(); }, ""},
        {"1,0", "111 01 11", [](frmPreview& d) { d.chkNotActive.Click(); }, ""}}) {
    SCOPED_TRACE(std::string(settings) + " " + result);
    Open(settings);
    EXPECT_EQ(Shown(), shown);
    play(*dialog_);
    (*result ? dialog_->cmdOK : dialog_->cmdCancel).Click();
    EXPECT_EQ(dialog_->Accepted, *result != 0);
    EXPECT_EQ(dialog_->Settings, *result ? result : settings);
    EXPECT_EQ(dialog_->chkActive.Value(), 1);
    EXPECT_FALSE(dialog_->Loaded());
    EXPECT_FALSE(host_.Environment()->StoredSetting("O0000100", "Preview").has_value());
  }
}

// Save stores under the type, or the firms' when none is given; a non-numeric
// element is a clear error, not a crash.
TEST_F(FrmPreviewTest, SaveStoresUnderTheTypeAndBadSettingsFailClearly) {
  Open("0,1,2", "");
  EXPECT_EQ(dialog_->OType, "O0000100");
  dialog_->cmdSave.Click();
  EXPECT_TRUE(dialog_->Accepted);
  EXPECT_EQ(host_.Environment()->StoredSetting("O0000100", "Preview"), "0,1,2");
  Open("1,1,1", "O0000300");
  dialog_->cmdSave.Click();
  EXPECT_EQ(host_.Environment()->StoredSetting("O0000300", "Preview"), "1,1,1");
  EXPECT_ANY_THROW(Open("1,x,1"));
  EXPECT_FALSE(dialog_->Accepted);
}

}  // namespace
}  // namespace orvel
