#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "host/RecordsetCriteria.h"

namespace orvel {

// A record set's sort order: "A, B DESC, C ASC", compiled once against the
// field names and then applied to lists of rows.
//
// The order is stable. Null and Empty sort lowest (first ascending, last
// descending); numbers, Booleans and dates compare by value (a date by its
// serial), text without regard to case, and numbers come before text in a
// column that holds both. Objects and arrays sort last and tie.
class RecordsetOrder {
 public:
  struct Key {
    uint32_t column = 0;
    bool descending = false;
  };

  // No keys: the storage order.
  RecordsetOrder() = default;
  // "" (or blanks only) gives no keys. A name with blanks stands in [ ], or
  // bare when that is unambiguous ("Purch Date DESC"). A name not among
  // `fieldNames` is
  // RuntimeError kItemNotFound; an empty key (as in "A,,B") or a word other
  // than ASC / DESC after a bracketed name is kBadFilter.
  static RecordsetOrder Parse(std::string_view keys, const std::vector<std::string>& fieldNames);

  bool IsEmpty() const { return keys_.empty(); }
  const std::vector<Key>& Keys() const { return keys_; }

  // Reorders `rows` (stored row indices into `columns`) by the keys, keeping
  // the given order among rows that tie.
  void Apply(const std::vector<RecordsetColumn>& columns, std::vector<uint32_t>& rows) const;

 private:
  std::vector<Key> keys_;
};

}  // namespace orvel
