#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "orvel/Variant.h"

namespace orvel {

// One column of a record set held in memory.
//
// A list of 200,000 goods has some thirty columns, nearly all of one kind
// each (whole numbers, amounts, dates, truth values, names) with a Null here
// and there, so a column keeps its values in the form of their kind: four
// bytes a whole number, eight an amount or a date, one a truth value, the
// bytes of the texts end to end with four bytes marking where each ends.
// Which rows are Empty or Null takes two bits a row, and only once a row is.
// A column whose values come in more than one kind, or hold objects or
// arrays, keeps Variants instead; so does a text column once a text is
// edited to another length (an edited list is a card's one record, rarely a
// long list).
//
// Reading gives back exactly the Variant stored: the same type and value.
class RecordsetColumn {
 public:
  RecordsetColumn() = default;
  // A column of `emptyRows` Empty values.
  explicit RecordsetColumn(size_t emptyRows);

  size_t size() const { return rows_; }
  Variant operator[](size_t row) const;
  VarType TypeAt(size_t row) const;
  // The text of a row whose type is String; the view lasts while the
  // column is not changed.
  std::string_view TextAt(size_t row) const;

  // All or nothing: a failure leaves the column as it was.
  void push_back(const Variant& value);
  void pop_back();
  void Set(size_t row, const Variant& value);
  void reserve(size_t rows);
  void shrink_to_fit();

 private:
  enum class Kind : uint8_t { Nothing, Boolean, Integer, Double, Date, Text, Mixed };
  enum Mark : uint8_t { kValue = 0, kEmpty = 1, kNull = 2 };

  static Kind KindOf(VarType type);
  Mark MarkAt(size_t row) const;
  void SetMark(size_t row, Mark mark);
  // Gives the column the kind of `type` (a column of Empty and Null only
  // takes the first kind it meets), or Variants when it cannot hold it.
  void Accept(VarType type);
  void BecomeMixed();
  void PushTyped(const Variant& value);
  void PopTyped();
  void SetTyped(size_t row, const Variant& value);
  Variant TypedAt(size_t row) const;

  Kind kind_ = Kind::Nothing;
  size_t rows_ = 0;
  // Four rows a byte; empty while every row holds a value.
  std::vector<uint8_t> marks_;
  // One of these holds the rows, by kind_ (an Empty or Null row keeps a
  // placeholder there).
  std::vector<uint8_t> booleans_;
  std::vector<int32_t> integers_;
  std::vector<double> numbers_;  // Double and Date
  std::string text_;
  std::vector<uint32_t> textEnds_;
  std::vector<Variant> mixed_;
};

}  // namespace orvel
