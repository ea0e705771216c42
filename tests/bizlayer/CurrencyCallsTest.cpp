#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "CatalogueCallsFixture.h"

namespace orvel {
namespace {

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

}  // namespace
}  // namespace orvel
