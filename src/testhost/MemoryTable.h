#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "orvel/Variant.h"

namespace orvel {

class MemoryRecordset;
class Recordset;

// The records of one object type, held in memory: the store behind the
// standard calls of MemoryBusinessObject. A record is a row of field values
// keyed by its ID (1, 2, ... in order of creation); its OIDR is the type's OID
// followed by the ID in decimal. Field names compare without regard to case.
// The field "ID" always exists and comes first unless declared elsewhere.
class MemoryTable {
 public:
  // Field name and value pairs, in any order: one row for Seed.
  using Row = std::vector<std::pair<std::string, Variant>>;
  // Reads a field of the record being previewed (Empty when there is none).
  using FieldReader = std::function<Variant(std::string_view name)>;
  using PreviewRule = std::function<std::string(const FieldReader& field)>;

  explicit MemoryTable(std::string oid);

  const std::string& OID() const { return oid_; }

  // Declares the type's fields in order; "ID" is added first when missing.
  // Values already stored follow their names, and fields known before but
  // not named here stay, after the named ones.
  void SetFields(const std::vector<std::string>& names);
  // Appends a field (Empty in every stored record); returns its index, or
  // the index it already has.
  size_t AddField(std::string_view name);
  const std::vector<std::string>& FieldNames() const { return fields_; }
  std::optional<size_t> FieldIndex(std::string_view name) const;

  // The value a new record starts with (Empty unless set); declares the
  // field when it is new.
  void SetDefault(std::string_view field, Variant value);
  Variant Default(std::string_view field) const;

  // How a record's one-line Preview is made; by default the "Name" field.
  void SetPreviewRule(PreviewRule rule);

  // Stores rows as new records, in order, and returns their OIDRs. A row's
  // "ID" pair, when given, chooses the ID (later IDs continue after it; a
  // record of that ID is replaced); an unknown field name declares the field.
  // Missing fields take the defaults. A bad ID is RuntimeError.
  std::vector<std::string> Seed(const std::vector<Row>& rows);

  // The stored records.
  size_t Count() const { return records_.size(); }
  bool Contains(int32_t id) const { return records_.count(id) != 0; }
  std::vector<int32_t> Ids() const;  // ascending
  // A stored value; Empty when the record or the field does not exist.
  Variant Value(int32_t id, std::string_view field) const;
  std::string Preview(int32_t id) const;
  std::string OidrOf(int32_t id) const;
  // The ID an OIDR of this type names: the OID followed by a decimal number
  // without leading zeros. nullopt for anything else (another type, the OID
  // alone, junk), whether or not the record exists.
  std::optional<int32_t> IdOf(std::string_view oidr) const;
  // The records whose "ParentID" equals `id`, ascending.
  std::vector<int32_t> Children(int32_t id) const;
  // The records at the top: no "ParentID", or 0, Null or Empty in it.
  std::vector<int32_t> TopLevel() const;

  // A one-row set of the type's fields holding the defaults, "ID" Empty.
  std::shared_ptr<MemoryRecordset> NewRecord() const;
  // A one-row set of the record's fields plus "OIDR" and "Preview"; null
  // when there is no such record.
  std::shared_ptr<MemoryRecordset> ReadRecord(int32_t id) const;
  // "OIDR", "Preview" and the type's fields of the given records, in order.
  std::shared_ptr<MemoryRecordset> List(const std::vector<int32_t>& ids) const;

  // Stores the current record of `rs`: every field except "ID", "OIDR" and
  // "Preview" (fields unknown so far are declared). With no id a new record
  // is made (fields missing in `rs` take the defaults) and its ID returned;
  // with an id that record is updated. Everything is read before anything is
  // stored, so a failure (RuntimeError from the set) leaves the table as it was.
  int32_t Store(std::optional<int32_t> id, Recordset& rs);
  bool Remove(int32_t id);
  void Clear();
  // How often the record was stored: 1 when made, one more each write; 0
  // when there is no such record.
  int64_t Version(int32_t id) const;

 private:
  int32_t NextId() const;
  void Put(int32_t id, std::vector<Variant> values);
  std::vector<Variant> DefaultValues() const;
  std::vector<Variant> RowOf(int32_t id) const;  // padded to the field count

  std::string oid_;
  std::vector<std::string> fields_;
  std::vector<Variant> defaults_;  // parallel to fields_
  PreviewRule preview_;
  std::map<int32_t, std::vector<Variant>> records_;  // may be shorter than fields_
  std::map<int32_t, int64_t> versions_;
  int32_t lastId_ = 0;
};

}  // namespace orvel
