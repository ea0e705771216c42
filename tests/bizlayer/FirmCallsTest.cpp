#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <tuple>

#include "CatalogueCallsFixture.h"
#include "bizlayer/SchemaParts.h"

namespace orvel {
namespace {

using ::testing::ElementsAre;

// Two groups and three firms; documents, branches and notes of firm 2.
class FirmCallsTest : public CatalogueCallsFixture, public ::testing::Test {
 protected:
  FirmCallsTest() {
    // An overdue sale, a sale not yet due, an advance, a purchase, and our advance to firm 3.
    db_->Exec(
        "INSERT INTO firms (Name, Code, ParentID, GroupFlag, FirmTypeId, RegionID, CreditLimit,"
        " CreditDays, Active) VALUES ('Tiekėjai', NULL, NULL, 1, 2, 3, 0.0, 0, 1),"
        " ('UAB Alfa', '123456789', 1, 0, 1, 1, 100.0, 30, 1),"
        " ('O''Brien ir Ko', 'O''Brien 7', 1, 0, 1, 1, 0.0, 0, 1),"
        " ('AB Beta', '555', NULL, 0, 1, 1, 0.0, 0, 1),"
        " ('Pirkėjai', NULL, NULL, 1, NULL, NULL, 0.0, 0, 1);"
        "INSERT INTO goods (Name, Code, GroupFlag, Price) VALUES ('Duona balta', '0101', 0, 1.2),"
        " ('Pienas', '0102', 0, 0.9);"
        "INSERT INTO documents (OType, DocName, Number, DocDate, FirmID, Account, Suma, Debt,"
        " Sign, GID) VALUES"
        " ('O1000100', 'PVM sąskaita faktūra', 'PSF1', '2020-01-15', 2, '240', 150.0, 150.0, 1, 1),"
        " ('O1000100', 'PVM sąskaita faktūra', 'PSF2', '2999-01-01', 2, '240', 30.0, 30.0, 1, 1),"
        " ('O1000300', 'Gautas avansas', 'AVG1', '2020-02-01', 2, '460', 20.0, 20.0, -1, 3),"
        " ('O1000200', 'Pirkimo sąskaita', 'PIR1', '2020-03-01', 2, '450', 40.0, 40.0, -1, 2),"
        " ('O1000400', 'Sumokėtas avansas', 'AVS1', '2020-04-01', 3, '220', 10.0, 10.0, 1, 4);"
        "INSERT INTO document_lines (DocumentID, GoodID, Amount, Price, Comment) VALUES"
        " (1, 1, 3.0, 50.0, 'Skubu'), (4, 2, 4.0, 10.0, NULL), (2, 1, 1.0, 30.0, NULL);"
        "INSERT INTO firm_branches (FirmID, Name) VALUES (2, 'Kauno filialas'),"
        " (2, 'Klaipėdos filialas');");
  }
};

class FirmReadTest : public FirmCallsTest, public ::testing::WithParamInterface<ReadCase> {};

TEST_P(FirmReadTest, AnswersTheRowsInOrder) { ExpectRead("O0000100", GetParam()); }

// Firm 2's notes: one in force, one ended, one in force with a higher priority and an end ahead.
const char* kNotes =
    "INSERT INTO firm_info (FirmID, Info, DateFrom, DateTo, UserName, Priority) VALUES"
    " (2, 'Sena pastaba', '2020-01-01', NULL, 'admin', 1),"
    " (2, 'Pasibaigusi', '2019-01-01', '2020-01-01', 'admin', 3),"
    " (2, 'O''Brien skambino', '2021-01-01', '2999-01-01', 'admin', 2)";
const char* kOut = "UPDATE firms SET Active = 0 WHERE ID IN (3, 5)";

INSTANTIATE_TEST_SUITE_P(
    Firms, FirmReadTest,
    ::testing::ValuesIn(std::vector<ReadCase>{
        // Duplicate codes: the firm itself never counts; a new firm has no OIDR.
        {"CheckCode", "'O00001002','123456789'", {{"Exist", {"0"}}}},
        {"CheckCode", "'','123456789'", {{"Exist", {"1"}}}},
        {"CheckCode", "'O00001004','123456789'", {{"Exist", {"1"}}}},
        {"CheckCode", "'O00001004',' 123456789 '", {{"Exist", {"1"}}}},
        {"CheckCode", "'O00001004','12345678'", {{"Exist", {"0"}}}},
        {"CheckCode", "'O00001002','O'Brien 7'", {{"Exist", {"1"}}}},
        {"CheckCode", "'O00001003','O'Brien 7'", {{"Exist", {"0"}}}},
        {"CheckBranch", "'O00001002'", {{"Exist", {"2"}}}},
        {"CheckBranch", "'O00001004'", {{"Exist", {"0"}}}},
        // Used in documents: a firm, a group through its members, a new record.
        {"GetFirmIsUsedInDocuments", "O00001002", {{"Used", {"4"}}}},
        {"GetFirmIsUsedInDocuments", "O00001001", {{"Used", {"5"}}}},
        {"GetFirmIsUsedInDocuments", "O00001004", {{"Used", {"0"}}}},
        {"GetFirmIsUsedInDocuments", "", {{"Used", {"0"}}}},
        {"GetTypeAndRegion", "1", {{"FirmTypeId", {"2"}}, {"RegionID", {"3"}}}},
        // Debts of firm 2: the overdue sale is past its 30 credit days.
        {"GetFirmDebt", "O00001002", {{"Sum240", {"180"}}, {"Sum460", {"-20"}}, {"Sum450", {"-40"}},
         {"Sum220", {"0"}}, {"Limit", {"100"}}, {"LimitTerm", {"150"}}, {"LimitDays", {"30"}}}},
        // A firm without a limit: a sum the card reads as none and no debt passes.
        {"GetFirmDebt", "O00001003", {{"Limit", {"1e+12"}}, {"LimitDays", {"0"}},
         {"LimitTerm", {"0"}}, {"Sum220", {"10"}}}},
        {"GetFirmDebt", "O00001004", {{"Sum240", {"0"}}}},
        {"GetOurDebt", "O00001003", {{"Sum220", {"10"}}}},
        {"GetOurDebt", "O00001002", {{"Sum240", {"180"}}}},
        // The list with its settings (<Active>,<NotActive>,<CodeMode>) or a search ('<text>',<in
        // code>,<from start>), O'Brien ir Ko and the group Pirkėjai out of use: groups first and
        // always, whatever their own Active says; neither asked for, those in use, as the settings
        // dialog shows it; its own list ('') every level; a search finds records in and out of use.
        {"Orvel_GetObjectList", "'O0000100','',1,0,1", {{"ID", {"5", "1", "4"}}}, kOut},
        {"Orvel_GetObjectList", "'O00001001','',1,0,1", {{"ID", {"2"}}}, kOut},
        {"Orvel_GetObjectList", "'O00001001','',0,1,1", {{"ID", {"3"}}}, kOut},
        {"Orvel_GetObjectList", "'O00001001','',1,1,0", {{"ID", {"3", "2"}}}, kOut},
        {"Orvel_GetObjectList", "'O00001001','',1,1,2", {{"ID", {"2", "3"}}}, kOut},
        {"Orvel_GetObjectList", "'O00001001','',0,0,1", {{"ID", {"2"}}}, kOut},
        {"Orvel_GetObjectList", "'','',1,0,2", {{"ID", {"5", "1", "2", "4"}}}, kOut},
        {"Orvel_GetObjectList", "'','ko',0,0", {{"ID", {"3"}}}, kOut},
        {"Orvel_GetObjectList", "'','a',0,1", {{"ID", {"4"}}}, kOut},
        {"Orvel_GetObjectList", "'','23',1,0", {{"ID", {"2"}}}, kOut},
        {"Orvel_GetObjectList", "'','23',1,1", {{"ID", {}}}, kOut},
        {"Orvel_GetObjectList", "'','55',1,1", {{"ID", {"4"}}}, kOut},
        // The top, or a group without a type and region, gives nothing to copy.
        {"GetTypeAndRegion", "0", {{"FirmTypeId", {}}}},
        {"GetTypeAndRegion", "5", {{"FirmTypeId", {""}}}},
        // Notes in force come first, then by priority.
        {"GetFirmInfo", "'O00001002',0",
         {{"Info", {"O'Brien skambino", "Sena pastaba", "Pasibaigusi"}},
         {"DateTo", {"2999-01-01", "", "2020-01-01"}}}, kNotes},
        {"GetFirmInfo", "'O00001002',1", {{"Info", {"Sena pastaba"}}}, kNotes},
        {"GetFirmInfo", "'O00001004',0", {{"Info", {}}}, kNotes},
        {"GetFirms", "O00001001", {{"Preview", {"O'Brien ir Ko", "UAB Alfa"}},
         {"OIDR", {"O00001003", "O00001002"}}}},
        {"GetFirms", "O0000100", {{"Preview", {"Pirkėjai", "Tiekėjai", "AB Beta"}}}},
        // The period's documents oldest first; the default end of an open
        // period, and the dotted form of a date.
        {"GetTraffic", "'O00001002','2020-01-01','2020-02-29'", {{"Number", {"PSF1", "AVG1"}},
         {"OIDR", {"O10001001", "O10003003"}}, {"Date", {"2020-01-15", "2020-02-01"}},
         {"Debt", {"150", "20"}}}},
        {"GetTraffic", "'O00001002','2020.01.01','9999-12-31'",
         {{"Number", {"PSF1", "AVG1", "PIR1", "PSF2"}}}},
        // Goods found through the firm's document lines.
        {"GetFindGoods", "'O00001002','DUONA'", {{"GoodName", {"Duona balta", "Duona balta"}},
         {"Number", {"PSF2", "PSF1"}}, {"OIDR", {"O00002001", "O00002001"}}}},
        {"GetFindGoods", "'O00001002',''", {{"Number", {"PSF2", "PIR1", "PSF1"}}}},
        {"GetFindGoods", "'O00001004','Duona'",
         {{"Number", {}}}}}));

// The departments list the suite's firm branches by firm and branch name.
TEST_F(FirmCallsTest, TheDepartmentsListTheFirmsBranches) {
  EXPECT_THAT(Lines(*Read("O0001604", "DO0001604_GetFirmBranches", "0", true), {"ID", "Preview"}),
              ElementsAre("1|UAB Alfa, Kauno filialas", "2|UAB Alfa, Klaipėdos filialas"));
}

TEST_F(FirmCallsTest, AFirmOnDocumentsCannotBeDeleted) {
  const std::string before = Snapshot();
  auto status = Type("O0000100").ExecCall("Orvel_DeleteObject", "'O00001002'", 0);
  EXPECT_EQ(status.Number, TableBusinessObject::kBadCall);
  EXPECT_EQ(status.Text, "Įrašas naudojamas dokumentuose: jo panaikinti negalima");
  EXPECT_EQ(Snapshot(), before);
}

constexpr const char* kFirms = "O0000100";

// Group 1 holds firm 2, which has one of each detail; firm 3 has none. The
// group has a discount of its own that firm 2 inherits.
class FirmDetailCallsTest : public CatalogueCallsFixture, public ::testing::Test {
 protected:
  FirmDetailCallsTest() {
    FirmDetailSchema().create(*db_);
    db_->Exec(
        "INSERT INTO firms (Name, ParentID, GroupFlag, Active) VALUES ('Tiekėjai', NULL, 1, 1),"
        " ('UAB Alfa', 1, 0, 1), ('AB Beta', NULL, 0, 1);"
        "INSERT INTO banks (Name, Code) VALUES ('Swedbank', '73000');"
        "INSERT INTO users (ID, Name, FullName) VALUES (1, 'admin', 'A');"
        "UPDATE users SET FullName = 'R' WHERE Name = 'rūta';"
        "INSERT INTO firm_accounts (Name, BankID, Currency, FOIDR) VALUES"
        " ('LT02', 1, 'EUR', 'O00001002'), ('LT01', NULL, 'LTL', 'O00001002');"
        "INSERT INTO firm_addresses (Name, Street, FlagMain, FirmID) VALUES"
        " ('Pristatymo', 'Savanorių pr. 1', 0, 2), ('Buveinės', 'Gedimino pr. 9', 1, 2);"
        "INSERT INTO firm_contacts (Name, LastName, FlagMain, FirmID) VALUES"
        " ('Asta', 'Kazlauskienė', 1, 2);"
        "INSERT INTO firm_managers (Name, FirmID) VALUES ('Rūta Buhalterė', 2);"
        "INSERT INTO firm_activities (Name, FirmID) VALUES ('Statybos darbai', 2);"
        "INSERT INTO firm_branches (FirmID, Name, Code) VALUES (2, 'Kauno filialas', '12');"
        "INSERT INTO firm_contracts (FirmID, ContractNumber, DateFrom, SumA, State) VALUES"
        " (2, 'S-1', '2025-01-01', 100.5, 'Pasibaigusi'), (2, 'S-2', '2026-01-01', 200.0,"
        " 'Galioja');"
        "INSERT INTO firm_discounts (FirmID, DiscountTypeName, VariantName, SumFrom, SumTo,"
        " Percent, GoodName, Valid) VALUES (1, 'Grupės', NULL, NULL, NULL, 3.0, NULL, 1),"
        " (2, 'Sezoninė', 'Vasara', 50.0, 0.0, 2.5, 'Statyba', 0);");
  }

