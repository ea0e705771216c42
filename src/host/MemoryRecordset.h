#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "orvel/Recordset.h"

namespace orvel {

class RecordsetCriteria;

// A record set held in memory: what the test host and the business layers
// hand to the module, and what the module builds for its own lists.
//
// Storage is by column. Filter takes the legacy criteria grammar
//   Field Op Value [AND|OR Field Op Value ...], Op one of = <> < > <= >= LIKE,
//   values 'text' ('' for a quote), #date#, numbers; parentheses group; an
//   OR-group joined by AND is refused; LIKE takes * or % at the end or both ends.
// Text compares without regard to case. A malformed criteria string is
// refused (kBadFilter) with a text that names the problem, leaving the
// previous filter in force. No operation of the set throws: each refusal
// comes back through its status, as across the module's boundary. Sort is stable, Null lowest; Filter picks and Sort orders
// independently, and setting either moves to the first record.
class MemoryRecordset : public Recordset {
 public:
  MemoryRecordset();
  explicit MemoryRecordset(std::vector<std::string> fieldNames);
  // Moving takes the data, filter and sort; the moved-from set is left
  // empty, with no fields, and stays usable.
  MemoryRecordset(MemoryRecordset&& other);
  MemoryRecordset& operator=(MemoryRecordset&& other);
  ~MemoryRecordset() override;

  // Building. Rows are appended with one value per field, in field order.
  int AddField(std::string name);  // returns its index; existing name: its index
  void AddRow(std::vector<Variant> values);
  void Reserve(size_t rows);
  // Gives back the room kept for rows to come, once the set is filled.
  void ShrinkToFit();
  // Appends a row of Empty values and makes it current (for a new record).
  void AddNew();
  size_t FieldCount() const;
  const std::string& FieldName(size_t index) const;
  // Rows in storage order, whatever the filter and sort.
  size_t StoredRowCount() const;
  Variant StoredValue(size_t row, size_t field) const;

  // Underlying values become the edited values (after a save)...
  void AcceptChanges();
  // ...or the edited values go back to the underlying ones (cancel).
  void CancelChanges();
  // Whether any value of the current record differs from its underlying one.
  bool CurrentChanged() const;
  // The stored row index of the current record (SIZE_MAX when none).
  size_t CurrentStoredRow() const;

  // A deep copy of the whole set (data, no filter or sort).
  std::shared_ptr<MemoryRecordset> Clone() const;

  // Recordset
  bool IsBOF() const override;
  bool IsEOF() const override;
  orvel::Fields& Fields() override;
  using Recordset::Fields;
  int RecordCount() const override;
  void MoveFirst() override;
  OrvelStatus Next() override;
  Variant Filter() const override;
  OrvelStatus ApplyFilter(const Variant& criteria) override;
  std::string Sort() const override;
  OrvelStatus ApplySort(std::string_view keys) override;
  int MarshalOptions() const override;
  void SetMarshalOptions(int options) override;

 private:
  class Impl;
  std::unique_ptr<Impl> impl_;
};

}  // namespace orvel
