#include "host/MemoryRecordset.h"

#include <cstdint>
#include <limits>
#include <map>
#include <optional>
#include <utility>

#include "host/RecordsetCriteria.h"
#include "host/RecordsetOrder.h"
#include "orvel/RuntimeError.h"
#include "host/Text.h"

namespace orvel {

namespace {

constexpr size_t kNoRow = std::numeric_limits<size_t>::max();
// The position once MoveNext has gone past the last record: EOF stays true
// even when rows are appended afterwards.
constexpr size_t kAfterEnd = std::numeric_limits<size_t>::max();
// RecordCount is an int; views keep rows as 32-bit indices.
constexpr size_t kMaxRows = std::numeric_limits<int32_t>::max();

// What `operation` refused, as a status: the set's own checks raise
// RuntimeError, and none of it leaves the set as an exception.
template <class Operation>
OrvelStatus Refusal(Operation&& operation) {
  try {
    operation();
    return {};
  } catch (const RuntimeError& error) {
    return {error.Number(), error.Text()};
  } catch (const std::bad_alloc&) {
    return {RuntimeError::kOverflow, "Per mažai atminties įrašų rinkiniui"};
  }
}

}  // namespace

class MemoryRecordset::Impl {
 public:
  class ColumnField;
  class FieldCollection;

  // ---- data ----
  std::vector<std::string> names;
  std::vector<RecordsetColumn> columns;
  size_t rowCount = 0;
  // The underlying value of each edited cell, keyed by (row, column). Only
  // edited cells are here, so a large set read and never edited costs nothing
  // extra.
  std::map<std::pair<uint32_t, uint32_t>, Variant> underlying;
  int marshalOptions = 0;

  // ---- view ----
  Variant filterValue = Variant(int32_t{0});
  std::optional<RecordsetCriteria> criteria;
  std::string sortText;
  RecordsetOrder order;
  // With a filter: the matching rows in storage order.
  std::vector<uint32_t> filtered;
  // With a sort: the visible rows in sorted order.
  std::vector<uint32_t> sorted;
  // Position in the view; at or past its size is EOF. It starts at 0, so a
  // set filled after it was made stands on its first row.
  size_t position = 0;

  std::vector<std::unique_ptr<ColumnField>> fieldObjects;

  size_t ViewSize() const {
    if (!order.IsEmpty()) return sorted.size();
    if (criteria) return filtered.size();
    return rowCount;
  }
  size_t RowAt(size_t index) const {
    if (!order.IsEmpty()) return sorted[index];
    if (criteria) return filtered[index];
    return index;
  }
  size_t CurrentRow() const { return position < ViewSize() ? RowAt(position) : kNoRow; }

  // The rows a filter picks, in storage order.
  std::vector<uint32_t> Select(const RecordsetCriteria& pick) const {
    std::vector<uint32_t> rows;
    pick.Select(columns, rowCount, rows);
    return rows;
  }

  // The visible rows in the order `by` gives: the filtered rows when a
  // filter is in force (`pick`), else all of them.
  std::vector<uint32_t> Order(const std::vector<uint32_t>* pick, const RecordsetOrder& by) const {
    std::vector<uint32_t> rows;
    if (by.IsEmpty()) return rows;
    if (pick) {
      rows = *pick;
    } else {
      rows.resize(rowCount);
      for (size_t r = 0; r < rowCount; ++r) rows[r] = static_cast<uint32_t>(r);
    }
    by.Apply(columns, rows);
    return rows;
  }

  // A row appended to storage joins the view at its end when it passes the
  // filter (or always, for a new record being entered); its place in the sort
  // is found when the sort is next set.
  void Show(size_t row, bool always) {
    if (criteria) {
      if (!always && !criteria->Matches(columns, row)) return;
      filtered.push_back(static_cast<uint32_t>(row));
    }
    if (!order.IsEmpty()) sorted.push_back(static_cast<uint32_t>(row));
  }

  void AppendRow(std::vector<Variant>&& values) {
    if (rowCount >= kMaxRows) {
      throw RuntimeError(RuntimeError::kOverflow, "Per daug eilučių įrašų rinkinyje");
    }
    size_t done = 0;
    try {
      for (; done < columns.size(); ++done) columns[done].push_back(std::move(values[done]));
    } catch (...) {
      // All columns or none: a half-added row would misalign the rest.
      for (size_t c = 0; c < done; ++c) columns[c].pop_back();
      throw;
    }
    ++rowCount;
  }

  Variant Value(size_t row, size_t column) const { return columns[column][row]; }

  Variant UnderlyingValue(size_t row, size_t column) const {
    auto it = underlying.find({static_cast<uint32_t>(row), static_cast<uint32_t>(column)});
    return it == underlying.end() ? columns[column][row] : it->second;
  }

  void SetValue(size_t row, size_t column, const Variant& value) {
    // The first edit keeps what was there; later edits leave it alone.
    const std::pair<uint32_t, uint32_t> cell{static_cast<uint32_t>(row),
                                             static_cast<uint32_t>(column)};
    if (!underlying.contains(cell)) underlying.emplace(cell, columns[column][row]);
    columns[column].Set(row, value);
  }

