#include "host/RecordsetColumn.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace orvel {

namespace {
// Two bits a row, four rows a byte: every row Empty.
constexpr uint8_t kAllEmpty = 0x55;
constexpr size_t kMaxText = std::numeric_limits<uint32_t>::max();

size_t MarkBytes(size_t rows) { return (rows + 3) / 4; }
}  // namespace

RecordsetColumn::RecordsetColumn(size_t emptyRows) : rows_(emptyRows) {
  if (emptyRows > 0) marks_.assign(MarkBytes(emptyRows), kAllEmpty);
}

RecordsetColumn::Kind RecordsetColumn::KindOf(VarType type) {
  switch (type) {
    case VarType::Boolean:
      return Kind::Boolean;
    case VarType::Integer:
      return Kind::Integer;
    case VarType::Double:
      return Kind::Double;
    case VarType::Date:
      return Kind::Date;
    case VarType::String:
      return Kind::Text;
    case VarType::Empty:
    case VarType::Null:
      return Kind::Nothing;
    case VarType::Object:
    case VarType::Array:
      break;
  }
  return Kind::Mixed;
}

RecordsetColumn::Mark RecordsetColumn::MarkAt(size_t row) const {
  if (marks_.empty()) return kValue;
  return static_cast<Mark>((marks_[row / 4] >> (row % 4 * 2)) & 3);
}

void RecordsetColumn::SetMark(size_t row, Mark mark) {
  if (marks_.empty() && mark == kValue) return;
  // Once there are marks they cover every row: the first mark may fall on an
  // early row of a column of values, and the later rows are read by MarkAt.
  const size_t bytes = MarkBytes(std::max(row + 1, rows_));
  if (marks_.size() < bytes) marks_.resize(bytes, 0);
  const int shift = static_cast<int>(row % 4 * 2);
  uint8_t& byte = marks_[row / 4];
  byte = static_cast<uint8_t>((byte & ~(3 << shift)) | (mark << shift));
}

Variant RecordsetColumn::TypedAt(size_t row) const {
  switch (kind_) {
    case Kind::Boolean:
      return Variant(booleans_[row] != 0);
    case Kind::Integer:
      return Variant(integers_[row]);
    case Kind::Double:
      return Variant(numbers_[row]);
    case Kind::Date:
      return Variant(Date{numbers_[row]});
    case Kind::Text:
      return Variant(TextAt(row));
    case Kind::Nothing:
    case Kind::Mixed:
      break;
  }
  return Variant();
}

Variant RecordsetColumn::operator[](size_t row) const {
  if (kind_ == Kind::Mixed) return mixed_[row];
  switch (MarkAt(row)) {
    case kEmpty:
      return Variant();
    case kNull:
      return Variant::Null();
    case kValue:
      break;
  }
  return TypedAt(row);
}

VarType RecordsetColumn::TypeAt(size_t row) const {
  if (kind_ == Kind::Mixed) return mixed_[row].Type();
  switch (MarkAt(row)) {
    case kEmpty:
      return VarType::Empty;
    case kNull:
      return VarType::Null;
    case kValue:
      break;
  }
  switch (kind_) {
    case Kind::Boolean:
      return VarType::Boolean;
    case Kind::Integer:
      return VarType::Integer;
    case Kind::Double:
      return VarType::Double;
    case Kind::Date:
      return VarType::Date;
    case Kind::Text:
      return VarType::String;
    case Kind::Nothing:
    case Kind::Mixed:
      break;
  }
  return VarType::Empty;
}

std::string_view RecordsetColumn::TextAt(size_t row) const {
  if (kind_ == Kind::Mixed) return mixed_[row].String();
  const size_t begin = row == 0 ? 0 : textEnds_[row - 1];
  return std::string_view(text_).substr(begin, textEnds_[row] - begin);
}

void RecordsetColumn::BecomeMixed() {
  std::vector<Variant> values;
  values.reserve(rows_);
  for (size_t r = 0; r < rows_; ++r) values.push_back((*this)[r]);
  mixed_ = std::move(values);
  kind_ = Kind::Mixed;
  marks_ = {};
  booleans_ = {};
  integers_ = {};
  numbers_ = {};
  text_ = {};
  textEnds_ = {};
}

void RecordsetColumn::Accept(VarType type) {
  const Kind want = KindOf(type);
  if (kind_ == want || kind_ == Kind::Mixed) return;
  if (kind_ != Kind::Nothing || want == Kind::Mixed) {
    BecomeMixed();
    return;
  }
  // Every row so far is Empty or Null: each gets a placeholder of the kind.
  switch (want) {
    case Kind::Boolean:
      booleans_.assign(rows_, 0);
      break;
    case Kind::Integer:
      integers_.assign(rows_, 0);
      break;
    case Kind::Double:
    case Kind::Date:
      numbers_.assign(rows_, 0.0);
      break;
    case Kind::Text:
      textEnds_.assign(rows_, 0);
      break;
    case Kind::Nothing:
    case Kind::Mixed:
      break;
  }
  kind_ = want;
}

