#include <gtest/gtest.h>

#include <tuple>
#include <vector>

#include "adapters/UI0000100.h"
#include "firms/frmFirms.h"
#include "firms/frmPreview.h"
#include "host/Convert.h"
#include "orvel/IconsTable.h"
#include "host/MemoryRecordset.h"
#include "orvel/OrvelObjectUIO.h"
#include "orvel/OrvelServices.h"
#include "host/Text.h"
#include "support/ModuleTest.h"
#include "testhost/TestEnvironment.h"
#include "testhost/TestObjectSelect.h"
#include "testhost/TestRights.h"
#include "testhost/TestSession.h"
#include "testhost/TestWindowManager.h"

namespace orvel {
namespace {

using Right = TestRights::Right;

// A catalogue of one group (1) holding a firm (2), and a firm at the top (3).
class FirmAdaptersTest : public ModuleTest {
 protected:
  void SetUp() override {
    ModuleTest::SetUp();
    host_.Session()->SetAppTitle("Apskaita");
    host_.Session()->SetAppPath("C:\\Orvel\\");
    auto& table = BO("O0000100").Table();
    table.SetFields({"ID", "Name", "Code", "ParentID", "GroupFlag", "Active", "OwnCode",
                     "PreviewPath", "FirmTypeId", "RegionID"});
    table.SetDefault("GroupFlag", Variant(0));
    table.SetDefault("ParentID", Variant::Null());
    table.Seed({{{"Name", Variant("Tiekėjai")},
                 {"GroupFlag", Variant(1)},
                 {"ParentID", Variant::Null()},
                 {"Active", Variant(false)}},
                {{"Name", Variant("UAB Šilas")},
                 {"GroupFlag", Variant(0)},
                 {"ParentID", Variant(1)},
                 {"Active", Variant(false)}},
                {{"Name", Variant("AB Vėjas")},
                 {"GroupFlag", Variant(0)},
                 {"ParentID", Variant::Null()}}});
  }

  std::shared_ptr<OrvelObjectUI> Firms() {
    auto firms = Adapter("O0000100");
    host_.Log().Clear();
    return firms;
  }

  static std::vector<std::string> Lines(const std::optional<OrvelMenuItems>& menu) {
    std::vector<std::string> lines;
    for (const auto& item : *menu) lines.push_back(item.Key + " " + item.Caption);
    return lines;
  }

