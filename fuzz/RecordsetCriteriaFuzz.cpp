// Arbitrary filter criteria and sort keys on a small record set holding text
// (Lithuanian letters, a quote, bytes that are not UTF-8), numbers (NaN and
// infinities too), dates, Booleans, Null and Empty.
//
// The input is split at its first line feed: the part before is the filter,
// the part after the sort; an input without a line feed is tried as both.
// A RuntimeError is an accepted answer to bad input; anything else escaping
// (another exception, a crash, a sanitizer report) is a failure, and so is a
// view that disagrees with the plain meaning of the criteria or the keys:
//   - the filtered rows are exactly those RecordsetCriteria::Matches accepts,
//     row by row, in storage order when no sort is set;
//   - a sorted view holds the same rows, ordered by the keys under a plain
//     comparison (Null lowest, numbers before text, text by StrComp), with
//     ties in storage order.

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/Convert.h"
#include "host/MemoryRecordset.h"
#include "host/RecordsetCriteria.h"
#include "host/RecordsetOrder.h"
#include "orvel/RuntimeError.h"
#include "host/Text.h"

namespace {

using orvel::MemoryRecordset;
using orvel::RecordsetColumn;
using orvel::RuntimeError;
using orvel::Variant;
using orvel::VarType;

[[noreturn]] void Fail() { std::abort(); }

Variant Day(int y, int m, int d) { return Variant(orvel::DateSerial(y, m, d)); }

struct Fixture {
  std::vector<std::string> names{"ID",        "Code", "Name",   "Amount",     "Date",  "PurchaseID",
                                 "PurchDate", "Sign", "Number", "Purch Date", "Mixed", "Šalis"};
  std::vector<RecordsetColumn> columns;

  Fixture() {
    const Variant null = Variant::Null();
    const double inf = std::numeric_limits<double>::infinity();
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const std::vector<std::vector<Variant>> rows{
        {1, "EUR", "Šarūnas", 12.345, Day(2024, 3, 31), 0, Day(2024, 1, 1), 1, "A-1",
         Day(2024, 1, 1), 5, "Lietuva"},
        {2, "usd", "šarūnas", 5, Day(2024, 4, 1), 7, Day(2024, 1, 2), -1, "a-1", null, "x",
         "lietuva"},
        {3, "Eur", "O'Malley", -3, null, 12, null, 1, "B-2", Day(2023, 12, 31), null, "LATVIJA"},
        {4, null, "Žemaitė", null, Day(2023, 12, 31), -1, Day(2024, 1, 1), -1, null, null,
         Variant(), "Estija"},
        {5, "GBP", "Smith", inf, Variant(orvel::Date{45382.5}), 5, Day(2024, 2, 1), 1, "",
         Day(2024, 2, 1), "10", null},
        {6, "10", "Smithers", nan, Day(2024, 5, 1), true, Day(2024, 2, 1), 1, "Z", Day(2024, 2, 1),
         1.5, "\xff\xfe"},
        {7, "", "ſ ı İ", -inf, Day(1899, 12, 30), false, Variant(), 0, "ſ", null, true, "Šalis"},
        {8, "X", "Vilniaus bankas", -0.0, Day(9999, 12, 31), 3, Variant(orvel::Date{1e300}), 1, "x",
         null, "Vilniaus bankas 2", "š"},
    };
    columns.resize(names.size());
    for (const auto& row : rows) {
      for (size_t c = 0; c < names.size(); ++c) columns[c].push_back(row[c]);
    }
  }