void RecordsetColumn::PushTyped(const Variant& value) {
  const bool placeholder = value.IsEmpty() || value.IsNull();
  switch (kind_) {
    case Kind::Boolean:
      booleans_.push_back(!placeholder && value.Boolean() ? 1 : 0);
      break;
    case Kind::Integer:
      integers_.push_back(placeholder ? 0 : value.Integer());
      break;
    case Kind::Double:
      numbers_.push_back(placeholder ? 0.0 : value.Double());
      break;
    case Kind::Date:
      numbers_.push_back(placeholder ? 0.0 : value.DateValue().serial);
      break;
    case Kind::Text: {
      textEnds_.push_back(static_cast<uint32_t>(text_.size()));  // may throw: nothing changed yet
      if (!placeholder) {
        try {
          text_ += value.String();
        } catch (...) {
          textEnds_.pop_back();
          throw;
        }
        textEnds_.back() = static_cast<uint32_t>(text_.size());
      }
      break;
    }
    case Kind::Nothing:
    case Kind::Mixed:
      break;
  }
}

void RecordsetColumn::PopTyped() {
  switch (kind_) {
    case Kind::Boolean:
      booleans_.pop_back();
      break;
    case Kind::Integer:
      integers_.pop_back();
      break;
    case Kind::Double:
    case Kind::Date:
      numbers_.pop_back();
      break;
    case Kind::Text:
      textEnds_.pop_back();
      text_.resize(textEnds_.empty() ? 0 : textEnds_.back());
      break;
    case Kind::Nothing:
    case Kind::Mixed:
      break;
  }
}

void RecordsetColumn::push_back(const Variant& value) {
  const VarType type = value.Type();
  if (type != VarType::Empty && type != VarType::Null) {
    Accept(type);
    if (kind_ == Kind::Text && text_.size() + value.String().size() > kMaxText) BecomeMixed();
  }
  if (kind_ == Kind::Mixed) {
    mixed_.push_back(value);
  } else {
    // The mark first: a failure after it leaves only a byte beyond the rows.
    SetMark(rows_, type == VarType::Empty ? kEmpty : type == VarType::Null ? kNull : kValue);
    PushTyped(value);
  }
  ++rows_;
}

void RecordsetColumn::pop_back() {
  if (rows_ == 0) return;
  --rows_;
  if (kind_ == Kind::Mixed) {
    mixed_.pop_back();
    return;
  }
  PopTyped();
  if (!marks_.empty()) SetMark(rows_, kValue);
}

void RecordsetColumn::SetTyped(size_t row, const Variant& value) {
  switch (kind_) {
    case Kind::Boolean:
      booleans_[row] = value.Boolean() ? 1 : 0;
      break;
    case Kind::Integer:
      integers_[row] = value.Integer();
      break;
    case Kind::Double:
      numbers_[row] = value.Double();
      break;
    case Kind::Date:
      numbers_[row] = value.DateValue().serial;
      break;
    case Kind::Text: {
      // Only a text of the same length fits in place (Set sees to it).
      const size_t begin = row == 0 ? 0 : textEnds_[row - 1];
      text_.replace(begin, value.String().size(), value.String());
      break;
    }
    case Kind::Nothing:
    case Kind::Mixed:
      break;
  }
}

void RecordsetColumn::Set(size_t row, const Variant& value) {
  const VarType type = value.Type();
  if (kind_ != Kind::Mixed && (type == VarType::Empty || type == VarType::Null)) {
    SetMark(row, type == VarType::Empty ? kEmpty : kNull);  // the placeholder stays
    return;
  }
  if (kind_ != Kind::Mixed) {
    Accept(type);
    if (kind_ == Kind::Text) {
      const size_t begin = row == 0 ? 0 : textEnds_[row - 1];
      if (textEnds_[row] - begin != value.String().size()) BecomeMixed();
    }
  }
  if (kind_ == Kind::Mixed) {
    mixed_[row] = value;
    return;
  }
  SetTyped(row, value);
  SetMark(row, kValue);
}

void RecordsetColumn::reserve(size_t rows) {
  switch (kind_) {
    case Kind::Boolean:
      booleans_.reserve(rows);
      break;
    case Kind::Integer:
      integers_.reserve(rows);
      break;
    case Kind::Double:
    case Kind::Date:
      numbers_.reserve(rows);
      break;
    case Kind::Text:
      textEnds_.reserve(rows);
      break;
    case Kind::Mixed:
      mixed_.reserve(rows);
      break;
    case Kind::Nothing:
      break;
  }
}

void RecordsetColumn::shrink_to_fit() {
  marks_.shrink_to_fit();
  booleans_.shrink_to_fit();
  integers_.shrink_to_fit();
  numbers_.shrink_to_fit();
  text_.shrink_to_fit();
  textEnds_.shrink_to_fit();
  mixed_.shrink_to_fit();
}

}  // namespace orvel
