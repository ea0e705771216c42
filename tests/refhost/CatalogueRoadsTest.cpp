#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "RunningHost.h"
#include "host/Convert.h"
#include "host/OrvelObjectUI.h"
#include "host/Recordset.h"
#include "ui/Button.h"

namespace orvel {
namespace {

using ::testing::Contains;
using ::testing::HasSubstr;
using ::testing::Not;

// The real module over a fresh sample database, driven along the roads of
// the catalogues' own business calls.
class CatalogueRoadsTest : public RunningHost {
 protected:
  bool Called(const std::string& prefix) const {
    for (const auto& call : calls_) {
      if (call.rfind(prefix, 0) == 0) return true;
    }
    return false;
  }
};

// The firm card written with a code: another firm's (the question is asked
// and answered) or one nobody has (no question).
struct CodeCase {
  bool duplicate;
  const char* answer;
  bool written;
};

class FirmCodeRoadTest : public CatalogueRoadsTest,
                         public ::testing::WithParamInterface<CodeCase> {};

TEST_P(FirmCodeRoadTest, TheCardIsWrittenAsTheAnswerSays) {
  const auto& c = GetParam();
  const std::string before = ConcatText(Stored("SELECT Code FROM firms WHERE ID = 12"));
  const std::string code =
      c.duplicate ? ConcatText(Stored("SELECT Code FROM firms WHERE ID = 13")) : "O'Kodas-1";
  auto card = OpenCard("O000010012");
  ASSERT_NE(card, nullptr);
  auto sheet = SheetOf(card);
  ASSERT_NE(sheet, nullptr);
  ASSERT_TRUE(sheet->EditText("Code", code));
  if (*c.answer) prompter_.answers = {c.answer};
  dynamic_cast<Button*>(card->FindControl("cmdEnter"))->Click();

  EXPECT_THAT(calls_, Contains("GetCall CheckCode 'O000010012','" + code + "'"));
  if (c.duplicate) {
    EXPECT_THAT(prompter_.said, Contains(HasSubstr("Įmonės kodas kartojasi!")));
  } else {
    EXPECT_THAT(prompter_.said, Not(Contains(HasSubstr("kartojasi"))));
  }
  EXPECT_EQ(ConcatText(Stored("SELECT Code FROM firms WHERE ID = 12")), c.written ? code : before);
  EXPECT_EQ(Called("GetCall GetFirmIsUsedInDocuments O000010012"), c.written);
  EXPECT_EQ(Called("ExecArrayCall Orvel_SaveObject 'O0000100','O000010012'"), c.written);
}

INSTANTIATE_TEST_SUITE_P(Roads, FirmCodeRoadTest,
                         ::testing::Values(CodeCase{true, "Taip", true},
                                           CodeCase{true, "Ne", false}, CodeCase{false, "", true}));

TEST_F(CatalogueRoadsTest, ADayRateIsSavedThroughTheCurrencyObject) {
  auto currencies = host_.Objects().GetOrvelObjectUI("O0002200");
  ASSERT_NE(currencies, nullptr);
  auto usd = currencies->GetOrvelObject("O00022002");
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

}  // namespace
}  // namespace orvel
