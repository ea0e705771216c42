#include <gtest/gtest.h>

#include "common/Boundary.h"
#include "common/Catalogue.h"
#include "host/Convert.h"
#include "host/Dictionary.h"
#include "host/MemoryRecordset.h"
#include "orvel/OrvelObjectUIO.h"
#include "orvel/RuntimeError.h"
#include "support/BoxLines.h"
#include "support/ModuleTest.h"
#include "support/TextRecords.h"
#include "testhost/TestGroupSelect.h"
#include "testhost/TestRights.h"
#include "testhost/TestSession.h"
#include "testhost/TestUser.h"
#include "testhost/TestWindowManager.h"
#include "ui/TextBox.h"

namespace orvel {
namespace {

TEST(Catalogue, KeyFilterDecimalLetsDigitsAndOneDecimalCommaThrough) {
  for (const auto& [key, text, expected] : {std::tuple<int, const char*, int>{'0', "", '0'},
                                            {8, "1,5", 8}, {'.', "15", ','}, {',', "15", ','},
                                            {'.', "1,5", 0}, {'-', "", 0}, {'a', "", 0},
                                            {13, "1", 0}, {'9', "1,5", '9'}, {',', "1,5", 0},
                                            {' ', "1", 0}}) {
    EXPECT_EQ(KeyFilterDecimal(key, text), expected) << key << " into '" << text << "'";
  }
}

struct FormatCase {
  const char* text;
  int decimals;
  bool zeroIfBlank;
  const char* expected;
  bool invariant = false;  // under the invariant locale rather than the Lithuanian
};

using FormatDecimalTextTest = ModuleTest;

TEST_F(FormatDecimalTextTest, FormatsNumbersInTheUisLocaleWithoutGroupingAndBlankAsZero) {
  for (const FormatCase& c :
       {FormatCase{"1,5", 2, false, "1,50"}, FormatCase{"1234,5", 2, false, "1234,50"},
        FormatCase{"2,675", 2, false, "2,68"}, FormatCase{"1,23456", 4, true, "1,2346"},
        FormatCase{"abc", 4, false, ""}, FormatCase{"abc", 4, true, "0,00"},
        FormatCase{"", 0, true, "0,00"}, FormatCase{"1234.5", 2, false, "1234.50", true},
        FormatCase{"x", 2, true, "0.00", true}}) {
    if (c.invariant) host_.Ui()->SetLocale(Locale::Invariant());
    EXPECT_EQ(FormatDecimalText(c.text, c.decimals, c.zeroIfBlank), c.expected) << c.text;
  }
}

TEST(Catalogue, NullToLongGivesZeroForNullAndConvertsTheRest) {
  for (const auto& [value, expected] : {std::pair<Variant, int32_t>{Variant::Null(), 0},
                                        {Variant(), 0}, {2.5, 2}, {"17", 17}}) {
    EXPECT_EQ(NullToLong(value), expected) << Describe(value);
  }
}

// A repeated column key is refused.
TEST(Catalogue, ParseColumnConfigSplitsPrintParametersAndNumbersTheColumns) {
  Dictionary print, columns;
  columns.Add("old", Variant(1));
  ParseColumnConfig("A4;1;0#Code;1;800#Name;0;3000", print, columns);
  ASSERT_TRUE(print.Exists("JPrintParams"));
  EXPECT_EQ(print.Item("JPrintParams"),
            Variant(Variant::Array{Variant("A4"), Variant("1"), Variant("0")}));
  EXPECT_EQ(columns.Keys(), (std::vector<std::string>{"Code", "Name"}));
  EXPECT_EQ(columns.Item("Name"),
            Variant(Variant::Array{Variant("Name"), Variant("0"), Variant("3000"), Variant("2")}));
  EXPECT_THROW(ParseColumnConfig("#Code;1#Code;2", print, columns), RuntimeError);
}

TEST(Catalogue, FilterRecordsetKeepsTheFilterOnlyWhenRowsAreLeft) {
  auto rs = TextRecords("Code", {"EUR", "USD"});
  EXPECT_TRUE(FilterRecordset(rs, "Code = 'usd'"));
  EXPECT_EQ(rs->RecordCount(), 1);
  EXPECT_FALSE(FilterRecordset(rs, "Code = 'GBP'"));
  EXPECT_EQ(rs->RecordCount(), 2);
  EXPECT_FALSE(rs->IsEOF());
  EXPECT_FALSE(FilterRecordset(nullptr, "Code = 'EUR'"));
  EXPECT_FALSE(FilterRecordset(std::make_shared<MemoryRecordset>(), "Code = 'EUR'"));
}

class CatalogueHostTest : public ModuleTest {
 protected:
  void SetUp() override {
    ModuleTest::SetUp();
    auto& table = BO("O0000400").Table();
    table.SetFields({"ID", "Name", "CreatedByUser", "CreationDate", "UpdatedByUser", "UpdateDate"});
    table.Seed(SeedRows("Name CreatedByUser CreationDate UpdatedByUser UpdateDate",
                        {"kilogramas|Ona|@2024-03-01|~|~",
                         "metras|Ona|@2024-03-01|Petras|@2025-01-15"}));
    table.SetDefault("CreationDate", Variant::Null());
    table.SetDefault("UpdatedByUser", Variant::Null());
    table.SetDefault("UpdateDate", Variant::Null());
    Adapter("O0000400");
    host_.Log().Clear();
  }

