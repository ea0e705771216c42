// The goods card's traffic tab filling from 200,000 movements of one good,
// by date and then by purchase (sorted again, filtered to purchases and their
// sales, each purchase's remainder computed on the way), against a plain loop
// that copies the same fields of the same record set into the same cell
// texts and sorts and filters those rows the same two ways. The program
// prints the ratio (window / baseline, by CPU time), the target being 3 or
// less.
//
//   orvel_bench_goods_traffic [benchmark flags]

#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "RatioReporter.h"
#include "common/Catalogue.h"
#include "common/Platform.h"
#include "goods/frmGoods.h"
#include "host/Convert.h"
#include "host/MemoryRecordset.h"
#include "orvel/OrvelObjectUI.h"
#include "module/ClassFactory.h"
#include "testhost/FakeOrvelGrid.h"
#include "testhost/MemoryBusinessObject.h"
#include "testhost/ScriptedUi.h"
#include "testhost/TestHost.h"
#include "testhost/TestHostClasses.h"
#include "testhost/TestObjectManager.h"
#include "testhost/TestWindowManager.h"

namespace {

using namespace orvel;

constexpr int kMovements = 200'000;

std::string Numbered(const char* prefix, int n) {
  char text[32];
  std::snprintf(text, sizeof text, "%s%d", prefix, n);
  return text;
}

// Every fifth line a purchase, the four after it its sales; a third of the
// lines in euros at a rate.
std::shared_ptr<MemoryRecordset> MakeMovements() {
  auto rs = std::make_shared<MemoryRecordset>(std::vector<std::string>{
      "OIDR",      "OType",        "SaleID",      "ID",    "DocName", "Number",    "Date",
      "Addressee", "Amount",       "Measure",     "Price", "Suma",    "Comment",   "LName",
      "CODE",      "CurrencyRate", "SourcerName", "Cost",  "Sign",    "PurchDate", "PurchaseID"});
  rs->Reserve(kMovements);
  for (int i = 0; i < kMovements; ++i) {
    const bool purchase = i % 5 == 0;
    const int lot = i / 5 + 1;
    const bool euro = i % 3 == 2;
    const double amount = 1 + i % 40;
    const double price = 0.37 + (i % 1000) * 0.013;
    const Date day{45000.0 + (i * 7919) % 1500};
    const Date bought{45000.0 + (lot * 7919) % 1500};
    rs->AddRow({Variant(Numbered("O0001200", i + 1)),
                Variant(purchase ? "PURCHASE" : "SALE"),
                Variant(i + 1),
                Variant(i + 1),
                Variant(purchase ? "Pirkimas" : "Pardavimas"),
                Variant(Numbered("D-", i)),
                Variant(day),
                Variant(Numbered("UAB ", i % 300)),
                Variant(amount),
                Variant("vnt."),
                Variant(price),
                Variant(price * amount),
                Variant::Null(),
                Variant(Numbered("Sandėlis ", i % 7)),
                Variant(euro ? "EUR" : "LTL"),
                euro ? Variant(3.4528) : Variant::Null(),
                Variant("Tiekėjas"),
                Variant(price * amount * 0.8),
                Variant(purchase ? 0 : 1),
                Variant(bought),
                Variant(lot)});
  }
  return rs;
}

const std::shared_ptr<MemoryRecordset>& Movements() {
  static const auto movements = MakeMovements();
  return movements;
}

// The module over the in-memory host, with one good kept in rests whose
// traffic is the shared set, handed out from its start.
struct Host {
  TestHost host;
  std::shared_ptr<frmGoods> window;
  Host() {
    Platform::Attach(host.HostClasses(), host.Ui());
    host.SetAdapterSource([](const std::string& oid) {
      return std::dynamic_pointer_cast<OrvelObjectUI>(ClassFactory::Create("UI" + oid.substr(1)));
    });
    auto& table = host.BusinessObject("O0000200")->Table();
    table.SetFields({"ID", "Name", "ParentID", "GroupFlag", "WithRest", "Price", "VAT"});
    table.Seed({{{"Name", Variant("Duona")},
                 {"ParentID", Variant(0)},
                 {"GroupFlag", Variant(0)},
                 {"WithRest", Variant(true)},
                 {"Price", Variant(1.2)},
                 {"VAT", Variant(21)}}});
    host.BusinessObject("O0000200")->OnRead("GetTraffic", [](const std::string&) {
      auto& rs = *Movements();
      rs.SetFilter(Variant(""));
      rs.SetSort("");
      return OrvelBoResult(0, "", Movements());
    });
    auto goods = host.ObjectManager()->GetOrvelObjectUI("O0000200");
    window = goods->ClickMenu("O00002001", "", "0", "").Value.ObjectAs<frmGoods>();
    host.WindowManager()->ShowWindow(window);
  }
};

Host& SharedHost() {
  static Host host;
  return host;
}

constexpr int kCells = 16;
struct Line {
  double date = 0, purchDate = 0, id = 0, purchaseId = 0, sign = 0;
  std::array<std::string, kCells> cells;
};

// The baseline: the same fields into the same texts, then the two orders.
void CopyAndSort(Recordset& rs, std::vector<Line>& lines) {
  auto& f = rs.Fields();
  const char* names[] = {"DocName",   "Number",       "Date",        "Addressee", "Amount",
                         "Measure",   "Price",        "Suma",        "Comment",   "LName",
                         "CODE",      "CurrencyRate", "SourcerName", "Cost",      "Sign",
                         "PurchDate", "PurchaseID",   "ID"};
  Field* fields[18];
  for (int i = 0; i < 18; ++i) fields[i] = &f.Item(names[i]);
  for (rs.MoveFirst(); !rs.IsEOF(); rs.MoveNext()) {
    Line line;
    for (int i = 0; i < 6; ++i) line.cells[static_cast<size_t>(i)] = ConcatText(fields[i]->Value());
    line.cells[6] = Format(fields[6]->Value(), "#0.00######");
    line.cells[7] = Format(fields[7]->Value(), "#0.00");
    line.cells[8] = ConcatText(fields[8]->Value());
    line.cells[9] = ConcatText(fields[9]->Value());
    line.cells[10] = ConcatText(fields[10]->Value());
    line.cells[11] = ConcatText(fields[11]->Value());
    line.cells[12] = ConcatText(fields[12]->Value());
    line.cells[13] = Format(fields[13]->Value(), "#0.00");
    line.sign = CDbl(fields[14]->Value());
    line.purchDate = CDbl(fields[15]->Value());
    line.purchaseId = CDbl(fields[16]->Value());
    line.id = CDbl(fields[17]->Value());
    line.date = CDbl(fields[2]->Value());
    lines.push_back(std::move(line));
  }
  std::stable_sort(lines.begin(), lines.end(), [](const Line& a, const Line& b) {
    return a.date != b.date ? a.date > b.date : a.id < b.id;
  });
  std::vector<Line> byPurchase;
  byPurchase.reserve(lines.size());
  for (const Line& line : lines) {
    if (line.purchaseId > 0) byPurchase.push_back(line);
  }
  std::stable_sort(byPurchase.begin(), byPurchase.end(), [](const Line& a, const Line& b) {
    if (a.purchDate != b.purchDate) return a.purchDate < b.purchDate;
    if (a.purchaseId != b.purchaseId) return a.purchaseId < b.purchaseId;
    if (a.sign != b.sign) return a.sign < b.sign;
    if (a.date != b.date) return a.date < b.date;
    return a.id < b.id;
  });
  benchmark::DoNotOptimize(byPurchase.data());
}

void BM_Baseline(benchmark::State& state) {
  auto& rs = *Movements();
  SharedHost();
  for (auto _ : state) {
    std::vector<Line> lines;
    lines.reserve(kMovements);
    CopyAndSort(rs, lines);
    benchmark::DoNotOptimize(lines.data());
  }
  state.counters["rows"] = kMovements;
}

void BM_TrafficTab(benchmark::State& state) {
  Movements();
  auto& w = *SharedHost().window;
  int shown = 0;
  for (auto _ : state) {
    w.mnuByPurch.SetChecked(false);
    w.LoadTraffic(true);   // fetched, newest first
    w.mnuByPurch_Click();  // by purchase: sorted again and filtered, no call
    shown = dynamic_cast<FakeOrvelGrid&>(*w.OrvelGrid).TabList("Traffic").ListItems().Count();
  }
  state.counters["rows"] = shown;
}

BENCHMARK(BM_Baseline)->Unit(benchmark::kMillisecond)->MinTime(2.0)->Repetitions(3);
BENCHMARK(BM_TrafficTab)->Unit(benchmark::kMillisecond)->MinTime(2.0)->Repetitions(3);

}  // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  orvel::RatioReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  double ratio = reporter.Ratio("BM_TrafficTab", "BM_Baseline");
  if (ratio >= 0) std::printf("traffic tab / baseline: %.2f (target <= 3)\n", ratio);
  benchmark::Shutdown();
  return 0;
}
