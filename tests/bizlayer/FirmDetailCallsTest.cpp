#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "CatalogueCallsFixture.h"
#include "bizlayer/SchemaParts.h"
#include "host/MemoryRecordset.h"

namespace orvel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr const char* kFirms = "O0000100";

// Group 1 holds firm 2, which has one of each detail; firm 3 has none. The
// group has a discount of its own that firm 2 inherits.
class FirmDetailCallsTest : public CatalogueCallsFixture, public ::testing::Test {
 protected:
  FirmDetailCallsTest() {
    FirmDetailSchema().create(*db_);
    const char* firm = "INSERT INTO firms (Name, ParentID, GroupFlag, Active) VALUES (?, ?, ?, 1)";
    Insert(firm, {"Tiekėjai", Variant::Null(), 1});
    Insert(firm, {"UAB Alfa", 1, 0});
    Insert(firm, {"AB Beta", Variant::Null(), 0});
    Insert("INSERT INTO banks (Name, Code) VALUES ('Swedbank', '73000')", {});
    Insert("INSERT INTO users (ID, Name, FullName) VALUES (1, 'admin', 'A')", {});
    Insert("UPDATE users SET FullName = 'R' WHERE Name = 'rūta'", {});
    Insert("INSERT INTO firm_accounts (Name, BankID, Currency, FOIDR) VALUES (?, ?, ?, ?)",
           {"LT02", 1, "EUR", "O00001002"});
    Insert("INSERT INTO firm_accounts (Name, BankID, Currency, FOIDR) VALUES (?, ?, ?, ?)",
           {"LT01", Variant::Null(), "LTL", "O00001002"});
    Insert("INSERT INTO firm_addresses (Name, Street, FlagMain, FirmID) VALUES (?, ?, ?, ?)",
           {"Pristatymo", "Savanorių pr. 1", false, 2});
    Insert("INSERT INTO firm_addresses (Name, Street, FlagMain, FirmID) VALUES (?, ?, ?, ?)",
           {"Buveinės", "Gedimino pr. 9", true, 2});
    Insert("INSERT INTO firm_contacts (Name, LastName, FlagMain, FirmID) VALUES (?, ?, ?, ?)",
           {"Asta", "Kazlauskienė", true, 2});
    Insert("INSERT INTO firm_managers (Name, FirmID) VALUES (?, ?)", {"Rūta Buhalterė", 2});
    Insert("INSERT INTO firm_activities (Name, FirmID) VALUES (?, ?)", {"Statybos darbai", 2});
    Insert("INSERT INTO firm_branches (FirmID, Name, Code) VALUES (?, ?, ?)",
           {2, "Kauno filialas", "12"});
    Insert(
        "INSERT INTO firm_contracts (FirmID, ContractNumber, DateFrom, SumA, State)"
        " VALUES (?, ?, ?, ?, ?)",
        {2, "S-1", DateSerial(2025, 1, 1), 100.5, "Pasibaigusi"});
    Insert(
        "INSERT INTO firm_contracts (FirmID, ContractNumber, DateFrom, SumA, State)"
        " VALUES (?, ?, ?, ?, ?)",
        {2, "S-2", DateSerial(2026, 1, 1), 200.0, "Galioja"});
    const char* discount =
        "INSERT INTO firm_discounts (FirmID, DiscountTypeName, VariantName, SumFrom, SumTo,"
        " Percent, GoodName, Valid) VALUES (?, ?, ?, ?, ?, ?, ?, ?)";
    Insert(discount, {1, "Grupės", Variant::Null(), Variant::Null(), Variant::Null(), 3.0,
                      Variant::Null(), true});
    Insert(discount, {2, "Sezoninė", "Vasara", 50.0, 0.0, 2.5, "Statyba", false});
  }

  OrvelStatus Write(const std::string& param) {
    return Type(kFirms).ExecCall("AddUpdateFirmInfo", param, 0);
  }

  std::string Notes() {
    auto stmt = db_->Prepare(
        "SELECT ID, FirmID, Info, DateFrom, DateTo, UserName, Priority FROM firm_info ORDER BY ID");
    std::string out;
    while (stmt.Step()) {
      for (int c = 0; c < stmt.ColumnCount(); ++c) out += ConcatText(stmt.Column(c)) + "|";
      out += "\n";
    }
    return out;
  }
};

// The fields each list answers are held by the contract suite on every
// engine; here the rows and their order.
struct ListCase {
  const char* call;
  const char* field;
  std::vector<std::string> values;
};