  int FindField(std::string_view name) const {
    for (size_t i = 0; i < names.size(); ++i) {
      if (TextEquals(names[i], name)) return static_cast<int>(i);
    }
    return -1;
  }

  int AddField(std::string name);
  orvel::Fields& Fields();
  // The filter and the sort, a refusal raised as RuntimeError.
  void Filter(const Variant& criteria);
  void SortBy(std::string_view keys);

 private:
  std::unique_ptr<FieldCollection> fieldCollection_;
};

// One column of the current record.
class MemoryRecordset::Impl::ColumnField : public Field {
 public:
  ColumnField(Impl& set, size_t column) : set_(set), column_(column) {}
  const std::string& Name() const override { return set_.names[column_]; }
  OrvelStatus Get(Variant& value) const override {
    const size_t row = set_.CurrentRow();
    if (row == kNoRow) return NoCurrentRecordRefusal();
    value = set_.Value(row, column_);
    return {};
  }
  OrvelStatus Put(const Variant& value) override {
    const size_t row = set_.CurrentRow();
    if (row == kNoRow) return NoCurrentRecordRefusal();
    return Refusal([&] { set_.SetValue(row, column_, value); });
  }
  OrvelStatus GetUnderlying(Variant& value) const override {
    const size_t row = set_.CurrentRow();
    if (row == kNoRow) return NoCurrentRecordRefusal();
    value = set_.UnderlyingValue(row, column_);
    return {};
  }

 private:
  Impl& set_;
  size_t column_;
};

class MemoryRecordset::Impl::FieldCollection : public orvel::Fields {
 public:
  explicit FieldCollection(Impl& set) : set_(set) {}
  int Count() const override { return static_cast<int>(set_.names.size()); }
  Field* Find(std::string_view name) override {
    int index = set_.FindField(name);
    return index < 0 ? nullptr : set_.fieldObjects[index].get();
  }
  Field* At(int index) override {
    if (index < 0 || static_cast<size_t>(index) >= set_.fieldObjects.size()) return nullptr;
    return set_.fieldObjects[index].get();
  }
  bool Exists(std::string_view name) const override { return set_.FindField(name) >= 0; }

