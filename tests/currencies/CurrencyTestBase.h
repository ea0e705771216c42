#pragma once

#include <memory>
#include <string>
#include <vector>

#include "host/Convert.h"
#include "host/MemoryRecordset.h"
#include "orvel/OrvelObjectUIO.h"
#include "support/ModuleTest.h"
#include "support/TextRecords.h"
#include "testhost/TestSession.h"

namespace orvel {

// The module on a fresh host with a currency table: EUR (ID 5, floating),
// USD (ID 6, floating), LTL (ID 7, the base currency) and DKK (ID 8, fixed).
// "GetCurrencyList" answers the stored currencies with their OIDR and rate.
class CurrencyTestBase : public ModuleTest {
 protected:
  static constexpr const char* kOid = "O0002200";
  // The session's title, so that boxes titled by it tell themselves apart
  // from the catalogue pattern's literal title.
  static constexpr const char* kTitle = "Apskaita 2010";

  void SetUp() override {
    ModuleTest::SetUp();
    host_.Session()->SetAppTitle(kTitle);
    auto& table = BO(kOid).Table();
    table.SetFields({"ID", "Code", "State", "FixedRate", "GenderCurr", "OneCurr", "TwoCurr",
                     "TenCurr", "GenderSmall", "OneSmall", "TwoSmall", "TenSmall"});
    for (const char* gender : {"GenderCurr", "GenderSmall"}) table.SetDefault(gender, Variant(0));
    table.SetDefault("OneSmall", Variant("centas"));
    table.SetDefault("TwoSmall", Variant("centai"));
    table.SetDefault("TenSmall", Variant("centų"));
    table.SetPreviewRule(
        [](const MemoryTable::FieldReader& field) { return ConcatText(field("Code")); });
    table.Seed(SeedRows(
        "ID Code State FixedRate OneCurr TwoCurr TenCurr",
        {"5|EUR|Europos|0.0|euras|eurai|eurų", "6|USD|JAV|0.0|doleris|doleriai|dolerių",
         "7|LTL|Lietuvos|0.0|litas|litai|litų", "8|DKK|Danijos|0.4631|krona|kronos|kronų"}));
    currencies_ = Adapter(kOid);
  }

  // The stored currencies as "GetCurrencyList" gives them: code, OIDR,
  // State, OneCurr, Rate (per unit), FixedRate, BaseCurrency.
  struct Stored {
    std::string code, oidr, state, one;
    Variant rate;
    double fixed = 0;
    int base = 0;
  };
  static std::shared_ptr<MemoryRecordset> CurrencyList(const std::vector<Stored>& rows) {
    auto rs = std::make_shared<MemoryRecordset>(std::vector<std::string>{
        "Code", "OIDR", "State", "OneCurr", "Rate", "FixedRate", "BaseCurrency"});
    for (const auto& r : rows) {
      rs->AddRow({Variant(r.code), Variant(r.oidr), Variant(r.state), Variant(r.one), r.rate,
                  Variant(r.fixed), Variant(int32_t{r.base})});
    }
    return rs;
  }
  static std::vector<Stored> DefaultStored() {
    return {{"EUR", "O00022005", "Europos", "euras", Variant(3.4528), 0, 0},
            {"USD", "O00022006", "JAV", "doleris", Variant(2.5), 0, 0},
            {"LTL", "O00022007", "Lietuvos", "litas", Variant(1.0), 0, 1},
            {"DKK", "O00022008", "Danijos", "krona", Variant(0.4631), 0.4631, 0},
            {"XAU", "O00022009", "Aukso", "uncija", Variant(4000.0), 0, 0}};
  }

  // "<Number>|<Text>|<Value>" of a result, the value as text.
  static std::string Outcome(const OrvelResult& result) {
    const std::string value = result.Value.IsNothing() ? "Nothing" : ConcatText(result.Value);
    return std::to_string(result.Number) + "|" + result.Text + "|" + value;
  }

  std::shared_ptr<OrvelObjectUI> currencies_;
};

}  // namespace orvel