class FirmDetailListTest : public FirmDetailCallsTest,
                           public ::testing::WithParamInterface<ListCase> {};

TEST_P(FirmDetailListTest, AnswersTheFirmsRowsWithTheFieldsTheListReads) {
  const ListCase& c = GetParam();
  auto rs = Read(kFirms, c.call, "O00001002");
  ASSERT_NE(rs, nullptr);
  EXPECT_EQ(Column(*rs, c.field), c.values);
  EXPECT_EQ(Read(kFirms, c.call, "O00001003")->RecordCount(), 0);
}

// An account of the list opens as a record of its own type.
TEST_F(FirmDetailCallsTest, AnAccountOpensAsARecordOfItsOwnType) {
  EXPECT_EQ(ConcatText(Read("O0000500", "Orvel_ReadObject", "'O00005001'")->Fields("Name").Value()),
            "LT02");
}

INSTANTIATE_TEST_SUITE_P(
    Calls, FirmDetailListTest,
    ::testing::Values(ListCase{"GetAccounts", "BankName", {"", "Swedbank"}},
                      ListCase{"GetFirmADDRESSES", "AddressType", {"Buveinės", "Pristatymo"}},
                      ListCase{"GetFirmCONTACTS", "OIDR", {"O00021001"}},
                      ListCase{"GetFirmSERVERS", "Name", {"Rūta Buhalterė"}},
                      ListCase{"GetFirmActivity", "OIDR", {"O00025001"}},
                      ListCase{"GetFirmBranch", "OIDR", {"O00017001"}},
                      ListCase{"GetContractsList", "ContractNumber", {"S-2", "S-1"}},
                      // Its own discounts first, then its group's, named by who holds them.
                      ListCase{"GetDiscounts", "FirmName", {"UAB Alfa", "Tiekėjai"}}),
    [](const auto& info) { return std::string(info.param.call); });

TEST_F(FirmDetailCallsTest, ANoteIsAddedUnderIdZeroAndThenUpdated) {
  ASSERT_EQ(Write("0,'Skambinti \"rytoj\"','20261123',Null,2,900,3").Number, 0);
  EXPECT_EQ(Notes(), "1|2|Skambinti \"rytoj\"|2026-11-23||rūta|3|\n");
  // The text may hold commas; the end may be set later.
  ASSERT_EQ(Write("1,'Skambinti, paskui rašyti','20261201','20261231',2,1,1").Number, 0);
  EXPECT_EQ(Notes(), "1|2|Skambinti, paskui rašyti|2026-12-01|2026-12-31|admin|1|\n");
  auto rs = Read(kFirms, "GetFirmInfo", "'O00001002',1");
  EXPECT_THAT(Column(*rs, "Info"), ElementsAre("Skambinti, paskui rašyti"));
}

struct BadNoteCase {
  const char* name;
  const char* param;
  int32_t number;
};

// An unreal day, too few arguments and an unknown firm are refused in the
// contract suite on every engine.
class FirmDetailBadNoteTest : public FirmDetailCallsTest,
                              public ::testing::WithParamInterface<BadNoteCase> {};

TEST_P(FirmDetailBadNoteTest, IsRefusedAndChangesNothing) {
  ASSERT_EQ(Write("0,'Esama','20260101',Null,2,1,1").Number, 0);
  const std::string before = Notes();
  OrvelStatus status = Write(GetParam().param);
  EXPECT_EQ(status.Number, GetParam().number);
  EXPECT_FALSE(status.Text.empty());
  EXPECT_EQ(Notes(), before);
}

constexpr int32_t kBadCall = TableBusinessObject::kBadCall;
constexpr int32_t kNotFound = TableBusinessObject::kRecordNotFound;

INSTANTIATE_TEST_SUITE_P(
    Cases, FirmDetailBadNoteTest,
    ::testing::Values(
        BadNoteCase{"PriorityZero", "0,'A','20260101',Null,2,1,0", kBadCall},
        BadNoteCase{"PriorityFour", "0,'A','20260101',Null,2,1,4", kBadCall},
        BadNoteCase{"DayWithDashes", "0,'A','2026-01-01',Null,2,1,1", kBadCall},
        BadNoteCase{"EndsBeforeItStarts", "0,'A','20260201','20260131',2,1,1", kBadCall},
        BadNoteCase{"NoSuchNote", "7,'A','20260101',Null,2,1,1", kNotFound},
        BadNoteCase{"AnotherFirmsNote", "1,'A','20260101',Null,3,1,1", kNotFound}),
    [](const auto& info) { return std::string(info.param.name); });

}  // namespace
}  // namespace orvel
