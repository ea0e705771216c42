#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "CatalogueCallsFixture.h"

namespace orvel {
namespace {

using ::testing::ElementsAre;

// Two groups and three firms; documents, branches and notes of firm 2.
class FirmCallsTest : public CatalogueCallsFixture, public ::testing::Test {
 protected:
  FirmCallsTest() {
    const char* firm =
        "INSERT INTO firms (Name, Code, ParentID, GroupFlag, FirmTypeId, RegionID, CreditLimit,"
        " CreditDays, Active) VALUES (?, ?, ?, ?, ?, ?, ?, ?, 1)";
    Insert(firm, {"Tiekėjai", Variant::Null(), Variant::Null(), 1, 2, 3, 0.0, 0});
    Insert(firm, {"UAB Alfa", "123456789", 1, 0, 1, 1, 100.0, 30});
    Insert(firm, {"O'Brien ir Ko", "O'Brien 7", 1, 0, 1, 1, 0.0, 0});
    Insert(firm, {"AB Beta", "555", Variant::Null(), 0, 1, 1, 0.0, 0});
    Insert(firm, {"Pirkėjai", Variant::Null(), Variant::Null(), 1, Variant::Null(), Variant::Null(),
                  0.0, 0});
    const char* good = "INSERT INTO goods (Name, Code, GroupFlag, Price) VALUES (?, ?, 0, ?)";
    Insert(good, {"Duona balta", "0101", 1.2});
    Insert(good, {"Pienas", "0102", 0.9});
    const char* document =
        "INSERT INTO documents (OType, DocName, Number, DocDate, FirmID, Account, Suma, Debt,"
        " Sign, GID) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?)";
    // An overdue sale, a sale not yet due, an advance, a purchase, and our
    // advance to firm 3.
    Insert(document, {"O1000100", "PVM sąskaita faktūra", "PSF1", DateSerial(2020, 1, 15), 2, "240",
                      150.0, 150.0, 1, 1});
    Insert(document, {"O1000100", "PVM sąskaita faktūra", "PSF2", DateSerial(2999, 1, 1), 2, "240",
                      30.0, 30.0, 1, 1});
    Insert(document, {"O1000300", "Gautas avansas", "AVG1", DateSerial(2020, 2, 1), 2, "460", 20.0,
                      20.0, -1, 3});
    Insert(document, {"O1000200", "Pirkimo sąskaita", "PIR1", DateSerial(2020, 3, 1), 2, "450",
                      40.0, 40.0, -1, 2});
    Insert(document, {"O1000400", "Sumokėtas avansas", "AVS1", DateSerial(2020, 4, 1), 3, "220",
                      10.0, 10.0, 1, 4});
    const char* line =
        "INSERT INTO document_lines (DocumentID, GoodID, Amount, Price, Comment)"
        " VALUES (?, ?, ?, ?, ?)";
    Insert(line, {1, 1, 3.0, 50.0, "Skubu"});
    Insert(line, {4, 2, 4.0, 10.0, Variant::Null()});
    Insert(line, {2, 1, 1.0, 30.0, Variant::Null()});
    const char* branch = "INSERT INTO firm_branches (FirmID, Name) VALUES (?, ?)";
    Insert(branch, {2, "Kauno filialas"});
    Insert(branch, {2, "Klaipėdos filialas"});
  }
};

// Calls that answer one row: the call as the module sends it, and fields
// with their values as text ("" for Null).
struct OneRowCase {
  const char* name;
  const char* param;
  std::vector<std::pair<const char*, const char*>> fields;
};

class FirmOneRowTest : public FirmCallsTest, public ::testing::WithParamInterface<OneRowCase> {};

TEST_P(FirmOneRowTest, AnswersTheFieldsTheModuleReads) {
  const auto& c = GetParam();
  auto rs = Read("O0000100", c.name, c.param);
  ASSERT_NE(rs, nullptr);
  ASSERT_EQ(rs->RecordCount(), 1);
  rs->MoveFirst();
  for (const auto& [field, expected] : c.fields) {
    EXPECT_EQ(Text(rs->Fields(field).Value()), expected) << c.name << " " << c.param << field;
  }
}

INSTANTIATE_TEST_SUITE_P(
    Firms, FirmOneRowTest,
    ::testing::Values(
        // Duplicate codes: the firm itself never counts; a new firm has no OIDR.
        OneRowCase{"CheckCode", "'O00001002','123456789'", {{"Exist", "0"}}},
        OneRowCase{"CheckCode", "'','123456789'", {{"Exist", "1"}}},
        OneRowCase{"CheckCode", "'O00001004','123456789'", {{"Exist", "1"}}},
        OneRowCase{"CheckCode", "'O00001004',' 123456789 '", {{"Exist", "1"}}},
        OneRowCase{"CheckCode", "'O00001004','12345678'", {{"Exist", "0"}}},
        OneRowCase{"CheckCode", "'O00001002','O'Brien 7'", {{"Exist", "1"}}},
        OneRowCase{"CheckCode", "'O00001003','O'Brien 7'", {{"Exist", "0"}}},
        OneRowCase{"CheckBranch", "'O00001002'", {{"Exist", "2"}}},
        OneRowCase{"CheckBranch", "'O00001004'", {{"Exist", "0"}}},
        // Used in documents: a firm, a group through its members, a new record.
        OneRowCase{"GetFirmIsUsedInDocuments", "O00001002", {{"Used", "4"}}},
        OneRowCase{"GetFirmIsUsedInDocuments", "O00001001", {{"Used", "5"}}},
        OneRowCase{"GetFirmIsUsedInDocuments", "O00001004", {{"Used", "0"}}},
        OneRowCase{"GetFirmIsUsedInDocuments", "", {{"Used", "0"}}},
        OneRowCase{"GetTypeAndRegion", "1", {{"FirmTypeId", "2"}, {"RegionID", "3"}}},
        // Debts of firm 2: the overdue sale is past its 30 credit days.
        OneRowCase{"GetFirmDebt", "O00001002",
                   {{"Sum240", "180"}, {"Sum460", "-20"}, {"Sum450", "-40"}, {"Sum220", "0"},
                    {"Limit", "100"}, {"LimitTerm", "150"}, {"LimitDays", "30"}}},
        // A firm without a limit: a sum the card reads as none and no debt passes.
        OneRowCase{"GetFirmDebt", "O00001003",
                   {{"Limit", "1e+12"}, {"LimitDays", "0"}, {"LimitTerm", "0"}, {"Sum220", "10"}}},
        OneRowCase{"GetFirmDebt", "O00001004", {{"Sum240", "0"}}},
        OneRowCase{"GetOurDebt", "O00001003", {{"Sum220", "10"}}},
        OneRowCase{"GetOurDebt", "O00001002", {{"Sum240", "180"}}}));

// The list call as the catalogue sends it with its settings (<Active>,
// <NotActive>,<CodeMode>) or a search ('<text>',<in code>,<from start>),
// with O'Brien ir Ko and the group Pirkėjai out of use: the rows' IDs.
struct ListCase {
  const char* param;
  std::vector<std::string> ids;
};

class FirmListTest : public FirmCallsTest, public ::testing::WithParamInterface<ListCase> {};

TEST_P(FirmListTest, ListsByTheSettingsAndTheSearchOptions) {
  Insert("UPDATE firms SET Active = 0 WHERE ID IN (3, 5)", {});
  EXPECT_EQ(Column(*Read("O0000100", "Orvel_GetObjectList", GetParam().param), "ID"),
            GetParam().ids)
      << GetParam().param;
}

INSTANTIATE_TEST_SUITE_P(
    Firms, FirmListTest,
    ::testing::Values(
        // Groups first and always, whatever their own Active says.
        ListCase{"'O0000100','',1,0,1", {"5", "1", "4"}}, ListCase{"'O00001001','',1,0,1", {"2"}},
        ListCase{"'O00001001','',0,1,1", {"3"}}, ListCase{"'O00001001','',1,1,0", {"3", "2"}},
        ListCase{"'O00001001','',1,1,2", {"2", "3"}},
        // Neither asked for: those in use, as the settings dialog shows it.
        ListCase{"'O00001001','',0,0,1", {"2"}},
        // The settings dialog's own list: every level.
        ListCase{"'','',1,0,2", {"5", "1", "2", "4"}},
        // A search finds records in and out of use.
        ListCase{"'','ko',0,0", {"3"}}, ListCase{"'','a',0,1", {"4"}},
        ListCase{"'','23',1,0", {"2"}}, ListCase{"'','23',1,1", {}},
        ListCase{"'','55',1,1", {"4"}}));

class FirmReadTest : public FirmCallsTest, public ::testing::WithParamInterface<ReadCase> {};

TEST_P(FirmReadTest, AnswersTheRowsInOrder) { ExpectRead("O0000100", GetParam()); }

// Firm 2's notes: one in force, one ended, one in force with a higher
// priority and an end ahead.
const char* kNotes =
    "INSERT INTO firm_info (FirmID, Info, DateFrom, DateTo, UserName, Priority) VALUES"
    " (2, 'Sena pastaba', '2020-01-01', NULL, 'admin', 1),"
    " (2, 'Pasibaigusi', '2019-01-01', '2020-01-01', 'admin', 3),"
    " (2, 'O''Brien skambino', '2021-01-01', '2999-01-01', 'admin', 2)";

INSTANTIATE_TEST_SUITE_P(
    Firms, FirmReadTest,
    ::testing::Values(
        // The top, or a group without a type and region, gives nothing to copy.
        ReadCase{"GetTypeAndRegion", "0", {{"FirmTypeId", {}}}},
        ReadCase{"GetTypeAndRegion", "5", {{"FirmTypeId", {""}}}},
        // Notes in force come first, then by priority.
        ReadCase{"GetFirmInfo", "'O00001002',0",
                 {{"Info", {"O'Brien skambino", "Sena pastaba", "Pasibaigusi"}},
                  {"DateTo", {"2999-01-01", "", "2020-01-01"}}}, kNotes},
        ReadCase{"GetFirmInfo", "'O00001002',1", {{"Info", {"Sena pastaba"}}}, kNotes},
        ReadCase{"GetFirmInfo", "'O00001004',0", {{"Info", {}}}, kNotes},
        ReadCase{"GetFirms", "O00001001",
                 {{"Preview", {"O'Brien ir Ko", "UAB Alfa"}}, {"OIDR", {"O00001003", "O00001002"}}}},
        ReadCase{"GetFirms", "O0000100", {{"Preview", {"Pirkėjai", "Tiekėjai", "AB Beta"}}}},
        // The period's documents oldest first; the default end of an open
        // period, and the dotted form of a date.
        ReadCase{"GetTraffic", "'O00001002','2020-01-01','2020-02-29'",
                 {{"Number", {"PSF1", "AVG1"}}, {"OIDR", {"O10001001", "O10003003"}},
                  {"Date", {"2020-01-15", "2020-02-01"}}, {"Debt", {"150", "20"}}}},
        ReadCase{"GetTraffic", "'O00001002','2020.01.01','9999-12-31'",
                 {{"Number", {"PSF1", "AVG1", "PIR1", "PSF2"}}}},
        // Goods found through the firm's document lines.
        ReadCase{"GetFindGoods", "'O00001002','DUONA'",
                 {{"GoodName", {"Duona balta", "Duona balta"}}, {"Number", {"PSF2", "PSF1"}},
                  {"OIDR", {"O00002001", "O00002001"}}}},
        ReadCase{"GetFindGoods", "'O00001002',''", {{"Number", {"PSF2", "PIR1", "PSF1"}}}},
        ReadCase{"GetFindGoods", "'O00001004','Duona'", {{"Number", {}}}}));

TEST_F(FirmCallsTest, DeleteFirmInfoRemovesOneNote) {
  const char* note = "INSERT INTO firm_info (FirmID, Info) VALUES (2, ?)";
  Insert(note, {"pirma"});
  Insert(note, {"antra"});
  auto status = Type("O0000100").ExecCall("DeleteFirmInfo", "1", 0);
  EXPECT_EQ(status.Number, 0) << status.Text;
  EXPECT_THAT(Column(*Read("O0000100", "GetFirmInfo", "'O00001002',0"), "Info"),
              ElementsAre("antra"));
}

TEST_F(FirmCallsTest, AFirmOnDocumentsCannotBeDeleted) {
  auto status = Type("O0000100").ExecCall("Orvel_DeleteObject", "'O00001002'", 0);
  EXPECT_EQ(status.Number, TableBusinessObject::kBadCall);
  EXPECT_EQ(status.Text, "Įrašas naudojamas dokumentuose: jo panaikinti negalima");
  EXPECT_EQ(One("SELECT COUNT(*) FROM firms WHERE ID = 2"), Variant(1));
  EXPECT_EQ(One("SELECT COUNT(*) FROM firm_branches WHERE FirmID = 2"), Variant(2));
}

}  // namespace
}  // namespace orvel