  MemoryRecordset Make() const {
    MemoryRecordset rs(names);
    for (size_t r = 0; r < columns[0].size(); ++r) {
      std::vector<Variant> row;
      for (const auto& column : columns) row.push_back(column[r]);
      rs.AddRow(std::move(row));
    }
    return rs;
  }
};

const Fixture& Data() {
  static const Fixture fixture;
  return fixture;
}

// ---- the plain meaning of an order ----

int Rank(const Variant& v) {
  switch (v.Type()) {
    case VarType::Empty:
    case VarType::Null:
      return 0;
    case VarType::String:
      return 2;
    case VarType::Object:
    case VarType::Array:
      return 3;
    default:
      return 1;
  }
}

int CompareValues(const Variant& a, const Variant& b) {
  if (Rank(a) != Rank(b)) return Rank(a) < Rank(b) ? -1 : 1;
  if (Rank(a) == 2) return orvel::StrComp(a.String(), b.String(), orvel::Compare::Text);
  if (Rank(a) != 1) return 0;
  double x = a.NumberValue(), y = b.NumberValue();
  if (std::isnan(x) || std::isnan(y)) return std::isnan(x) - std::isnan(y);  // NaN highest
  return (x > y) - (x < y);
}

// The rows of the current view, in view order, checking BOF/EOF and the
// count on the way.
std::vector<size_t> Walk(MemoryRecordset& rs) {
  std::vector<size_t> rows;
  if (rs.IsBOF() != (rs.RecordCount() == 0)) Fail();
  for (rs.MoveFirst(); !rs.IsEOF(); rs.MoveNext()) {
    rows.push_back(rs.CurrentStoredRow());
    for (int f = 0; f < rs.Fields().Count(); ++f) {
      rs.Fields().Item(f).Value();
      rs.Fields().Item(f).UnderlyingValue();
    }
    if (rs.CurrentChanged()) Fail();  // nothing was edited
  }
  if (rows.size() != static_cast<size_t>(rs.RecordCount())) Fail();
  return rows;
}

void Check(std::string_view criteria, std::string_view keys) {
  const Fixture& data = Data();
  MemoryRecordset rs = data.Make();
  const size_t rowCount = data.columns[0].size();

  // Criteria that compile must apply to any data: past Compile, every
  // exception escapes and counts as a failure.
  std::optional<orvel::RecordsetCriteria> compiled;
  try {
    compiled = orvel::RecordsetCriteria::Compile(criteria, data.names);
  } catch (const RuntimeError&) {
    // Refused by the record set too, and nothing changes.
    try {
      rs.SetFilter(Variant(criteria));
      if (!criteria.empty()) Fail();
    } catch (const RuntimeError&) {
      if (!(rs.Filter() == Variant(0)) || rs.RecordCount() != static_cast<int>(rowCount)) Fail();
    }
  }
  std::vector<size_t> expected;
  for (size_t r = 0; r < rowCount; ++r) {
    if (!compiled || compiled->Matches(data.columns, r)) expected.push_back(r);
  }
  if (compiled) {
    rs.SetFilter(Variant(criteria));
    if (Walk(rs) != expected) Fail();
  }

  std::optional<orvel::RecordsetOrder> order;
  try {
    order = orvel::RecordsetOrder::Parse(keys, data.names);
  } catch (const RuntimeError&) {
    try {
      rs.SetSort(keys);
      Fail();
    } catch (const RuntimeError&) {
      if (!rs.Sort().empty()) Fail();
    }
    return;
  }
  rs.SetSort(keys);
  std::vector<size_t> sorted = Walk(rs);
  std::vector<size_t> same = sorted;
  std::sort(same.begin(), same.end());
  if (same != expected) Fail();
  for (size_t i = 1; i < sorted.size(); ++i) {
    int c = 0;
    for (const auto& key : order->Keys()) {
      c = CompareValues(data.columns[key.column][sorted[i - 1]],
                        data.columns[key.column][sorted[i]]);
      if (key.descending) c = -c;
      if (c != 0) break;
    }
    if (c > 0) Fail();
    if (c == 0 && sorted[i - 1] > sorted[i]) Fail();  // ties keep storage order
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size) {
  std::string_view input(reinterpret_cast<const char*>(bytes), size);
  size_t split = input.find('\n');
  if (split == std::string_view::npos) {
    Check(input, input);
  } else {
    Check(input.substr(0, split), input.substr(split + 1));
  }
  return 0;
}
