#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <tuple>

#include "CatalogueCallsFixture.h"
#include "bizlayer/SchemaParts.h"
#include "host/MemoryRecordset.h"

namespace orvel {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;

class TableBusinessObjectTest : public CatalogueCallsFixture, public ::testing::Test {
 protected:
  std::shared_ptr<Recordset> Record(const std::string& oidr) {
    return Read(oidr.substr(0, 8), "Orvel_ReadObject", "'" + oidr + "'");
  }
  std::string Path(const std::string& oidr) {
    return ConcatText(Record(oidr)->Fields("PreviewPath").Value());
  }
};

// A grouped record names the groups above it, top first, each followed by "\\"; the card shows that
// path before its group's name. A catalogue without groups has no path.
TEST_F(TableBusinessObjectTest, AGroupedRecordCarriesThePathOfItsGroups) {
  Made("O0000100", {{"Name", Variant("Tiekėjai")}, {"GroupFlag", Variant(1)}});
  Made("O0000100",
       {{"Name", Variant("O'Brien grupė")}, {"GroupFlag", Variant(1)}, {"ParentID", Variant(1)}});
  Made("O0000100", {{"Name", Variant("UAB Alfa")}, {"ParentID", Variant(2)}});
  EXPECT_EQ(Path("O00001003") + "|" + Path("O00001002") + "|" + Path("O00001001"),
            "Tiekėjai\\O'Brien grupė\\|Tiekėjai\\|");
  Made("O0000300", {{"Name", Variant("AB SEB bankas")}});
  EXPECT_FALSE(Record("O00003001")->Fields().Exists("PreviewPath"));
}

TEST_F(TableBusinessObjectTest, AFailedSaveLeavesTheTableAsItWas) {
  Made("O0000300", {{"Name", Variant("AB SEB bankas")}});
  auto rs = Record("O00003001");
  rs->Fields("Name").SetValue(Variant("Pakeistas"));
  rs->Fields("Code").SetValue(Variant(std::make_shared<MemoryRecordset>()));  // cannot be stored
  auto status = Save("O0000300", "O00003001", rs);
  EXPECT_EQ(status.Number, TableBusinessObject::kDatabaseError);
  EXPECT_EQ(Record("O00003001")->Fields("Name").Value(), Variant("AB SEB bankas"));

  Variant::Array empty;
  status = Type("O0000300").ExecArrayCall("Orvel_SaveObject", "'O0000300',''", empty);
  EXPECT_NE(status.Number, 0);
  EXPECT_EQ(One("SELECT COUNT(*) FROM banks"), Variant(1));
  auto unknown = Type("O0000300").GetCall("GetNothing", "", 0);
  EXPECT_EQ(unknown.Number, 5);
  EXPECT_EQ(unknown.Text, "O0000300 neturi skaitymo kvietimo GetNothing");
}

// The card's fields and their captions, also asked by the type's OID alone.
TEST_F(TableBusinessObjectTest, StructureComesFromTheFieldDescriptions) {
  auto rs = Read("O0000300", "Orvel_GetObjectStructure", "Banks", true);
  EXPECT_THAT(Lines(*rs, {"Name", "Caption", "xType", "Visible"}),
              ElementsAre("ID|ID|56|0", "Name|Pavadinimas|231|1", "Code|Banko kodas|231|1",
                          "SWIFT|SWIFT kodas|231|1", "Address|Adresas|231|1",
                          "CreatedByUser|Sukūrė|231|0", "CreationDate|Sukurta|61|0",
                          "UpdatedByUser|Pakeitė|231|0", "UpdateDate|Pakeista|61|0"));
  auto byOid = layer_.ServiceCall("Orvel_GetObjectStructureByOID", "O0000300");
  EXPECT_EQ(byOid.Number, 0);
  EXPECT_THAT(Column(*byOid.Value.ObjectAs<Recordset>(), "Name"), Contains("SWIFT"));
}

TEST_F(TableBusinessObjectTest, BankFirmsAreTheFirmsWithItsAccount) {
  Made("O0000300", {{"Name", Variant("AB Šiaulių bankas")}});
  Made("O0000100", {{"Name", Variant("UAB „Gintaro prekyba“")}, {"BankID", Variant(1)}});
  Made("O0000100", {{"Name", Variant("AB „Lino baldai“")}});
  ExpectRead("O0000300", {"GetFirms", "O00003001", {{"OIDR", {"O00001001"}}}});
}

// EUR the base, USD with two day rates, LTL fixed, GBP without any rate.
class CurrencyCallsTest : public CatalogueCallsFixture, public ::testing::Test {
 protected:
  CurrencyCallsTest() {
    db_->Exec(
        "INSERT INTO currencies (Code, Name, State, FixedRate, OneCurr) VALUES"
        " ('EUR', 'Euras', 'Europos Sąjungos', 1.0, 'euras'),"
        " ('USD', 'JAV doleris', 'JAV', 0.0, 'doleris'),"
        " ('LTL', 'Litas', 'Lietuvos', 3.4528, 'litas'),"
        " ('GBP', 'Svaras sterlingas', 'Didžiosios Britanijos', 0.0, 'svaras');"
        "INSERT INTO currency_rates (CurrencyID, RateDate, Rate) VALUES (2, '2026-11-20', 1.05),"
        " (2, '2026-11-22', 1.06)");
  }
};

class CurrencyReadTest : public CurrencyCallsTest,
                         public ::testing::WithParamInterface<ReadCase> {};

TEST_P(CurrencyReadTest, AnswersTheRowsInOrder) { ExpectRead("O0002200", GetParam()); }

INSTANTIATE_TEST_SUITE_P(
    Currencies, CurrencyReadTest,
    ::testing::ValuesIn(std::vector<ReadCase>{
        // The fields the rates window reads, the rate the one in force on the
        // day as the currency object sends it.
        {"GetCurrencyList", "'2026-11-22'", {{"Code", {"EUR", "GBP", "LTL", "USD"}},
         {"Rate", {"1", "", "3.4528", "1.06"}},
         {"OIDR", {"O00022001", "O00022004", "O00022003", "O00022002"}},
         {"BaseCurrency", {"1", "0", "0", "0"}}, {"FixedRate", {"1", "0", "3.4528", "0"}},
         {"State", {"Europos Sąjungos", "Didžiosios Britanijos", "Lietuvos", "JAV"}},
         {"OneCurr", {"euras", "svaras", "litas", "doleris"}}}},
        {"GetCurrencyList", "'2026-11-20'", {{"Rate", {"1", "", "3.4528", "1.05"}}}},
        {"GetCurrencyList", "'2026-11-21'", {{"Rate", {"1", "", "3.4528", "1.05"}}}},
        {"GetCurrencyList", "'1990.01.01'", {{"Rate", {"1", "", "3.4528", ""}}}},
        // A code however it is written; no such code is an empty set, which
        // the currency object then tells the user.
        {"GetCurrencyByCode", "USD", {{"OIDR", {"O00022002"}}}},
        {"GetCurrencyByCode", "usd", {{"OIDR", {"O00022002"}}}},
        {"GetCurrencyByCode", "'USD'", {{"OIDR", {"O00022002"}}}},
        {"GetCurrencyByCode", " USD", {{"OIDR", {"O00022002"}}}},
        {"GetCurrencyByCode", "XYZ", {{"OIDR", {}}}},
        {"GetCurrencyByCode", "", {{"OIDR", {}}}},
        // The rates of a period by code and day.
        {"GetCurrencyRates", "'2026-11-01','2026-11-30'", {{"Code", {"USD", "USD"}},
         {"Rate", {"1.05", "1.06"}}, {"DateD", {"2026-11-20", "2026-11-22"}}}},
        {"GetCurrencyRates", "'2026-11-21','2026-11-21'", {{"Code", {}}}},
        {"GetCurrencyRates", "'2026-11-30','2026-11-01'",
         {{"Code", {}}}}}));

// A date picked with its time of day is the same day; the code in any case.
TEST_F(CurrencyCallsTest, SaveDayRateAddsADayAndOverwritesAnExistingOne) {
  for (const auto& [param, rates] : std::vector<std::pair<const char*, const char*>>{
           {"'USD','2026-11-23',1.0825", "2026-11-20=1.05 2026-11-22=1.06 2026-11-23=1.0825"},
           {"'USD','2026-11-22',1.07", "2026-11-20=1.05 2026-11-22=1.07 2026-11-23=1.0825"},
           {"'usd','2026.11.22 14:05:00',1.08",
            "2026-11-20=1.05 2026-11-22=1.08 2026-11-23=1.0825"}}) {
    auto status = Type("O0002200").ExecCall("SaveDayRate", param, 0);
    ASSERT_EQ(status.Number, 0) << status.Text;
    EXPECT_EQ(Text(One("SELECT group_concat(RateDate || '=' || Rate, ' ') FROM (SELECT * FROM"
                       " currency_rates WHERE CurrencyID = 2 ORDER BY RateDate)")),
              rates);
  }
}

class ReferenceBookCallsTest : public CatalogueCallsFixture, public ::testing::Test {
 protected:
  ReferenceBookCallsTest() {
    db_->Exec(
        "INSERT INTO reference_books (BookOID, Name) VALUES ('O0001605', 'Sandėliai'),"
        " ('O0001602', 'Įmonių tipai');"
        "INSERT INTO book_locations (Code, Name, ParentID, GroupFlag) VALUES"
        " ('PA', 'Parduotuvės', 0, 1), ('C', 'Centrinis sandėlis', 0, 0),"
        " ('P1', 'Parduotuvė „Ąžuolas“', 1, 0);");
  }
};

// The root lists the books by their own OID, the locations the user first;
// the card's structure is a property of the record.
TEST_F(ReferenceBookCallsTest, ListsTheBooksTheirRecordsAndTheCardsStructure) {
  const std::initializer_list<const char*> listed{"OIDR", "Preview"};
  EXPECT_THAT(Lines(*Read("O0001600", "Orvel_GetObjectList", "'O0001600'"), listed),
              ElementsAre("O0001605|Sandėliai", "O0001602|Įmonių tipai"));
  EXPECT_THAT(Lines(*Read("O0001605", "Orvel_GetObjectList", "'3', 'O0001605'"), listed),
              ElementsAre("O00016051|Parduotuvės", "O00016052|Centrinis sandėlis"));
  EXPECT_THAT(Lines(*Read("O0001605", "Orvel_GetObjectList", "'3', 'O00016051'"), listed),
              ElementsAre("O00016053|Parduotuvė „Ąžuolas“"));
  EXPECT_THAT(Lines(*Read("O0001605", "GetStructure", ""), {"Name", "Caption"}),
              ElementsAre("ID|ID", "Code|Kodas", "Name|Pavadinimas", "ParentID|Grupė",
                          "GroupFlag|Grupė", "Address|Adresas"));
}

constexpr const char* kDestinations = "O0001615";

// Destinations: group "Pardavimai" (1) with member "Didmeninė" (2), and "Vidaus" (3) at the top.
// Two template types, two templates, one document group; the group has a sales template for
// invoices, which its member inherits.
class DepartmentCallsTest : public CatalogueCallsFixture, public ::testing::Test {
 protected:
  DepartmentCallsTest() {
    ReferenceBookSchema().create(*db_);
    db_->Exec(
        "INSERT INTO book_destinations (Name, ParentID, GroupFlag) VALUES ('Pardavimai', 0, 1),"
        " ('Didmeninė', 1, 0), ('Vidaus', 0, 0);"
        "INSERT INTO br_template_types (ID, Name) VALUES (1, 'Pardavimo'), (2, 'Pirkimo');"
        "INSERT INTO br_templates (Name) VALUES ('Prekių pardavimas'), ('Prekių pirkimas');"
        "INSERT INTO document_groups (Name) VALUES ('Sąskaitos');"
        "INSERT INTO destination_templates (DestinationID, TemplateTypeID, BRTemplateID,"
        " DocumentGroupID) VALUES (1, 1, 1, 1);");
  }

