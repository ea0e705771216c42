#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "CatalogueCallsFixture.h"

namespace orvel {
namespace {

using ::testing::ElementsAre;

// EUR the base, USD with two day rates, LTL fixed, GBP without any rate.
class CurrencyCallsTest : public CatalogueCallsFixture, public ::testing::Test {
 protected:
  CurrencyCallsTest() {
    const char* currency =
        "INSERT INTO currencies (Code, Name, State, FixedRate, OneCurr) VALUES (?, ?, ?, ?, ?)";
    Insert(currency, {"EUR", "Euras", "Europos Sąjungos", 1.0, "euras"});
    Insert(currency, {"USD", "JAV doleris", "JAV", 0.0, "doleris"});
    Insert(currency, {"LTL", "Litas", "Lietuvos", 3.4528, "litas"});
    Insert(currency, {"GBP", "Svaras sterlingas", "Didžiosios Britanijos", 0.0, "svaras"});
    const char* rate = "INSERT INTO currency_rates (CurrencyID, RateDate, Rate) VALUES (2, ?, ?)";
    Insert(rate, {DateSerial(2026, 11, 20), 1.05});
    Insert(rate, {DateSerial(2026, 11, 22), 1.06});
  }

  std::string RateOf(const std::string& param, const std::string& code) {
    auto rs = Read("O0002200", "GetCurrencyList", param);
    for (rs->MoveFirst(); !rs->IsEOF(); rs->MoveNext()) {
      if (ConcatText(rs->Fields("Code").Value()) == code) return Text(rs->Fields("Rate").Value());
    }
    return "missing";
  }

  std::string Stored(const Date& day) {
    auto stmt =
        db_->Prepare("SELECT Rate FROM currency_rates WHERE CurrencyID = 2 AND RateDate = ?");
    stmt.Bind(1, Variant(day));
    return stmt.Step() ? Text(stmt.Column(0)) : "none";
  }
};

// "GetCurrencyList" with the date as the currency object sends it.
struct ListCase {
  const char* param;
  const char* code;
  const char* rate;  // "" for Null
};

class CurrencyListTest : public CurrencyCallsTest,
                         public ::testing::WithParamInterface<ListCase> {};

TEST_P(CurrencyListTest, GivesTheRateInForceOnTheDay) {
  const auto& c = GetParam();
  EXPECT_EQ(RateOf(c.param, c.code), c.rate) << c.param << " " << c.code;
}

INSTANTIATE_TEST_SUITE_P(Currencies, CurrencyListTest,
                         ::testing::Values(ListCase{"'2026-11-20'", "USD", "1.05"},
                                           ListCase{"'2026-11-21'", "USD", "1.05"},
                                           ListCase{"'2026-11-22'", "USD", "1.06"},
                                           ListCase{"'1990.01.01'", "USD", ""},
                                           ListCase{"'1990.01.01'", "EUR", "1"},
                                           ListCase{"'2026-11-22'", "LTL", "3.4528"},
                                           ListCase{"'2026-11-22'", "GBP", ""}));

class CurrencyReadTest : public CurrencyCallsTest,
                         public ::testing::WithParamInterface<ReadCase> {};

TEST_P(CurrencyReadTest, AnswersTheRowsInOrder) { ExpectRead("O0002200", GetParam()); }

INSTANTIATE_TEST_SUITE_P(
    Currencies, CurrencyReadTest,
    ::testing::Values(
        // The fields the rates window reads.
        ReadCase{"GetCurrencyList", "'2026-11-22'",
                 {{"Code", {"EUR", "GBP", "LTL", "USD"}},
                  {"OIDR", {"O00022001", "O00022004", "O00022003", "O00022002"}},
                  {"BaseCurrency", {"1", "0", "0", "0"}}, {"FixedRate", {"1", "0", "3.4528", "0"}},
                  {"State", {"Europos Sąjungos", "Didžiosios Britanijos", "Lietuvos", "JAV"}},
                  {"OneCurr", {"euras", "svaras", "litas", "doleris"}}}},
        // A code however it is written; no such code is an empty set, which
        // the currency object then tells the user.
        ReadCase{"GetCurrencyByCode", "USD", {{"OIDR", {"O00022002"}}}},
        ReadCase{"GetCurrencyByCode", "usd", {{"OIDR", {"O00022002"}}}},
        ReadCase{"GetCurrencyByCode", "'USD'", {{"OIDR", {"O00022002"}}}},
        ReadCase{"GetCurrencyByCode", " USD", {{"OIDR", {"O00022002"}}}},
        ReadCase{"GetCurrencyByCode", "XYZ", {{"OIDR", {}}}},
        ReadCase{"GetCurrencyByCode", "", {{"OIDR", {}}}},
        // The rates of a period by code and day.
        ReadCase{"GetCurrencyRates", "'2026-11-01','2026-11-30'",
                 {{"Code", {"USD", "USD"}}, {"Rate", {"1.05", "1.06"}},
                  {"DateD", {"2026-11-20", "2026-11-22"}}}},
        ReadCase{"GetCurrencyRates", "'2026-11-21','2026-11-21'", {{"Code", {}}}},
        ReadCase{"GetCurrencyRates", "'2026-11-30','2026-11-01'", {{"Code", {}}}}));

TEST_F(CurrencyCallsTest, SaveDayRateAddsADayAndOverwritesAnExistingOne) {
  auto status = Type("O0002200").ExecCall("SaveDayRate", "'USD','2026-11-23',1.0825", 0);
  ASSERT_EQ(status.Number, 0) << status.Text;
  EXPECT_EQ(Stored(DateSerial(2026, 11, 23)), "1.0825");
  status = Type("O0002200").ExecCall("SaveDayRate", "'USD','2026-11-22',1.07", 0);
  ASSERT_EQ(status.Number, 0) << status.Text;
  EXPECT_EQ(Stored(DateSerial(2026, 11, 22)), "1.07");
  EXPECT_EQ(One("SELECT COUNT(*) FROM currency_rates"), Variant(3));
  EXPECT_EQ(RateOf("'2026-11-22'", "USD"), "1.07");
  // A date picked with its time of day is the same day; the code in any case.
  status = Type("O0002200").ExecCall("SaveDayRate", "'usd','2026.11.22 14:05:00',1.08", 0);
  ASSERT_EQ(status.Number, 0) << status.Text;
  EXPECT_EQ(Stored(DateSerial(2026, 11, 22)), "1.08");
  EXPECT_EQ(One("SELECT COUNT(*) FROM currency_rates"), Variant(3));
}

}  // namespace
}  // namespace orvel