  std::vector<ScriptedUi::Box> Boxes() { return host_.Ui()->Boxes(); }
};

// ---- menus ----

struct MenuCase {
  const char* name;
  const char* oidr;
  const char* otype;
  bool canDelete;
  const char* lines;  // "key caption" of each entry, joined by "|"
};

class FirmMenuTest : public FirmAdaptersTest, public ::testing::WithParamInterface<MenuCase> {};

TEST_P(FirmMenuTest, EntriesFollowRootTypeAndRights) {
  const MenuCase& c = GetParam();
  if (!c.canDelete) host_.Rights()->Deny("CFirms", Right::Delete);
  auto menu = Firms()->GetMenu(c.oidr, c.otype, "");
  ASSERT_TRUE(menu);
  EXPECT_EQ(Join(Lines(menu), "|"), c.lines);
  for (const auto& item : *menu) {
    EXPECT_EQ(item.Tag, nullptr);
    EXPECT_EQ(item.Flags, 0);
  }
}

constexpr const char* kRootMenu =
    "2 Sukurti naują &grupę|100 -|4 &Atrinkti|5 P&eržiūros nustatymai|100 -|7 Pagalba|100 -";
constexpr const char* kFolderMenu =
    "0 Padėti &ant darbo stalo|100 -|1 Pridėti &naują įmonę|2 Sukurti naują &grupę|"
    "3 Sukurti p&ogrupį|100 -|4 &Atrinkti|5 P&eržiūros nustatymai|100 -|6 &Panaikinti|100 -|"
    "7 Pagalba|100 -";

INSTANTIATE_TEST_SUITE_P(
    Cases, FirmMenuTest,
    ::testing::Values(
        MenuCase{"Root", "O0000100", "", true, kRootMenu},
        MenuCase{"RootWithoutDelete", "O0000100", "", false, kRootMenu},
        MenuCase{"Group", "O00001001", "CGroup", true, kFolderMenu},
        // Two separators in a row stand where the delete entry would be.
        MenuCase{"GroupWithoutDelete", "O00001001", "OGroupNA", false,
                 "0 Padėti &ant darbo stalo|100 -|1 Pridėti &naują įmonę|2 Sukurti naują &grupę|"
                 "3 Sukurti p&ogrupį|100 -|4 &Atrinkti|5 P&eržiūros nustatymai|100 -|100 -|"
                 "7 Pagalba|100 -"},
        MenuCase{"FirmC", "O00001002", "C", true,
                 "0 Padėti &ant darbo stalo|100 -|1 Pridėti &naują įmonę|100 -|4 &Atrinkti|"
                 "5 P&eržiūros nustatymai|100 -|6 &Panaikinti|100 -|7 Pagalba|100 -"},
        MenuCase{"FirmTypeFirmWithoutDelete", "O00001002", "Firm", false,
                 "0 Padėti &ant darbo stalo|100 -|1 Pridėti &naują įmonę|100 -|4 &Atrinkti|"
                 "5 P&eržiūros nustatymai|100 -|100 -|7 Pagalba|100 -"},
        // "FirmNA" is neither "C" nor "Firm": the group entries show.
        MenuCase{"InactiveFirmKind", "O00001002", "FirmNA", true, kFolderMenu}),
    [](const auto& info) { return std::string(info.param.name); });

TEST_F(FirmAdaptersTest, IconsTableListsTheSixIconsInOrder) {
  auto icons = Firms()->GetIconsTable();
  ASSERT_NE(icons, nullptr);
  using Row = std::pair<std::string, std::string>;
  std::vector<Row> rows(icons->Rows().begin(), icons->Rows().end());
  ASSERT_EQ(rows.size(), 6u);
  EXPECT_EQ(icons->Item("C"), "C0000100");
  EXPECT_EQ(icons->Item("CGroup"), "stdClose");
  EXPECT_EQ(icons->Item("OGroup"), "stdOpen");
  EXPECT_EQ(icons->Item("CGroupNA"), "stdCloseNA");
  EXPECT_EQ(icons->Item("OGroupNA"), "stdOpenNA");
  EXPECT_EQ(icons->Item("FirmNA"), "FirmNA");
}

// ---- ClickMenu: windows ----

TEST_F(FirmAdaptersTest, KeyZeroBuildsTheFirmWindowWithoutShowingIt) {
  auto result = Firms()->ClickMenu("O00001002", "C", "0", "");
  EXPECT_EQ(result.Action, OrvelMenuResult::kShowWindow);
  auto window = result.Value.ObjectAs<frmFirms>();
  ASSERT_NE(window, nullptr);
  EXPECT_EQ(window->OrvelObjectUIO()->OIDR(), "O00001002");
  EXPECT_FALSE(window->Loaded());
  EXPECT_TRUE(host_.Log().Lines(Channel::Window).empty());
}

TEST_F(FirmAdaptersTest, KeyZeroWithoutTheReadRightGivesShowWindowWithNothingAndNoMessage) {
  host_.Rights()->Deny("CFirms", Right::Read);
  auto result = Firms()->ClickMenu("O00001002", "C", "0", "");
  EXPECT_EQ(result.Action, OrvelMenuResult::kShowWindow);
  EXPECT_TRUE(result.Value.IsNothing());
  EXPECT_TRUE(Boxes().empty());
}

TEST_F(FirmAdaptersTest, KeyZeroOnAGoneFirmTellsTheUser) {
  host_.Ui()->QueueAnswer(vbOK);
  auto result = Firms()->ClickMenu("O00001009", "CGroup", "0", "");
  EXPECT_EQ(result.Action, OrvelMenuResult::kShowWindow);
  EXPECT_TRUE(result.Value.IsNothing());
  ASSERT_EQ(Boxes().size(), 1u);
  // The window builder is given no type, so it names a firm even for a group.
  EXPECT_EQ(Boxes()[0].prompt, "Įmonė panaikinta!");
  EXPECT_EQ(Boxes()[0].flags, 16);
  EXPECT_EQ(Boxes()[0].title, "Apskaita");
}

struct CreateCase {
  const char* name;
  const char* oidr;
  const char* otype;
  const char* key;
  Variant parentId;
  Variant groupFlag;
};

class FirmCreateTest : public FirmAdaptersTest, public ::testing::WithParamInterface<CreateCase> {};

TEST_P(FirmCreateTest, NewRecordGetsParentAndGroupFlag) {
  const CreateCase& c = GetParam();
  auto result = Firms()->ClickMenu(c.oidr, c.otype, c.key, "");
  EXPECT_EQ(result.Action, OrvelMenuResult::kShowWindow);
  auto window = result.Value.ObjectAs<frmFirms>();
  ASSERT_NE(window, nullptr);
  auto object = window->OrvelObjectUIO();
  EXPECT_EQ(object->OIDR(), "");
  EXPECT_EQ(object->Fields("ParentID").Value(), c.parentId);
  EXPECT_EQ(object->Fields("GroupFlag").Value(), c.groupFlag);
  EXPECT_EQ(object->Fields("Active").Value(), Variant(true));
  EXPECT_FALSE(window->Loaded());
}

INSTANTIATE_TEST_SUITE_P(
    Cases, FirmCreateTest,
    ::testing::Values(
        CreateCase{"FirmInGroup", "O00001001", "CGroup", "1", Variant(1), Variant(0)},
        CreateCase{"FirmBesideFirm", "O00001002", "C", "1", Variant(1), Variant(0)},
        CreateCase{"GroupBesideGroup", "O00001001", "CGroup", "2", Variant::Null(), Variant(1)},
        CreateCase{"GroupBesideFirmInGroup", "O00001002", "C", "2", Variant(1), Variant(1)},
        // Val of a Null parent joined to "" is 0, written back as Null.
        CreateCase{"GroupBesideTopFirm", "O00001003", "C", "2", Variant::Null(), Variant(1)},
        CreateCase{"SubgroupOfGroup", "O00001001", "CGroup", "3", Variant(1), Variant(1)},
        // Not offered on a firm; it makes a group beside the firm.
        CreateCase{"SubgroupKeyOnFirm", "O00001002", "C", "3", Variant(1), Variant(1)},
        CreateCase{"GroupAtRoot", "O0000100", "", "2", Variant::Null(), Variant(1)}),
    [](const auto& info) { return std::string(info.param.name); });

class FirmCreateGoneTest
    : public FirmAdaptersTest,
      public ::testing::WithParamInterface<std::tuple<const char*, const char*>> {};

TEST_P(FirmCreateGoneTest, CreatingUnderAGoneRecordStopsWithItsMessage) {
  auto [otype, prompt] = GetParam();
  host_.Ui()->QueueAnswer(vbOK);
  auto result = Firms()->ClickMenu("O00001009", otype, "1", "");
  EXPECT_EQ(result.Action, OrvelMenuResult::kNothing);
  EXPECT_TRUE(result.Value.IsEmpty());
  ASSERT_EQ(Boxes().size(), 1u);
  EXPECT_EQ(Boxes()[0].prompt, prompt);
  EXPECT_EQ(Boxes()[0].flags, 16);
}

INSTANTIATE_TEST_SUITE_P(Types, FirmCreateGoneTest,
                         ::testing::Values(std::make_tuple("C", "Įmonė panaikinta!"),
                                           std::make_tuple("CGroup", "Įmonių grupė panaikinta!"),
                                           std::make_tuple("", "Įmonių grupė panaikinta!")));

TEST_F(FirmAdaptersTest, CreatingWithoutTheReadRightGivesNothing) {
  host_.Rights()->Deny("CFirms", Right::Read);
  auto result = Firms()->ClickMenu("O00001001", "CGroup", "1", "");
  EXPECT_EQ(result.Action, OrvelMenuResult::kNothing);
  EXPECT_TRUE(Boxes().empty());
}

// ---- ClickMenu: lists ----

class FirmFilterTest : public FirmAdaptersTest,
                       public ::testing::WithParamInterface<const char*> {};

TEST_P(FirmFilterTest, FilterSendsTheTextAndBothSearchOptions) {
  host_.HostClasses()->QueueObjectSelect("šil", 1, 2);
  auto result = Firms()->ClickMenu("O00001001", "CGroup", GetParam(), "");
  EXPECT_EQ(result.Action, OrvelMenuResult::kReplaceList);
  const auto& value = result.Value.ArrayValue();
  ASSERT_EQ(value.size(), 2u);
  EXPECT_NE(value[0].ObjectAs<Recordset>(), nullptr);
  EXPECT_EQ(value[1], Variant("šil"));
  EXPECT_EQ(BusinessLines(), std::vector<std::string>{"GetCall Orvel_GetObjectList '','šil',1,2"});
  auto dialog = host_.HostClasses()->LastObjectSelect();
  EXPECT_TRUE(dialog->MultiSelect());
  EXPECT_EQ(dialog->OType(), "O0000100");
}

TEST_P(FirmFilterTest, AnEmptyFilterAnswerDoesNothing) {
  auto result = Firms()->ClickMenu("O0000100", "", GetParam(), "");
  EXPECT_EQ(result.Action, OrvelMenuResult::kNothing);
  EXPECT_TRUE(BusinessLines().empty());
}

INSTANTIATE_TEST_SUITE_P(MenuAndChord, FirmFilterTest, ::testing::Values("4", "70S2"));

class FirmPreviewKeyTest : public FirmAdaptersTest,
                           public ::testing::WithParamInterface<const char*> {};

TEST_P(FirmPreviewKeyTest, AcceptedSettingsReplaceTheListThroughTheTypesOwnList) {
  auto firms = Firms();
  std::string given, otype;
  host_.Ui()->QueueModal([&](Form& form) {
    auto& dialog = dynamic_cast<frmPreview&>(form);
    given = dialog.Settings;
    otype = dialog.OType;
    dialog.chkNotActive.Click();
    dialog.optByCode.Click();
    dialog.cmdOK.Click();
  });
  auto result = firms->ClickMenu("O0000100", "", GetParam(), "");
  EXPECT_EQ(given, "1,0,1");
  EXPECT_EQ(otype, "O0000100");
  EXPECT_EQ(result.Action, OrvelMenuResult::kReplaceList);
  ASSERT_EQ(result.Value.ArrayValue().size(), 2u);
  EXPECT_EQ(result.Value.ArrayValue()[1], Variant(""));
  EXPECT_EQ(BusinessLines(), std::vector<std::string>{"GetCall Orvel_GetObjectList '','',1,1,2"});
  // Applied, not stored.
  EXPECT_FALSE(host_.Environment()->StoredSetting("O0000100", "Preview").has_value());
  EXPECT_EQ(std::dynamic_pointer_cast<UI0000100>(firms)->PreviewSettings(), "1,1,2");
}

TEST_P(FirmPreviewKeyTest, CancelledSettingsChangeNothing) {
  auto firms = Firms();
  host_.Ui()->QueueModal([](Form& form) { dynamic_cast<frmPreview&>(form).cmdCancel.Click(); });
  auto result = firms->ClickMenu("O0000100", "", GetParam(), "");
  EXPECT_EQ(result.Action, OrvelMenuResult::kNothing);
  EXPECT_TRUE(BusinessLines().empty());
  EXPECT_EQ(std::dynamic_pointer_cast<UI0000100>(firms)->PreviewSettings(), "1,0,1");
}

INSTANTIATE_TEST_SUITE_P(MenuAndChord, FirmPreviewKeyTest, ::testing::Values("5", "82S2"));

TEST_F(FirmAdaptersTest, RefreshKeyIgnoresPreviewSettings) {
  host_.Environment()->PresetSetting("O0000100", "Preview", "0,1,2");
  auto result = Firms()->ClickMenu("O00001001", "CGroup", "116S0", "");
  EXPECT_EQ(result.Action, OrvelMenuResult::kReplaceList);
  ASSERT_EQ(result.Value.ArrayValue().size(), 2u);
  EXPECT_NE(result.Value.ArrayValue()[0].ObjectAs<Recordset>(), nullptr);
  EXPECT_EQ(result.Value.ArrayValue()[1], Variant(""));
  EXPECT_EQ(BusinessLines(), std::vector<std::string>{"GetCall Orvel_GetObjectList ''"});
}

TEST_F(FirmAdaptersTest, PreviewSettingsAreReadWhenTheServicesAreSet) {
  host_.Environment()->PresetSetting("O0000100", "Preview", "0,1,2");
  auto firms = Firms();
  firms->GetOrvelObjectList("O00001001", "x", "y");
  EXPECT_EQ(BusinessLines(),
            std::vector<std::string>{"GetCall Orvel_GetObjectList 'O00001001','',0,1,2"});
}

TEST_F(FirmAdaptersTest, AListArgumentWithAnApostropheGoesOnUnchanged) {
  Firms()->GetOrvelObjectList("'','šil',0,0", "", "");
  EXPECT_EQ(BusinessLines(), std::vector<std::string>{"GetCall Orvel_GetObjectList '','šil',0,0"});
}

TEST_F(FirmAdaptersTest, ASecondServicesSetReReadsTitleAndSettingsThroughTheStoredOnes) {
  auto firms = Firms();
  host_.Session()->SetAppTitle("Kita");
  host_.Environment()->PresetSetting("O0000100", "Preview", "1,1,0");
  firms->SetOrvelS(nullptr);  // not stored: the first services stay
  EXPECT_NE(OrvelS(), nullptr);
  auto* own = dynamic_cast<UI0000100*>(firms.get());
  EXPECT_EQ(own->MsgTitle(), "Kita");
  EXPECT_EQ(own->PreviewSettings(), "1,1,0");
}

// ---- ClickMenu: delete, help, others ----

TEST_F(FirmAdaptersTest, DeleteAsksOkCancelAndReportsRemovalOnOk) {
  auto firms = Firms();
  host_.Ui()->QueueAnswer(vbCancel);
  EXPECT_EQ(firms->ClickMenu("O00001002", "C", "6", "").Action, OrvelMenuResult::kNothing);
  EXPECT_TRUE(BO("O0000100").Table().Contains(2));
  host_.Ui()->QueueAnswer(vbOK);
  EXPECT_EQ(firms->ClickMenu("O00001002", "C", "6", "").Action, OrvelMenuResult::kRemoved);
  EXPECT_FALSE(BO("O0000100").Table().Contains(2));
  ASSERT_EQ(Boxes().size(), 2u);
  EXPECT_EQ(Boxes()[0].prompt, "Ar tikrai norite panaikinti?");
  EXPECT_EQ(Boxes()[0].flags, 49);
  EXPECT_EQ(Boxes()[0].title, "Apskaita");
}

TEST_F(FirmAdaptersTest, DeleteWithoutTheRightDoesNothingAndReadsAsSuccess) {
  host_.Rights()->Deny("CFirms", Right::Delete);
  auto firms = Firms();
  EXPECT_EQ(firms->DeleteOrvelObject("O00001002"), 0);
  host_.Ui()->QueueAnswer(vbOK);
  EXPECT_EQ(firms->ClickMenu("O00001002", "C", "6", "").Action, OrvelMenuResult::kRemoved);
  EXPECT_TRUE(BO("O0000100").Table().Contains(2));
  EXPECT_TRUE(BusinessLines().empty());
}

TEST_F(FirmAdaptersTest, HelpKeyAsksTheHostForTheFirmsPage) {
  auto result = Firms()->ClickMenu("O0000100", "", "7", "");
  EXPECT_EQ(result.Action, OrvelMenuResult::kNothing);
  auto lines = host_.Log().Lines(Channel::Host);
  ASSERT_EQ(lines.size(), 1u);
  EXPECT_NE(lines[0].find("ShowHelp"), std::string::npos);
  EXPECT_NE(lines[0].find("Įmonės"), std::string::npos);
  EXPECT_NE(lines[0].find("C:\\Orvel\\help\\imones.htm"), std::string::npos);
}

TEST_F(FirmAdaptersTest, UnknownKeysDoNothing) {
  auto firms = Firms();
  for (const char* key : {"", "8", "100", "116S2", "82S0"}) {
    auto result = firms->ClickMenu("O00001002", "C", key, "");
    EXPECT_EQ(result.Action, OrvelMenuResult::kNothing) << key;
  }
  EXPECT_TRUE(BusinessLines().empty());
  EXPECT_TRUE(Boxes().empty());
}

// ---- tree operations ----

TEST_F(FirmAdaptersTest, DragIsAlwaysAllowedAndDropNever) {
  auto firms = Firms();
  for (const char* oidr : {"", "O0000100", "O00001001", "O00001002", "garbage"}) {
    EXPECT_TRUE(firms->DragOK(oidr, "C", "")) << oidr;
    EXPECT_FALSE(firms->DropOK(oidr)) << oidr;
  }
}

TEST_F(FirmAdaptersTest, AddToDesktopShowsTheWindowOnceAndFailsOnAGoneFirm) {
  auto firms = Firms();
  // The card's own read fails on this fixture's firm (no CreatedByUser) and says so.
  for (int box = 0; box < 2; ++box) host_.Ui()->QueueAnswer(vbOK);
  EXPECT_TRUE(firms->AddToDeskTopOrvelObject("O00001002"));
  EXPECT_EQ(host_.WindowManager()->Count(), 1u);
  EXPECT_TRUE(firms->AddToDeskTopOrvelObject("O00001002"));
  EXPECT_EQ(host_.WindowManager()->Count(), 1u);
  EXPECT_FALSE(firms->AddToDeskTopOrvelObject("O00001009"));
  host_.Rights()->Deny("CFirms", Right::Read);
  EXPECT_FALSE(firms->AddToDeskTopOrvelObject("O00001003"));
}

// ---- UIO0000100 ----

TEST_F(FirmAdaptersTest, ReadMakesANewFirmActiveAndLeavesASavedOneAlone) {
  auto firms = Firms();
  auto fresh = firms->GetOrvelObject("");
  ASSERT_NE(fresh, nullptr);
  EXPECT_EQ(fresh->Fields("Active").Value(), Variant(true));
  EXPECT_EQ(fresh->GetGUID(), "");
  auto saved = firms->GetOrvelObject("O00001002");
  ASSERT_NE(saved, nullptr);
  EXPECT_EQ(saved->Fields("Active").Value(), Variant(false));
  EXPECT_EQ(saved->RsFields()->MarshalOptions(), 1);
}

struct PropertyCase {
  const char* name;
  const char* par;
  const char* line;
  const char* parAfter = nullptr;  // the caller's parameter afterwards; null: unchanged
};

class FirmPropertyTest : public FirmAdaptersTest,
                         public ::testing::WithParamInterface<PropertyCase> {};

TEST_P(FirmPropertyTest, SendsItsCallAndParameterString) {
  const PropertyCase& c = GetParam();
  auto firm = Firms()->GetOrvelObject("O00001002");
  ASSERT_NE(firm, nullptr);
  host_.Log().Clear();
  std::string par = c.par;
  auto result = firm->Properties(c.name, par);
  EXPECT_EQ(result.Number, 0);
  EXPECT_EQ(BusinessLines(), std::vector<std::string>{c.line});
  EXPECT_EQ(par, c.parAfter ? c.parAfter : c.par);
}

INSTANTIATE_TEST_SUITE_P(
    Names, FirmPropertyTest,
    ::testing::Values(
        PropertyCase{"Accounts", "ignored", "GetCall GetAccounts O00001002"},
        PropertyCase{"Firms", "", "GetCall GetFirms O00001002"},
        PropertyCase{"firms", "", "GetCall Getfirms O00001002"},
        PropertyCase{"FindGoods", "abc", "GetCall GetFindGoods 'O00001002','abc'"},
        PropertyCase{"FirmInfo", "", "GetCall GetFirmInfo 'O00001002',0", "0"},
        PropertyCase{"FirmInfo", "7", "GetCall GetFirmInfo 'O00001002',7"},
        PropertyCase{"CheckCode", "123", "GetCall CheckCode 'O00001002','123'"},
        PropertyCase{"CHECKCODE", "", "GetCall CheckCode 'O00001002',''"},
        PropertyCase{"CheckBranch", "x", "GetCall CheckBranch 'O00001002'"},
        PropertyCase{"SaldoByAccountCode", "'2410'", "GetCall GetSaldoByAccountCode '2410'"},
        PropertyCase{"Traffic", "", "GetCall GetTraffic O00001002"},
        PropertyCase{"TypeAndRegion", "1", "GetCall GetTypeAndRegion 1"},
        PropertyCase{"FirmADDRESSES", "", "GetCall GetFirmADDRESSES O00001002"},
        PropertyCase{"FirmCONTACTS", "", "GetCall GetFirmCONTACTS O00001002"},
        PropertyCase{"FirmSERVERS", "", "GetCall GetFirmSERVERS O00001002"},
        PropertyCase{"FirmParameters", "'O00001002',3", "GetCall GetFirmParameters 'O00001002',3"},
        PropertyCase{"Discounts", "", "GetCall GetDiscounts O00001002"}));

std::shared_ptr<MemoryRecordset> OneRow(const std::string& field, Variant value) {
  auto rs = std::make_shared<MemoryRecordset>(std::vector<std::string>{field});
  rs->AddRow({std::move(value)});
  return rs;
}

TEST_F(FirmAdaptersTest, CheckPropertiesReadExistAboveZero) {
  auto firm = Firms()->GetOrvelObject("O00001002");
  BO("O0000100").ReplyRead("CheckCode", OneRow("Exist", Variant(2)));
  BO("O0000100").ReplyRead("CheckBranch", OneRow("Exist", Variant(0)));
  EXPECT_EQ(firm->Properties("CheckCode", "1").Value, Variant(true));
  EXPECT_EQ(firm->Properties("CheckBranch", "").Value, Variant(false));
  BO("O0000100").ReplyRead("CheckBranch", OneRow("Exist", Variant(1)));
  EXPECT_EQ(firm->Properties("checkbranch", "").Value, Variant(true));
}

TEST_F(FirmAdaptersTest, FailedPropertiesCopyNumberAndTextAndKeepTheirValue) {
  auto firm = Firms()->GetOrvelObject("O00001002");
  auto& bo = BO("O0000100");
  bo.ReplyRead("CheckBranch", OrvelBoResult(-7, "nėra ryšio"));
  bo.ReplyRead("GetSaldoByAccountCode", OrvelBoResult(12, "blogai"));
  bo.ReplyRead("CheckCode", OrvelBoResult(3, "klaida"));
  bo.ReplyRead("GetTraffic", OrvelBoResult(4, "neleista"));

  auto branch = firm->Properties("CheckBranch", "");
  EXPECT_EQ(branch.Number, -7);
  EXPECT_EQ(branch.Text, "nėra ryšio");
  EXPECT_EQ(branch.Value, Variant(false));
  auto saldo = firm->Properties("SaldoByAccountCode", "1");
  EXPECT_EQ(saldo.Number, 12);
  EXPECT_EQ(saldo.Text, "blogai");
  EXPECT_EQ(saldo.Value, Variant(0));
  auto code = firm->Properties("CheckCode", "1");
  EXPECT_EQ(code.Number, 3);
  EXPECT_TRUE(code.Value.IsEmpty());
  auto traffic = firm->Properties("Traffic", "");
  EXPECT_EQ(traffic.Number, 4);
  EXPECT_EQ(traffic.Text, "neleista");
}

TEST_F(FirmAdaptersTest, SaldoIsTheSaldoFieldOfTheReply) {
  auto firm = Firms()->GetOrvelObject("O00001002");
  BO("O0000100").ReplyRead("GetSaldoByAccountCode", OneRow("Saldo", Variant(125.5)));
  EXPECT_EQ(firm->Properties("SaldoByAccountCode", "'2410'").Value, Variant(125.5));
}

TEST_F(FirmAdaptersTest, ParentIsTheGroupObjectOrNothingAtTheTop) {
  auto firms = Firms();
  auto inGroup = firms->GetOrvelObject("O00001002");
  auto parent = inGroup->Properties("Parent", "").Value.ObjectAs<OrvelObjectUIO>();
  ASSERT_NE(parent, nullptr);
  EXPECT_EQ(parent->OIDR(), "O00001001");
  auto top = firms->GetOrvelObject("O00001003");
  auto none = top->Properties("Parent", "");
  EXPECT_EQ(none.Number, 0);
  EXPECT_TRUE(none.Value.IsNothing());
}

TEST_F(FirmAdaptersTest, GetObjectFormBuildsAWindowOnThisObject) {
  auto firm = Firms()->GetOrvelObject("O00001002");
  auto window = firm->Properties("GetObjectForm", "").Value.ObjectAs<frmFirms>();
  ASSERT_NE(window, nullptr);
  EXPECT_EQ(window->OrvelObjectUIO(), firm);
  EXPECT_FALSE(window->Loaded());
}

struct MethodCase {
  const char* name;
  Variant::Array params;
  const char* line;
};

class FirmMethodTest : public FirmAdaptersTest, public ::testing::WithParamInterface<MethodCase> {};

TEST_P(FirmMethodTest, OtherMethodsSendOnlyTheFirstParameter) {
  MethodCase c = GetParam();
  auto firm = Firms()->GetOrvelObject("O00001002");
  host_.Log().Clear();
  auto result = firm->Methods(c.name, c.params);
  EXPECT_EQ(result.Number, 0);
  EXPECT_EQ(BusinessLines(), std::vector<std::string>{c.line});
}

INSTANTIATE_TEST_SUITE_P(
    Names, FirmMethodTest,
    ::testing::Values(MethodCase{"DeleteFirmInfo", {Variant("12")}, "ExecCall DeleteFirmInfo 12"},
                      MethodCase{"AddUpdateFirmInfo",
                                 {Variant(5), Variant("dropped")},
                                 "ExecCall AddUpdateFirmInfo 5"},
                      MethodCase{"Anything", {}, "ExecCall Anything"}));

TEST_F(FirmAdaptersTest, FailedMethodCopiesNumberAndText) {
  auto firm = Firms()->GetOrvelObject("O00001002");
  BO("O0000100").ReplyAction("DeleteFirmInfo", OrvelStatus{9, "užimta"});
  Variant::Array params{Variant("1")};
  auto result = firm->Methods("DeleteFirmInfo", params);
  EXPECT_EQ(result.Number, 9);
  EXPECT_EQ(result.Text, "užimta");
}

TEST_F(FirmAdaptersTest, SetTypeAndRegionCopiesTheGroupsDefaults) {
  auto firms = Firms();
  auto fresh = firms->GetOrvelObject("");
  fresh->Fields("ParentID").SetValue(Variant(1));
  auto defaults =
      std::make_shared<MemoryRecordset>(std::vector<std::string>{"FirmTypeId", "RegionID"});
  defaults->AddRow({Variant(4), Variant(17)});
  BO("O0000100").ReplyRead("GetTypeAndRegion", defaults);
  host_.Log().Clear();
  Variant::Array none;
  auto result = fresh->Methods("settypeandregion", none);
  EXPECT_EQ(result.Number, 0);
  EXPECT_EQ(BusinessLines(), std::vector<std::string>{"GetCall GetTypeAndRegion 1"});
  EXPECT_EQ(fresh->Fields("FirmTypeId").Value(), Variant(4));
  EXPECT_EQ(fresh->Fields("RegionID").Value(), Variant(17));
}

TEST_F(FirmAdaptersTest, SetTypeAndRegionAtTheTopAsksForGroupZeroAndReportsFailure) {
  auto fresh = Firms()->GetOrvelObject("");
  BO("O0000100").ReplyRead("GetTypeAndRegion", OrvelBoResult(8, "nėra"));
  host_.Log().Clear();
  Variant::Array none;
  auto result = fresh->Methods("SetTypeAndRegion", none);
  EXPECT_EQ(result.Number, 8);
  EXPECT_EQ(result.Text, "nėra");
  EXPECT_EQ(BusinessLines(), std::vector<std::string>{"GetCall GetTypeAndRegion 0"});
  EXPECT_TRUE(fresh->Fields("FirmTypeId").Value().IsEmpty());
}

}  // namespace
}  // namespace orvel
