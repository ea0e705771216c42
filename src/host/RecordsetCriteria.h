#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "host/RecordsetColumn.h"
#include "orvel/Variant.h"

namespace orvel {

// A filter's criteria, compiled once against the field names of a record set
// and then run over its columns.
//
// Grammar (keywords and field names ignore case, blanks around tokens are
// optional):
//   criteria := term { (AND | OR) term }      AND and OR bind equally, left to right
//   term     := '(' criteria ')' | field op value
//   field    := name | '[' name with blanks ']'
//   op       := = | <> | < | > | <= | >= | LIKE
//   value    := 'text' ('' inside for a quote) | #date# | number
// Dates are yyyy-MM-dd, yyyy.MM.dd, M/d/yyyy or the locale's short form;
// numbers use "." as the decimal point. LIKE takes a text with * or % as the
// wildcard at its end or at both ends. A group of clauses joined by OR may not
// be joined to anything by AND: "(A OR B) AND C", "C AND (A OR B)" and
// "A OR B AND C" are refused, "(A AND B) OR C" is fine.
//
// Matching: text compares without regard to case. A number field against a
// text value compares as numbers when the text reads as one, else as text;
// likewise a text field against a number or a date. LIKE sees a number or a
// date as its text (CStr). A Null (or Empty, or object) field value matches
// no criterion at all, not even "<>"; nor does a value with no text form (a
// NaN) where text is wanted.
class RecordsetCriteria {
 public:
  // Throws RuntimeError kBadFilter naming the problem and its 1-based
  // character position; an unknown field name is one of those problems.
  static RecordsetCriteria Compile(std::string_view criteria,
                                   const std::vector<std::string>& fieldNames);

  RecordsetCriteria(RecordsetCriteria&&) noexcept;
  RecordsetCriteria& operator=(RecordsetCriteria&&) noexcept;
  ~RecordsetCriteria();

  // Appends to `rows`, in storage order, the rows [0, rowCount) of `columns`
  // that match. `columns` must hold every field the criteria name.
  void Select(const std::vector<RecordsetColumn>& columns, size_t rowCount,
              std::vector<uint32_t>& rows) const;
  bool Matches(const std::vector<RecordsetColumn>& columns, size_t row) const;

  // How many comparisons the criteria hold (for tests and diagnostics).
  size_t ClauseCount() const;

  struct Node;

 private:
  RecordsetCriteria();
  std::vector<Node> nodes_;  // children before their groups
  uint32_t root_ = 0;
};

}  // namespace orvel
