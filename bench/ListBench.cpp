// The list window filling its table from 100,000 records grouped three
// levels deep, against a hand-written loop that reads the same fields of the
// same record sets into strings. Each side builds its table and drops it
// inside the timed loop, so both pay for their teardown. The program prints
// the ratio (window / baseline, by CPU time) after Google Benchmark's own
// table; the target is 3 or less.
//
//   orvel_bench_lists [benchmark flags]

#include <benchmark/benchmark.h>

#include <cstdio>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "RatioReporter.h"
#include "common/Catalogue.h"
#include "common/Platform.h"
#include "host/Convert.h"
#include "host/MemoryRecordset.h"
#include "lists/ListedType.h"
#include "lists/frmReferenceBookPreview.h"
#include "testhost/ScriptedUi.h"
#include "testhost/TestHost.h"
#include "testhost/TestHostClasses.h"
#include "testhost/TestObjectManager.h"
#include "testhost/TestServices.h"

namespace {

using namespace orvel;

constexpr int kFanOut = 10;        // groups per level
constexpr int kLeafMembers = 100;  // records in each group of the third level
const std::vector<std::string> kFields{"Code", "Name", "Amount", "Active", "GroupFlag", "OIDR"};

std::string Oidr(int n) {
  char text[16];
  std::snprintf(text, sizeof text, "O0000900%07d", n);
  return text;
}

// "<prefix><n>"; built with snprintf, as GCC 12 misreads a literal plus
// to_string as an overlapping copy.
std::string Numbered(const char* prefix, int n) {
  char text[32];
  std::snprintf(text, sizeof text, "%s%d", prefix, n);
  return text;
}

struct Data {
  std::shared_ptr<ListedType> type = std::make_shared<ListedType>();
  int records = 0;
};

void AddLevel(Data& d, const std::string& parent, int level, int& next) {
  auto rs = std::make_shared<MemoryRecordset>(kFields);
  if (level == 3) {
    for (int i = 0; i < kLeafMembers; ++i) {
      int n = next++;
      rs->AddRow({Variant(Numbered("K", n)), Variant(Numbered("Įrašas ", n)), Variant(n * 0.25),
                  Variant(n % 2 == 0), Variant(0), Variant(Oidr(n))});
      ++d.records;
    }
  } else {
    std::vector<std::string> groups;
    for (int i = 0; i < kFanOut; ++i) {
      int n = next++;
      groups.push_back(Oidr(n));
      rs->AddRow({Variant(Numbered("G", n)), Variant(Numbered("Grupė ", n)), Variant::Null(),
                  Variant::Null(), Variant(1), Variant(groups.back())});
    }
    for (const auto& g : groups) AddLevel(d, g, level + 1, next);
  }
  d.type->lists[parent] = rs;
}

Data& SharedData() {
  static Data data = [] {
    Data d;
    int next = 1;
    AddLevel(d, "", 0, next);
    return d;
  }();
  return data;
}

struct Host {
  TestHost host;
  Host() {
    Platform::Attach(host.HostClasses(), host.Ui());
    SetOrvelS(host.Services());
    auto structure = std::make_shared<MemoryRecordset>(
        std::vector<std::string>{"Name", "Caption", "Length", "xType", "Visible"});
    structure->AddRow({Variant("Code"), Variant("Kodas"), Variant(20), Variant(167), Variant(1)});
    structure->AddRow(
        {Variant("Name"), Variant("Pavadinimas"), Variant(100), Variant(231), Variant(1)});
    structure->AddRow({Variant("Amount"), Variant("Suma"), Variant(8), Variant(60), Variant(1)});
    structure->AddRow(
        {Variant("Active"), Variant("Aktyvus"), Variant(1), Variant(104), Variant(1)});
    host.ObjectManager()->ReplyToCall(
        "Orvel_GetObjectStructureByOID",
        OrvelResult{0, "", Variant(std::static_pointer_cast<Object>(structure))});
  }
};

Host& SharedHost() {
  static Host host;
  return host;
}

// The baseline: the same walk over the same record sets, each shown field
// read and turned into a string, kept in plain vectors.
void CopyFields(Recordset& rs, std::map<std::string, std::shared_ptr<MemoryRecordset>>& lists,
                std::vector<std::vector<std::string>>& out) {
  auto& f = rs.Fields();
  for (rs.MoveFirst(); !rs.IsEOF(); rs.MoveNext()) {
    std::vector<std::string> row;
    row.reserve(4);
    for (const char* name : {"Code", "Name", "Amount", "Active"}) {
      Variant v = f.Item(name).Value();
      row.push_back(v.IsNull() ? std::string() : CStr(v));
    }
    out.push_back(std::move(row));
    if (CLng(f.Item("GroupFlag").Value()) != 0) {
      CopyFields(*lists[CStr(f.Item("OIDR").Value())], lists, out);
    }
  }
}

void BM_Baseline(benchmark::State& state) {
  auto& d = SharedData();
  SharedHost();
  size_t rows = 0;
  for (auto _ : state) {
    std::vector<std::vector<std::string>> out;
    out.reserve(static_cast<size_t>(d.records) + 2000);
    CopyFields(*d.type->lists[""], d.type->lists, out);
    rows = out.size();
    benchmark::DoNotOptimize(out.data());
  }
  state.counters["rows"] = static_cast<double>(rows);
}

void BM_ListWindow(benchmark::State& state) {
  auto& d = SharedData();
  SharedHost();
  size_t shown = 0;
  for (auto _ : state) {
    auto w = std::make_unique<frmReferenceBookPreview>();
    w->ObjectUIO = std::make_shared<ListedObject>(
        d.type, std::vector<std::string>{"ID", "Code", "Name", "GroupFlag"}, "O0000900");
    w->Show();
    shown = static_cast<size_t>(w->lvwRec.ListItems().Count());
    w.reset();  // the window and its table go, as the baseline's rows do
  }
  state.counters["rows"] = static_cast<double>(shown);
}

BENCHMARK(BM_Baseline)->Unit(benchmark::kMillisecond)->MinTime(2.0);
BENCHMARK(BM_ListWindow)->Unit(benchmark::kMillisecond)->MinTime(2.0);

}  // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  orvel::RatioReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  double ratio = reporter.Ratio("BM_ListWindow", "BM_Baseline");
  if (ratio >= 0) std::printf("list window / baseline: %.2f (target <= 3)\n", ratio);
  benchmark::Shutdown();
  return 0;
}