  OrvelStatus Write(const std::string& param) {
    return Type(kFirms).ExecCall("AddUpdateFirmInfo", param, 0);
  }

  std::string Notes() {
    return RowsText(*db_, "SELECT ID, FirmID, Info, DateFrom, DateTo, UserName, Priority"
                          " FROM firm_info ORDER BY ID");
  }
};

// The fields each list answers are held by the contract suite on every
// engine; here the rows and their order, and none for firm 3.
TEST_F(FirmDetailCallsTest, EachListAnswersTheFirmsRowsInOrder) {
  for (const auto& [call, field, values] :
       std::vector<std::tuple<const char*, const char*, std::vector<std::string>>>{
           {"GetAccounts", "BankName", {"", "Swedbank"}},
           {"GetFirmADDRESSES", "AddressType", {"Buveinės", "Pristatymo"}},
           {"GetFirmCONTACTS", "OIDR", {"O00021001"}},
           {"GetFirmSERVERS", "Name", {"Rūta Buhalterė"}},
           {"GetFirmActivity", "OIDR", {"O00025001"}},
           {"GetFirmBranch", "OIDR", {"O00017001"}},
           {"GetContractsList", "ContractNumber", {"S-2", "S-1"}},
           // Its own discounts first, then its group's, named by who holds them.
           {"GetDiscounts", "FirmName", {"UAB Alfa", "Tiekėjai"}}}) {
    EXPECT_EQ(Column(*Read(kFirms, call, "O00001002"), field), values) << call;
    EXPECT_EQ(Read(kFirms, call, "O00001003")->RecordCount(), 0) << call;
  }
  // An account of the list opens as a record of its own type.
  EXPECT_THAT(Column(*Read("O0000500", "Orvel_ReadObject", "'O00005001'"), "Name"),
              ElementsAre("LT02"));
}

TEST_F(FirmDetailCallsTest, ANoteIsAddedUnderIdZeroThenUpdatedAndDeletedAlone) {
  ASSERT_EQ(Write("0,'Skambinti \"rytoj\"','20261123',Null,2,900,3").Number, 0);
  EXPECT_EQ(Notes(), "1|2|Skambinti \"rytoj\"|2026-11-23||rūta|3|\n");
  // The text may hold commas; the end may be set later.
  ASSERT_EQ(Write("1,'Skambinti, paskui rašyti','20261201','20261231',2,1,1").Number, 0);
  EXPECT_EQ(Notes(), "1|2|Skambinti, paskui rašyti|2026-12-01|2026-12-31|admin|1|\n");
  EXPECT_THAT(Column(*Read(kFirms, "GetFirmInfo", "'O00001002',1"), "Info"),
              ElementsAre("Skambinti, paskui rašyti"));
  ASSERT_EQ(Write("0,'Antra','20261123',Null,2,1,1").Number, 0);
  ASSERT_EQ(Type(kFirms).ExecCall("DeleteFirmInfo", "1", 0).Number, 0);
  EXPECT_THAT(Column(*Read(kFirms, "GetFirmInfo", "'O00001002',0"), "Info"), ElementsAre("Antra"));
}

// A priority out of 1 to 3, a day with dashes, an end before the start, a note not there or of
// another firm are refused and change nothing; an unreal day, too few arguments and an unknown firm
// are refused in the contract suite on every engine.
TEST_F(FirmDetailCallsTest, ABadNoteIsRefusedAndChangesNothing) {
  ASSERT_EQ(Write("0,'Esama','20260101',Null,2,1,1").Number, 0);
  const std::string before = Notes();
  constexpr int32_t kBadCall = TableBusinessObject::kBadCall;
  for (const auto& [param, number] : std::vector<std::pair<const char*, int32_t>>{
           {"0,'A','20260101',Null,2,1,0", kBadCall},
           {"0,'A','20260101',Null,2,1,4", kBadCall},
           {"0,'A','2026-01-01',Null,2,1,1", kBadCall},
           {"0,'A','20260201','20260131',2,1,1", kBadCall},
           {"7,'A','20260101',Null,2,1,1", TableBusinessObject::kRecordNotFound},
           {"1,'A','20260101',Null,3,1,1", TableBusinessObject::kRecordNotFound}}) {
    OrvelStatus status = Write(param);
    EXPECT_EQ(status.Number, number) << param;
    EXPECT_FALSE(status.Text.empty());
    EXPECT_EQ(Notes(), before);
  }
}

}  // namespace
}  // namespace orvel