 private:
  Impl& set_;
};

int MemoryRecordset::Impl::AddField(std::string name) {
  int existing = FindField(name);
  if (existing >= 0) return existing;
  names.push_back(std::move(name));
  columns.emplace_back(rowCount);  // rows already there get Empty
  fieldObjects.push_back(std::make_unique<ColumnField>(*this, names.size() - 1));
  return static_cast<int>(names.size() - 1);
}

orvel::Fields& MemoryRecordset::Impl::Fields() {
  if (!fieldCollection_) fieldCollection_ = std::make_unique<FieldCollection>(*this);
  return *fieldCollection_;
}

MemoryRecordset::MemoryRecordset() : impl_(std::make_unique<Impl>()) {}

MemoryRecordset::MemoryRecordset(std::vector<std::string> fieldNames) : MemoryRecordset() {
  for (auto& name : fieldNames) AddField(std::move(name));
}

MemoryRecordset::MemoryRecordset(MemoryRecordset&& other)
    : impl_(std::exchange(other.impl_, std::make_unique<Impl>())) {}

MemoryRecordset& MemoryRecordset::operator=(MemoryRecordset&& other) {
  if (this != &other) impl_ = std::exchange(other.impl_, std::make_unique<Impl>());
  return *this;
}

MemoryRecordset::~MemoryRecordset() = default;

int MemoryRecordset::AddField(std::string name) { return impl_->AddField(std::move(name)); }

void MemoryRecordset::AddRow(std::vector<Variant> values) {
  if (values.size() != impl_->names.size()) {
    throw RuntimeError(RuntimeError::kInvalidCall,
                       "AddRow: " + std::to_string(values.size()) + " values for " +
                           std::to_string(impl_->names.size()) + " fields");
  }
  impl_->AppendRow(std::move(values));
  impl_->Show(impl_->rowCount - 1, false);
}

void MemoryRecordset::Reserve(size_t rows) {
  for (auto& column : impl_->columns) column.reserve(rows);
}

void MemoryRecordset::ShrinkToFit() {
  for (auto& column : impl_->columns) column.shrink_to_fit();
}

void MemoryRecordset::AddNew() {
  impl_->AppendRow(std::vector<Variant>(impl_->names.size()));
  impl_->Show(impl_->rowCount - 1, true);
  impl_->position = impl_->ViewSize() - 1;
}

size_t MemoryRecordset::FieldCount() const { return impl_->names.size(); }

const std::string& MemoryRecordset::FieldName(size_t index) const {
  if (index >= impl_->names.size()) {
    throw RuntimeError(RuntimeError::kSubscript,
                       "Subscript out of range: field " + std::to_string(index));
  }
  return impl_->names[index];
}

size_t MemoryRecordset::StoredRowCount() const { return impl_->rowCount; }

Variant MemoryRecordset::StoredValue(size_t row, size_t field) const {
  if (row >= impl_->rowCount || field >= impl_->names.size()) {
    throw RuntimeError(
        RuntimeError::kSubscript,
        "Subscript out of range: row " + std::to_string(row) + ", field " + std::to_string(field));
  }
  return impl_->Value(row, field);
}

void MemoryRecordset::AcceptChanges() { impl_->underlying.clear(); }

void MemoryRecordset::CancelChanges() {
  for (auto& [cell, value] : impl_->underlying) {
    impl_->columns[cell.second].Set(cell.first, value);
  }
  impl_->underlying.clear();
}

bool MemoryRecordset::CurrentChanged() const {
  size_t row = impl_->CurrentRow();
  if (row == kNoRow) return false;
  auto key = static_cast<uint32_t>(row);
  for (auto it = impl_->underlying.lower_bound({key, 0});
       it != impl_->underlying.end() && it->first.first == key; ++it) {
    if (!(it->second == impl_->Value(row, it->first.second))) return true;
  }
  return false;
}

size_t MemoryRecordset::CurrentStoredRow() const { return impl_->CurrentRow(); }

std::shared_ptr<MemoryRecordset> MemoryRecordset::Clone() const {
  auto copy = std::make_shared<MemoryRecordset>();
  for (const auto& name : impl_->names) copy->AddField(name);
  copy->impl_->columns = impl_->columns;
  copy->impl_->rowCount = impl_->rowCount;
  copy->impl_->underlying = impl_->underlying;
  copy->impl_->marshalOptions = impl_->marshalOptions;
  return copy;
}

bool MemoryRecordset::IsBOF() const {
  // Without a MovePrevious the position never goes before the first record,
  // so BOF holds only on an empty view.
  return impl_->ViewSize() == 0;
}

bool MemoryRecordset::IsEOF() const { return impl_->position >= impl_->ViewSize(); }

orvel::Fields& MemoryRecordset::Fields() { return impl_->Fields(); }

int MemoryRecordset::RecordCount() const { return static_cast<int>(impl_->ViewSize()); }

void MemoryRecordset::MoveFirst() { impl_->position = 0; }

OrvelStatus MemoryRecordset::Next() {
  if (IsEOF()) return NoCurrentRecordRefusal();
  if (++impl_->position >= impl_->ViewSize()) impl_->position = kAfterEnd;
  return {};
}

Variant MemoryRecordset::Filter() const { return impl_->filterValue; }

OrvelStatus MemoryRecordset::ApplyFilter(const Variant& criteria) {
  return Refusal([&] { impl_->Filter(criteria); });
}

void MemoryRecordset::Impl::Filter(const Variant& criteria) {
  Impl& set = *this;
  std::optional<RecordsetCriteria> compiled;
  switch (criteria.Type()) {
    case VarType::Empty:
      break;
    case VarType::String:
      if (!criteria.String().empty()) {
        compiled = RecordsetCriteria::Compile(criteria.String(), set.names);
      }
      break;
    case VarType::Integer:
    case VarType::Double:
    case VarType::Boolean: {
      bool zero = criteria.Type() == VarType::Integer  ? criteria.Integer() == 0
                  : criteria.Type() == VarType::Double ? criteria.Double() == 0
                                                       : !criteria.Boolean();
      if (!zero) {
        throw RuntimeError(RuntimeError::kBadFilter,
                           "Netinkamas filtras: skaičius gali būti tik 0 (be filtro), ne " +
                               Describe(criteria));
      }
      break;
    }
    default:
      throw RuntimeError(RuntimeError::kBadFilter,
                         "Netinkamas filtras: laukta sąlygos teksto arba 0, ne " + Describe(criteria));
  }
  // Work out the new view before touching the old one, so that a failure
  // leaves the previous filter in force.
  std::vector<uint32_t> filtered;
  if (compiled) filtered = set.Select(*compiled);
  std::vector<uint32_t> sorted = set.Order(compiled ? &filtered : nullptr, set.order);
  set.criteria = std::move(compiled);
  set.filtered = std::move(filtered);
  set.sorted = std::move(sorted);
  set.filterValue = criteria;
  set.position = 0;
}

std::string MemoryRecordset::Sort() const { return impl_->sortText; }

OrvelStatus MemoryRecordset::ApplySort(std::string_view keys) {
  return Refusal([&] { impl_->SortBy(keys); });
}

void MemoryRecordset::Impl::SortBy(std::string_view keys) {
  Impl& set = *this;
  RecordsetOrder order = RecordsetOrder::Parse(keys, set.names);
  std::vector<uint32_t> sorted = set.Order(set.criteria ? &set.filtered : nullptr, order);
  set.order = std::move(order);
  set.sorted = std::move(sorted);
  set.sortText = std::string(keys);
  set.position = 0;
}

int MemoryRecordset::MarshalOptions() const { return impl_->marshalOptions; }

void MemoryRecordset::SetMarshalOptions(int options) { impl_->marshalOptions = options; }

}  // namespace orvel