  OrvelStatus Save(const std::string& param) {
    return Type(kDestinations).ExecCall("SaveUpdateDeleteTemplates", param, 0);
  }

  // Every attached row as "destination:type:template:group", a space between.
  std::string Attached() {
    return Text(One("SELECT group_concat(r, ' ') FROM (SELECT DestinationID || ':' ||"
                    " TemplateTypeID || ':' || BRTemplateID || ':' || COALESCE(DocumentGroupID, '')"
                    " AS r FROM destination_templates ORDER BY ID)"));
  }

  // Each row of GetBRTemplates as "type|ID|ID2|template|templateOIDR|group|groupOIDR".
  std::vector<std::string> Rows(const std::string& oidr) {
    return Lines(*Read(kDestinations, "GetBRTemplates", oidr),
                 {"TemplateTypeOIDR", "ID", "ID2", "BRTemplateName", "BRTemplateOIDR",
                  "DocumentGroupName", "DocumentGroupOIDR"});
  }
};

// A member inherits its group's template and shows the types without one; a
// new record has only empty rows and cannot take templates.
TEST_F(DepartmentCallsTest, AMemberInheritsItsGroupsTemplateAndANewRecordHasNone) {
  EXPECT_THAT(Rows("O00016152"),
              ElementsAre("O02015001||1|Prekių pardavimas|O02016001|Sąskaitos|O10002001",
                          "O02015002||||||"));
  EXPECT_THAT(Rows("O00016151"),
              ElementsAre("O02015001|1|1|Prekių pardavimas|O02016001|Sąskaitos|O10002001",
                          "O02015002||||||"));
  EXPECT_THAT(Rows(kDestinations), ElementsAre("O02015001||||||", "O02015002||||||"));
  auto status = Save("'O0001615','O02015001','O02016001','',0");
  EXPECT_EQ(std::to_string(status.Number) + " " + status.Text,
            "777 SaveUpdateDeleteTemplates: Pirmiausia įrašykite tikslą.");
}

// One method adds, changes and deletes, each call on the rows the calls before it left; what it
// refuses leaves them as they were.
TEST_F(DepartmentCallsTest, OneMethodAddsChangesAndDeletes) {
  for (const auto& [name, param, number, attached] :
       std::vector<std::tuple<const char*, const char*, int32_t, const char*>>{
           {"GroupWithoutTemplate", "'O00016153','O02015001','','O10002001',0", 777, "1:1:1:1"},
           {"SameTypeAndGroupTwice", "'O00016151','O02015001','O02016002','O10002001',0", 777,
            "1:1:1:1"},
           {"RowOfAnotherDestination", "'O00016153','O02015001','','',1", 777, "1:1:1:1"},
           {"UnknownTemplate", "'O00016153','O02015001','O02016009','',0", 777, "1:1:1:1"},
           {"NotATemplateReference", "'O00016153','O02015001','O00001001','',0", 5, "1:1:1:1"},
           {"UnknownDestination", "'O000161599','O02015001','O02016001','',0", 3021, "1:1:1:1"},
           {"EmptyPairOnAnInheritedRow", "'O00016152','O02015001','','',0", 0, "1:1:1:1"},
           {"NewRow", "'O00016153','O02015002','O02016002','O10002001',0", 0, "1:1:1:1 3:2:2:1"},
           {"NewRowWithoutGroup", "'O00016153','O02015001','O02016001','',0", 0,
            "1:1:1:1 3:2:2:1 3:1:1:"},
           {"Update", "'O00016151','O02015001','O02016002','',1", 0, "1:1:2: 3:2:2:1 3:1:1:"},
           {"Delete", "'O00016151','O02015001','','',1", 0, "3:2:2:1 3:1:1:"}}) {
    SCOPED_TRACE(name);
    const OrvelStatus status = Save(param);
    EXPECT_EQ(status.Number, number) << status.Text;
    EXPECT_EQ(Attached(), attached);
  }
}

}  // namespace
}  // namespace orvel
