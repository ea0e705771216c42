#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "CatalogueCallsFixture.h"

namespace orvel {
namespace {


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

  std::string Stored(const Date& day) {
    auto stmt =
        db_->Prepare("SELECT Rate FROM currency_rates WHERE CurrencyID = 2 AND RateDate = ?");
    stmt.Bind(1, Variant(day));
    return stmt.Step() ? Text(stmt.Column(0)) : "none";
  }
};

class CurrencyReadTest : public CurrencyCallsTest,
                         public ::testing::WithParamInterface<ReadCase> {};

TEST_P(CurrencyReadTest, AnswersTheRowsInOrder) { ExpectRead("O0002200", GetParam()); }

INSTANTIATE_TEST_SUITE_P(
    Currencies, CurrencyReadTest,
    ::testing::Values(
        // The fields the rates window reads, the rate the one in force on the
        // day as the currency object sends it.
        ReadCase{"GetCurrencyList", "'2026-11-22'",
                 {{"Code", {"EUR", "GBP", "LTL", "USD"}}, {"Rate", {"1", "", "3.4528", "1.06"}},
                  {"OIDR", {"O00022001", "O00022004", "O00022003", "O00022002"}},
                  {"BaseCurrency", {"1", "0", "0", "0"}}, {"FixedRate", {"1", "0", "3.4528", "0"}},
                  {"State", {"Europos Sąjungos", "Didžiosios Britanijos", "Lietuvos", "JAV"}},
                  {"OneCurr", {"euras", "svaras", "litas", "doleris"}}}},
        ReadCase{"GetCurrencyList", "'2026-11-20'", {{"Rate", {"1", "", "3.4528", "1.05"}}}},
        ReadCase{"GetCurrencyList", "'2026-11-21'", {{"Rate", {"1", "", "3.4528", "1.05"}}}},
        ReadCase{"GetCurrencyList", "'1990.01.01'", {{"Rate", {"1", "", "3.4528", ""}}}},
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
  // A date picked with its time of day is the same day; the code in any case.
  status = Type("O0002200").ExecCall("SaveDayRate", "'usd','2026.11.22 14:05:00',1.08", 0);
  ASSERT_EQ(status.Number, 0) << status.Text;
  EXPECT_EQ(Stored(DateSerial(2026, 11, 22)), "1.08");
  EXPECT_EQ(One("SELECT COUNT(*) FROM currency_rates"), Variant(3));
}

}  // namespace
}  // namespace orvel
