#pragma once

#include <string>
#include <string_view>

#include "orvel/Object.h"
#include "orvel/OrvelStatus.h"
#include "orvel/RuntimeError.h"
#include "orvel/Variant.h"

namespace orvel {

/// Across the module's boundary a record set never throws: each virtual
/// operation reports a refusal through its OrvelStatus (or a null field) and
/// changes nothing. The non-virtual members with the legacy runtime's names
/// (Value, SetValue, Item, MoveNext, SetFilter, SetSort) turn a refusal into
/// a RuntimeError raised in the caller's own code, as the legacy runtime
/// raised its errors; a host may call either.

/// The RuntimeError of a refusal, raised by the caller's own code; nothing
/// for success.
inline void RaiseRefusal(const OrvelStatus& status) {
  if (status.Number != 0) throw RuntimeError(status.Number, status.Text);
}

/// The refusal of an operation that needs a current record.
inline OrvelStatus NoCurrentRecordRefusal() {
  return {RuntimeError::kNoCurrentRecord,
          "Nėra einamojo įrašo: įrašų rinkinys yra prieš pirmąjį arba po paskutiniojo įrašo"};
}

/// One column of the current record.
class Field {
 public:
  virtual ~Field() = default;
  virtual const std::string& Name() const = 0;
  /// The edited value into `value`; without a current record, a refusal
  /// (kNoCurrentRecord) and `value` untouched.
  virtual OrvelStatus Get(Variant& value) const = 0;
  /// A new edited value; without a current record, a refusal and no change.
  virtual OrvelStatus Put(const Variant& value) = 0;
  /// The value as last read or saved, as Get gives it.
  virtual OrvelStatus GetUnderlying(Variant& value) const = 0;

  /// The edited value; a refusal is a RuntimeError.
  Variant Value() const {
    Variant value;
    RaiseRefusal(Get(value));
    return value;
  }
  void SetValue(const Variant& value) { RaiseRefusal(Put(value)); }
  Variant UnderlyingValue() const {
    Variant value;
    RaiseRefusal(GetUnderlying(value));
    return value;
  }
};

/// The columns of a record set, looked up by name without regard to case.
class Fields {
 public:
  virtual ~Fields() = default;
  virtual int Count() const = 0;
  /// The field of that name, or null.
  virtual Field* Find(std::string_view name) = 0;
  /// The field at a 0-based index, or null.
  virtual Field* At(int index) = 0;
  virtual bool Exists(std::string_view name) const = 0;

  /// The field of that name; a missing name is RuntimeError kItemNotFound.
  Field& Item(std::string_view name) {
    if (Field* field = Find(name)) return *field;
    throw RuntimeError(RuntimeError::kItemNotFound,
                       "Kolekcijoje nėra elemento: " + std::string(name));
  }
  Field& Item(int index) {
    if (Field* field = At(index)) return *field;
    throw RuntimeError(RuntimeError::kItemNotFound,
                       "Kolekcijoje nėra elemento: " + std::to_string(index));
  }
};

/// The record set as the module uses it: forward reading, an optional filter
/// and sort, field values with their underlying value. Filter and Sort follow
/// the legacy data-access rules: see MemoryRecordset.
class Recordset : public Object {
 public:
  /// Before the first record / after the last one. Both are true on an empty
  /// view. (EOF is a C macro, hence the Is- names.)
  virtual bool IsBOF() const = 0;
  virtual bool IsEOF() const = 0;
  virtual orvel::Fields& Fields() = 0;
  /// A field of the current record; a missing name is RuntimeError
  /// kItemNotFound, reading it without a current record kNoCurrentRecord.
  Field& Fields(std::string_view name) { return Fields().Item(name); }
  virtual int RecordCount() const = 0;
  virtual void MoveFirst() = 0;
  /// The next record; past the last one, a refusal (kNoCurrentRecord).
  virtual OrvelStatus Next() = 0;

  /// "" or the number 0 clears the filter; a criteria string picks rows. A
  /// malformed one is a refusal (kBadFilter, naming the problem) that leaves
  /// the previous filter in force.
  virtual Variant Filter() const = 0;
  virtual OrvelStatus ApplyFilter(const Variant& criteria) = 0;
  /// "A, B DESC"; "" restores the original order. Unknown fields are a
  /// refusal (kItemNotFound) that leaves the previous order in force.
  virtual std::string Sort() const = 0;
  virtual OrvelStatus ApplySort(std::string_view keys) = 0;
  /// 1: only changed rows travel back to the business layer.
  virtual int MarshalOptions() const = 0;
  virtual void SetMarshalOptions(int options) = 0;

  /// The legacy runtime's forms of Next, ApplyFilter and ApplySort: a
  /// refusal is a RuntimeError.
  void MoveNext() { RaiseRefusal(Next()); }
  void SetFilter(const Variant& criteria) { RaiseRefusal(ApplyFilter(criteria)); }
  void SetSort(std::string_view keys) { RaiseRefusal(ApplySort(keys)); }
};

}  // namespace orvel
