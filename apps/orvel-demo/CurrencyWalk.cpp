// Currencies: the day rates fetched from a loopback service and written.
#include <cstdlib>
#include <iostream>
#include <map>
#include <memory>
#include <string>

#include "DemoSupport.h"
#include "Walks.h"
#include "host/Convert.h"
#include "host/MemoryRecordset.h"
#include "orvel/OrvelWindow.h"
#include "orvel/Variant.h"
#include "hostkit/LoopbackRateService.h"
#include "testhost/MemoryBusinessObject.h"
#include "testhost/TestObjectManager.h"
#include "testhost/TestWindowManager.h"
#include "ui/Button.h"
#include "ui/DTPicker.h"
#include "ui/ListView.h"

namespace demo {
namespace {

using orvel::Variant;

// The stored currencies and the day rates written to them.
struct StoredCurrency {
  const char* code;
  const char* state;
  const char* one;
  double rate;
  double fixed;
  int base;
};

void SeedCurrencies(orvel::TestHost& host, std::map<std::string, StoredCurrency>& stored) {
  auto bo = host.BusinessObject("O0002200");
  auto& table = bo->Table();
  table.SetFields({"ID", "Code", "State", "FixedRate", "OneCurr"});
  table.SetPreviewRule([](const orvel::MemoryTable::FieldReader& field) {
    return orvel::ConcatText(field("Code"));
  });
  int id = 1;
  for (auto& [oidr, c] : stored) {
    table.Seed({{{"ID", Variant(id++)},
                 {"Code", Variant(c.code)},
                 {"State", Variant(c.state)},
                 {"FixedRate", Variant(c.fixed)},
                 {"OneCurr", Variant(c.one)}}});
  }
  bo->OnRead("GetCurrencyList", [&stored](const std::string&) {
    auto rs = std::make_shared<orvel::MemoryRecordset>(std::vector<std::string>{
        "Code", "OIDR", "State", "OneCurr", "Rate", "FixedRate", "BaseCurrency"});
    for (const auto& [oidr, c] : stored) {
      rs->AddRow({Variant(c.code), Variant(oidr), Variant(c.state), Variant(c.one), Variant(c.rate),
                  Variant(c.fixed), Variant(int32_t{c.base})});
    }
    return orvel::OrvelBoResult(0, "", rs);
  });
  bo->OnAction("SaveDayRate", [&stored](const std::string& param, Variant::Array&) {
    std::string code = param.substr(1, param.find('\'', 1) - 1);
    for (auto& [oidr, c] : stored) {
      if (code == c.code) c.rate = orvel::Val(param.substr(param.rfind(',') + 1));
    }
    return orvel::OrvelStatus{};
  });
}

// Every row, or only those of stored currencies.
void PrintRows(orvel::ListView& rows, bool storedOnly = false) {
  for (const auto& row : rows.ListItems()) {
    if (storedOnly && orvel::ConcatText(row->Tag()).empty()) continue;
    std::cout << "  " << row->Text();
    for (const auto& item : row->ListSubItems()) std::cout << " | " << item->Text();
    std::cout << " | " << orvel::ConcatText(row->Tag()) << "\n";
  }
}

}  // namespace

int WalkCurrencies(orvel::TestHost& host) {
  orvel::LoopbackRateService service;
  // The module reads the service's address from the environment.
  const char* variable = "ORVEL_RATES_ADDRESS";
  ::setenv(variable, service.Address().c_str(), 1);
  std::map<std::string, StoredCurrency> stored{
      {"O00022001", {"LTL", "Lietuvos", "litas", 1, 0, 1}},
      {"O00022002", {"EUR", "Europos", "euras", 3.4528, 3.4528, 0}},
      {"O00022003", {"USD", "JAV", "doleris", 2.5, 0, 0}},
      {"O00022004", {"JPY", "Japonijos", "jena", 0.03, 0, 0}},
      {"O00022005", {"GBP", "Didžiosios Britanijos", "svaras", 4, 0, 0}},
      {"O00022006", {"XAU", "Aukso", "uncija", 4000, 0, 0}},
  };
  SeedCurrencies(host, stored);
  auto currencies = host.ObjectManager()->GetOrvelObjectUI("O0002200");
  if (!currencies) return 1;

  Section("O0002200 Valiutos: the menus of the root and of currency 3");
  PrintMenu("O0002200", currencies->GetMenu("O0002200", "", ""));
  PrintMenu("O00022003", currencies->GetMenu("O00022003", "C", ""));

  Section("O0002200: the day rates of 2010-12-30 from " + service.Address());
  auto window = ShowFromMenu(host, *currencies, "O0002200", "Valiutų kursų įrašymas");
  if (!window) return 1;
  auto* date = dynamic_cast<orvel::DTPicker*>(window->FindControl("dtpDate"));
  auto* rows = dynamic_cast<orvel::ListView*>(window->FindControl("lvwRows"));
  if (!date || !rows) return 1;
  date->SetValue(Variant(orvel::DateSerial(2010, 12, 30)));
  ClickButton(*window, "cmdGo");
  PrintRows(*rows);
  int filled = rows->ListItems().Count();

  Section("O0002200: write all floating rates (EUR is fixed), per unit");
  ClickButton(*window, "cmdWrite");
  PrintRows(*rows, /*storedOnly=*/true);

  Section("O0002200: close the window");
  ClickButton(*window, "SSCClose");
  ::unsetenv(variable);
  bool wrote = stored["O00022004"].rate == 3.2088 / 100 && stored["O00022002"].rate == 3.4528;
  std::cout << "  service: " << service.WsdlReads() << " WSDL read(s), "
            << service.Calls("getExchangeRatesByDate") << " rate call(s)\n";
  return filled > 30 && wrote ? 0 : 1;
}

}  // namespace demo
