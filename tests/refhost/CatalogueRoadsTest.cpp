#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>

#include "RunningHost.h"
#include "host/Convert.h"
#include "orvel/OrvelObjectUI.h"
#include "orvel/Recordset.h"
#include "hostkit/LoopbackRateService.h"
#include "refhost/HostPeriod.h"

namespace orvel {
namespace {

using ::testing::Contains;
using ::testing::HasSubstr;

// The real module over a fresh sample database, driven along the roads of
// the catalogues' own business calls.
using CatalogueRoadsTest = RunningHost;

// The firm card written with a code: another firm's (the question is asked
// and answered) or one nobody has (no question).
TEST_F(CatalogueRoadsTest, TheFirmCardIsWrittenAsTheAnswerSays) {
  for (const auto& [duplicate, answer, written] :
       {std::tuple{true, "Ne", false}, {true, "Taip", true}, {false, "", true}}) {
    SCOPED_TRACE(answer);
    calls_.clear();
    prompter_.said.clear();
    const std::string before = StoredText("SELECT Code FROM firms WHERE ID = 12");
    const std::string code =
        duplicate ? StoredText("SELECT Code FROM firms WHERE ID = 13") : "O'Kodas-1";
    if (*answer) prompter_.answers = {answer};
    Write(OpenCard("O000010012"), {{"Code", code}});
    EXPECT_THAT(calls_, Contains("GetCall CheckCode 'O000010012','" + code + "'"));
    EXPECT_EQ(Said("Įmonės kodas kartojasi!"), duplicate);
    EXPECT_EQ(StoredText("SELECT Code FROM firms WHERE ID = 12"), written ? code : before);
    for (const char* call : {"GetCall GetFirmIsUsedInDocuments O000010012",
                             "ExecArrayCall Orvel_SaveObject 'O0000100','O000010012'"}) {
      EXPECT_EQ(::testing::Matches(Contains(::testing::StartsWith(call)))(calls_), written);
    }
  }
}

TEST_F(CatalogueRoadsTest, ADayRateIsSavedThroughTheCurrencyObject) {
  auto usd = host_.Objects().GetOrvelObjectUI("O0002200")->GetOrvelObject("O00022002");
  ASSERT_NE(usd, nullptr);
  const std::string rates =
      "SELECT COUNT(*) FROM currency_rates r JOIN currencies c ON c.ID = r.CurrencyID"
      " WHERE c.Code = 'USD'";
  const Variant before = Stored(rates);

  // The last sampled day is overwritten, a new day is added.
  Variant::Array overwrite{Variant("USD"), Variant(DateSerial(2026, 11, 22)), Variant(1.0912)};
  auto result = usd->Methods("SaveDayRate", overwrite);
  EXPECT_EQ(result.Number, 0) << result.Text;
  EXPECT_EQ(result.Value, Variant(true));
  EXPECT_THAT(calls_, Contains("ExecCall SaveDayRate 'USD','2026-11-22',1.0912"));
  EXPECT_EQ(Stored(rates), before);
  Variant::Array added{Variant("USD"), Variant(DateSerial(2026, 11, 23)), Variant(1.1)};
  EXPECT_EQ(usd->Methods("SaveDayRate", added).Number, 0);
  EXPECT_EQ(Stored(rates).NumberValue(), before.NumberValue() + 1);

  // Read back through the module as the rate dialog reads it.
  auto list = usd->Properties("CurrencyList", "2026-11-22");
  ASSERT_EQ(list.Number, 0) << list.Text;
  EXPECT_THAT(calls_, Contains("GetCall GetCurrencyList '2026-11-22'"));
  auto rs = list.Value.ObjectAs<Recordset>();
  ASSERT_NE(rs, nullptr);
  rs->SetFilter(Variant("Code = 'USD'"));
  ASSERT_FALSE(rs->IsEOF());
  EXPECT_DOUBLE_EQ(CDbl(rs->Fields("Rate").Value()), 1.0912);

  // A fixed currency refuses a day rate; the result carries the reason.
  Variant::Array fixed{Variant("EUR"), Variant(DateSerial(2026, 11, 23)), Variant(1.0)};
  auto refused = usd->Methods("SaveDayRate", fixed);
  EXPECT_NE(refused.Number, 0);
  EXPECT_THAT(refused.Text, HasSubstr("EUR"));
}

// The rates window of the real module over the sample database fetches the
// day's rates from a local mirror of the bank (the current service, as for
// any day from 2015 on) and writes them as the price of one unit in euro.
TEST_F(CatalogueRoadsTest, TodaysRatesAreFetchedFromALocalMirrorAndWritten) {
  LoopbackRateService mirror;
  const std::string today = FormatDate(LocalToday(), Locale::Lithuanian());
  mirror.SetFxRates({{"LT", today, "USD", "1.0841"}, {"LT", today, "GBP", "0.8351"}});
  ::setenv("ORVEL_RATES_ADDRESS", mirror.Address().c_str(), 1);
  struct Unset {
    ~Unset() { ::unsetenv("ORVEL_RATES_ADDRESS"); }
  } unset;

  auto form = OpenCard("O0002200", "", "Valiutų kursų įrašymas");
  ASSERT_NE(form, nullptr);
  Press(*form, "cmdGo");
  EXPECT_EQ(mirror.Calls("getFxRates"), 1);
  EXPECT_THAT(calls_, Contains("GetCall GetCurrencyList '" + today + "'"));
  Press(*form, "cmdWrite");

  auto stored = [&](const std::string& code) {
    return Stored("SELECT r.Rate FROM currency_rates r JOIN currencies c ON c.ID = r.CurrencyID"
                  " WHERE c.Code = '" + code + "' AND r.RateDate = '" + today + "'");
  };
  // The rate travels as text of fifteen digits.
  EXPECT_NEAR(stored("USD").NumberValue(), 1 / 1.0841, 1e-14);
  EXPECT_NEAR(stored("GBP").NumberValue(), 1 / 0.8351, 1e-14);
  // Not quoted by the bank: no rate of the day.
  EXPECT_TRUE(stored("PLN").IsEmpty());
  EXPECT_TRUE(prompter_.said.empty() ||
              prompter_.said.back().find("nepasiekiama") == std::string::npos);
}

// A reference book the goods read by its records, the units of measure,
// through its adapter pair: a new unit written, read back, changed, and
// deleted.
TEST_F(CatalogueRoadsTest, AUnitOfMeasureIsWrittenReadChangedAndDeletedThroughItsAdapters) {
  const Variant name("Colis (\"), 'x'");
  auto measures = host_.Objects().GetOrvelObjectUI("O0001606");
  ASSERT_NE(measures, nullptr);
  auto fresh = measures->GetOrvelObject("O0001606");
  ASSERT_NE(fresh, nullptr);
  fresh->Fields("Name").SetValue(name);
  fresh->Fields("Code").SetValue(Variant("col."));
  auto saved = fresh->Save(nullptr, nullptr);
  ASSERT_EQ(saved.Number, 0) << saved.Text;
  const std::string oidr = fresh->OIDR();
  ASSERT_GT(oidr.size(), 8u);

  auto again = measures->GetOrvelObject(oidr);
  ASSERT_NE(again, nullptr);
  EXPECT_EQ(again->Fields("Name").Value(), name);
  again->Fields("Code").SetValue(Variant("in"));
  ASSERT_EQ(again->Save(nullptr, nullptr).Number, 0);
  EXPECT_EQ(Stored("SELECT Name FROM measures WHERE Code = 'in'"), name);

  EXPECT_EQ(measures->DeleteOrvelObject(oidr), 0);
  EXPECT_EQ(Stored("SELECT COUNT(*) FROM measures WHERE Code = 'in'"), Variant(0));
  EXPECT_THAT(calls_, Contains("ExecArrayCall Orvel_SaveObject 'O0001606','" + oidr + "'"));
  EXPECT_THAT(calls_, Contains("ExecCall Orvel_DeleteObject '" + oidr + "'"));
}

}  // namespace
}  // namespace orvel