  std::shared_ptr<OrvelObjectUIO> Object(const std::string& oidr) {
    return host_.ObjectManager()->GetOrvelObject(oidr);
  }
};

// A new record names the present user as its creator; a stored one shows its
// former updater, then records the present one.
TEST_F(CatalogueHostTest, CreatorLineShowsTheCreatorAndTheFormerUpdaterAndRecordsThePresentUser) {
  auto fresh = Adapter("O0000400")->GetOrvelObject("");
  ASSERT_NE(fresh, nullptr);
  EXPECT_EQ(CreatorLine(*fresh), "Sukūrė:Jonas Jonaitis");
  EXPECT_EQ(fresh->Fields("CreatedByUser").Value(), Variant("Jonas Jonaitis"));
  EXPECT_TRUE(fresh->Fields("UpdatedByUser").Value().IsNull());
  auto created = Object("O00004001");
  EXPECT_EQ(CreatorLine(*created), "Sukūrė:Ona(2024-03-01)");
  EXPECT_EQ(created->Fields("UpdatedByUser").Value(), Variant("Jonas Jonaitis"));
  EXPECT_EQ(CreatorLine(*Object("O00004002")),
            "Sukūrė:Ona(2024-03-01), koregavo:Petras(2025-01-15)");
}

TEST_F(CatalogueHostTest, GetObjectRightsAsksTheFourRightsInOrder) {
  host_.Rights()->Deny("CFirms", TestRights::Right::Delete);
  auto rights = GetObjectRights("CFirms");
  EXPECT_EQ((std::vector{rights.CanRead, rights.CanDelete, rights.CanUpdate, rights.CanInsert}),
            (std::vector{true, false, true, true}));
  EXPECT_EQ(host_.Log().Lines(Channel::Rights),
            (std::vector<std::string>{"CanRead CFirms 0", "CanDelete CFirms 0",
                                      "CanUpdate CFirms 0", "CanInsert CFirms 0"}));
}

// A failure that reaches an event's boundary is shown under the window's own
// title; without one, under the session's; before any session, under the
// suite's name. Its text is Lithuanian like every other box.
TEST_F(CatalogueHostTest, AFailureAtTheBoundaryTakesTheWindowsTitleOrTheSessions) {
  for (int box = 0; box < 4; ++box) host_.Ui()->QueueAnswer(vbOK);
  ShowStop("Neteisinga kaina", "Orvel");  // the stop icon with OK
  host_.Session()->SetAppTitle("Mano apskaita");
  auto fail = [] { throw RuntimeError(RuntimeError::kObjectNotSet, "Nėra laukų"); };
  Handle("Orvelta", fail);
  Handle(fail);
  ResetOrvelS();
  Handle([] { Services(); });
  EXPECT_EQ(Boxes(),
            (std::vector<std::string>{
                "16 Orvel Neteisinga kaina", "16 Orvelta Klaida!\nNėra laukų",
                "16 Mano apskaita Klaida!\nNėra laukų",
                "16 Orvel Apskaita Klaida!\nPagrindinė programa dar nepateikė modulio paslaugų"}));
}

TEST_F(CatalogueHostTest, ShowReferenceShowsTheObjectOrClearsTheBox) {
  TextBox box("txtGroup");
  EXPECT_EQ(ShowReference("O00004002", &box) + "|" + box.Text() + "|" + box.Tag(),
            "metras|metras|O00004002");
  for (const char* nothing : {"O00004000", "O0000400", "", "O00004009"}) {
    box.SetText("x");
    box.SetTag("y");
    EXPECT_EQ(ShowReference(nothing, &box) + "|" + box.Text() + "|" + box.Tag(), "||") << nothing;
  }
  EXPECT_EQ(ShowReference("O00004001", nullptr), "kilogramas");
}

TEST_F(CatalogueHostTest, SelectGroupPutsTheLastReferenceOfThePickedPathIntoTheBox) {
  TextBox box("txtGroup");
  host_.HostClasses()->QueueGroupSelect("O00004001O00004002", "metras", "O0000400");
  EXPECT_EQ(SelectGroup("O0000400", "Pažymėkite norimą grupę", &box, std::string("Group")),
            "O00004002");
  EXPECT_EQ(box.Text() + "|" + box.Tag(), "metras|O00004002");
  auto picker = host_.HostClasses()->LastGroupSelect();
  ASSERT_NE(picker, nullptr);
  EXPECT_EQ(picker->Caption() + "|" + picker->SelectKind() + "|" +
                std::to_string(picker->ShowCount()),
            "Pažymėkite norimą grupę|Group|1");
  // Without a box the name travels in the result.
  host_.HostClasses()->QueueGroupSelect("O00004002", "metras", "O0000400");
  EXPECT_EQ(SelectGroup("O0000400", "Grupė", nullptr), "O00004002_metras");
  // The root clears the box; a cancel or another type leaves it.
  host_.HostClasses()->QueueGroupSelect("O0000400", "", "O0000400");
  EXPECT_EQ(SelectGroup("O0000400", "Grupė", &box), "O0000400");
  EXPECT_EQ(box.Text(), "");
  box.SetText("kept");
  EXPECT_EQ(SelectGroup("O0000400", "Grupė", &box), "");  // nothing queued: cancelled
  host_.HostClasses()->QueueGroupSelect("O00001007", "UAB", "O0000100");
  EXPECT_EQ(SelectGroup("O0000400", "Grupė", &box, std::nullopt, "O0000400"), "");
  EXPECT_EQ(box.Text(), "kept");
}

}  // namespace
}  // namespace orvel
