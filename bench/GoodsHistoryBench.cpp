// The goods history window filling its list from 1,000,000 movements,
// against a hand-written loop that reads the same fields of the same record
// set and formats them into the same strings, kept in plain arrays. The
// program prints the ratio (window / baseline, by CPU time) after Google
// Benchmark's own table, the target being 3 or less, and the heap each row
// takes in the window and in the baseline.
//
//   orvel_bench_goods_history [benchmark flags]

#include <benchmark/benchmark.h>
#include <malloc.h>

#include <array>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "RatioReporter.h"
#include "common/Catalogue.h"
#include "common/Platform.h"
#include "goods/frmGoodsHistory.h"
#include "host/Convert.h"
#include "host/MemoryRecordset.h"
#include "support/StubObjectUIO.h"
#include "testhost/ScriptedUi.h"
#include "testhost/TestHost.h"
#include "testhost/TestHostClasses.h"
#include "testhost/TestServices.h"

namespace {

using namespace orvel;

constexpr int kMovements = 1'000'000;
constexpr int kColumns = frmGoodsHistory::kColumnCount;

// "<prefix><n>"; built with snprintf, as GCC 12 misreads a literal plus
// to_string as an overlapping copy.
std::string Numbered(const char* prefix, int n) {
  char text[32];
  std::snprintf(text, sizeof text, "%s%d", prefix, n);
  return text;
}

// A third of the movements in the base currency, a third without a rate, a
// third in euros; every fourth in bold; document types of sales, purchases
// and one type without an icon.
std::shared_ptr<MemoryRecordset> MakeMovements() {
  auto rs = std::make_shared<MemoryRecordset>(std::vector<std::string>{
      "Name", "OIDR", "OType", "Sign", "Number", "Date", "Addressee", "Amount", "Measure",
      "CurrencyRate", "CODE", "Price", "Suma", "LName"});
  rs->Reserve(kMovements);
  const char* kinds[] = {"Pardavimas", "Pirkimas", "Perkėlimas"};
  const char* types[] = {"O0012000", "O0011000", "O0099900"};
  for (int i = 0; i < kMovements; ++i) {
    const int kind = i % 3;
    Variant rate = kind == 0 ? Variant(1.0) : kind == 1 ? Variant::Null() : Variant(3.4528);
    Variant code = Variant(kind == 2 ? "EUR" : "LTL");
    const double amount = 1 + i % 50;
    const double price = 0.37 + (i % 1000) * 0.013;
    rs->AddRow({Variant(kinds[kind]), Variant(Numbered("O0012000", i + 1)), Variant(types[kind]),
                Variant(i % 4), Variant(Numbered("PR-", i)), Variant(Date{45000.0 + i % 700}),
                Variant(Numbered("UAB Tiekėjas ", i % 300)), Variant(amount), Variant("vnt."), rate,
                code, Variant(price), Variant(price * amount),
                Variant(Numbered("Sandėlis ", i % 7))});
  }
  return rs;
}

const std::shared_ptr<MemoryRecordset>& Movements() {
  static const auto movements = MakeMovements();
  return movements;
}

// The good's object: answers the history with the shared set, from its start.
class HistoryObject : public StubObjectUIO {
 public:
  OrvelResult Properties(const std::string&, std::string&) override {
    Movements()->MoveFirst();
    return {0, "", Variant(std::static_pointer_cast<Object>(Movements()))};
  }
};

struct Host {
  TestHost host;
  Host() {
    Platform::Attach(host.HostClasses(), host.Ui());
    SetOrvelS(host.Services());
  }
};

Host& SharedHost() {
  static Host host;
  return host;
}

using Row = std::array<std::string, kColumns>;

std::string Text(const Variant& v) { return v.IsString() ? v.String() : ConcatText(v); }

// The baseline: the same fields of the same set, converted and formatted by
// the same routines, into plain arrays.
void FormatRows(Recordset& rs, std::vector<Row>& out) {
  auto& f = rs.Fields();
  Field* fields[14];
  const char* names[] = {"Name",   "OIDR",    "OType",        "Sign", "Number", "Date", "Addressee",
                         "Amount", "Measure", "CurrencyRate", "CODE", "Price",  "Suma", "LName"};
  for (int i = 0; i < 14; ++i) fields[i] = &f.Item(names[i]);
  for (rs.MoveFirst(); !rs.IsEOF(); rs.MoveNext()) {
    Row row;
    row[0] = Text(fields[0]->Value());
    // The document, its type and its mark go to the row's tag, icon and type.
    std::string oidr = Text(fields[1]->Value());
    std::string otype = Text(fields[2]->Value());
    const double sign = CDbl(fields[3]->Value());
    benchmark::DoNotOptimize(oidr.data());
    benchmark::DoNotOptimize(otype.data());
    benchmark::DoNotOptimize(sign);
    for (int i = 4; i <= 8; ++i) row[static_cast<size_t>(i - 3)] = Text(fields[i]->Value());
    const Variant rate = fields[9]->Value();
    const Variant code = fields[10]->Value();
    const Variant price = fields[11]->Value();
    const Variant sum = fields[12]->Value();
    const bool foreign = !rate.IsNull() && Text(code) != "LTL";
    const double r = foreign ? CDbl(rate) : 1.0;
    row[6] = Format(Variant(CDbl(price) * r), "#0.00######");
    row[7] = Format(Variant(CDbl(sum) * r), "#0.00");
    row[8] = Text(fields[13]->Value());
    if (foreign) {
      row[9] = Text(code);
      row[10] = Text(rate);
      row[11] = Format(price, "#0.00######");
      row[12] = Format(sum, "#0.00");
    } else {
      for (size_t i = 9; i <= 12; ++i) row[i].assign(1, ' ');
    }
    out.push_back(std::move(row));
  }
}

void BM_Baseline(benchmark::State& state) {
  auto& rs = *Movements();
  SharedHost();
  for (auto _ : state) {
    std::vector<Row> out;
    out.reserve(kMovements);
    FormatRows(rs, out);
    benchmark::DoNotOptimize(out.data());
    state.PauseTiming();
    out = {};
    state.ResumeTiming();
  }
  state.counters["rows"] = kMovements;
}

std::unique_ptr<frmGoodsHistory> Fill() {
  auto w = std::make_unique<frmGoodsHistory>();
  w->OrvelObjectUIO = std::make_shared<HistoryObject>();
  w->GoodID = 15;
  w->Show();
  return w;
}

void BM_HistoryWindow(benchmark::State& state) {
  Movements();
  SharedHost();
  int shown = 0;
  for (auto _ : state) {
    auto w = Fill();
    shown = w->lswHistory.ListItems().Count();
    state.PauseTiming();
    w.reset();  // tearing the list down is not part of filling it
    state.ResumeTiming();
  }
  state.counters["rows"] = shown;
}

// A run is a few seconds, so each is one iteration; the fastest of three
// repetitions counts (see RatioReporter).
BENCHMARK(BM_Baseline)->Unit(benchmark::kMillisecond)->MinTime(2.0)->Repetitions(3);
BENCHMARK(BM_HistoryWindow)->Unit(benchmark::kMillisecond)->MinTime(2.0)->Repetitions(3);

// The heap in use, small blocks and mapped ones.
size_t HeapInUse() {
  struct mallinfo2 info = mallinfo2();
  return info.uordblks + info.hblkhd;
}

void ReportMemory() {
  Movements();
  SharedHost();
  size_t before = HeapInUse();
  auto w = Fill();
  const size_t window = HeapInUse() - before;
  const int rows = w->lswHistory.ListItems().Count();
  w.reset();

  before = HeapInUse();
  std::vector<Row> out;
  out.reserve(kMovements);
  FormatRows(*Movements(), out);
  const size_t baseline = HeapInUse() - before;
  std::printf("memory per row: window %.0f bytes, baseline %.0f bytes (%d rows)\n",
              static_cast<double>(window) / rows, static_cast<double>(baseline) / kMovements, rows);
}

}  // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  orvel::RatioReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  double ratio = reporter.Ratio("BM_HistoryWindow", "BM_Baseline");
  if (ratio >= 0) std::printf("history window / baseline: %.2f (target <= 3)\n", ratio);
  ReportMemory();
  benchmark::Shutdown();
  return 0;
}
