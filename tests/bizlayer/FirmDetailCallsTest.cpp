#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <tuple>

#include "CatalogueCallsFixture.h"
#include "bizlayer/SchemaParts.h"

namespace orvel {
namespace {

using ::testing::ElementsAre;

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

TEST_F(FirmDetailCallsTest, ANoteIsAddedUnderIdZeroAndThenUpdated) {
  ASSERT_EQ(Write("0,'Skambinti \"rytoj\"','20261123',Null,2,900,3").Number, 0);
  EXPECT_EQ(Notes(), "1|2|Skambinti \"rytoj\"|2026-11-23||rūta|3|\n");
  // The text may hold commas; the end may be set later.
  ASSERT_EQ(Write("1,'Skambinti, paskui rašyti','20261201','20261231',2,1,1").Number, 0);
  EXPECT_EQ(Notes(), "1|2|Skambinti, paskui rašyti|2026-12-01|2026-12-31|admin|1|\n");
  auto rs = Read(kFirms, "GetFirmInfo", "'O00001002',1");
  EXPECT_THAT(Column(*rs, "Info"), ElementsAre("Skambinti, paskui rašyti"));
}

// A priority out of 1 to 3, a day with dashes, an end before the start, a note
// not there or of another firm are refused and change nothing; an unreal day,
// too few arguments and an unknown firm are refused in the contract suite on
// every engine.
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
