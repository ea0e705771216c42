#pragma once

#include <string>
#include <string_view>

#include "orvel/Object.h"
#include "orvel/Variant.h"

namespace orvel {

/// One column of the current record.
class Field {
 public:
  virtual ~Field() = default;
  virtual const std::string& Name() const = 0;
  /// The edited value.
  virtual Variant Value() const = 0;
  virtual void SetValue(const Variant& value) = 0;
  /// The value as last read or saved.
  virtual Variant UnderlyingValue() const = 0;
};

/// The columns of a record set, looked up by name without regard to case.
class Fields {
 public:
  virtual ~Fields() = default;
  virtual int Count() const = 0;
  /// A missing name is RuntimeError kItemNotFound ("item not found").
  virtual Field& Item(std::string_view name) = 0;
  virtual Field& Item(int index) = 0;  ///< 0-based
  virtual bool Exists(std::string_view name) const = 0;
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
  /// Reading a field with no current record is RuntimeError kNoCurrentRecord.
  Field& Fields(std::string_view name) { return Fields().Item(name); }
  virtual int RecordCount() const = 0;
  virtual void MoveFirst() = 0;
  virtual void MoveNext() = 0;

  /// "" or the number 0 clears the filter; a criteria string picks rows.
  virtual Variant Filter() const = 0;
  virtual void SetFilter(const Variant& criteria) = 0;
  /// "A, B DESC"; "" restores the original order.
  virtual std::string Sort() const = 0;
  virtual void SetSort(std::string_view keys) = 0;
  /// 1: only changed rows travel back to the business layer.
  virtual int MarshalOptions() const = 0;
  virtual void SetMarshalOptions(int options) = 0;
};

}  // namespace orvel
