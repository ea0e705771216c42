#pragma once

#include <compare>
#include <iosfwd>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "orvel/Object.h"

namespace orvel {

/// A point in time as the legacy runtime keeps it: days since 1899-12-30,
/// the fraction being the time of day.
struct Date {
  double serial = 0.0;
  friend auto operator<=>(const Date&, const Date&) = default;
};

struct NullValue {
  friend bool operator==(NullValue, NullValue) { return true; }
};

enum class VarType { Empty, Null, Boolean, Integer, Double, Date, String, Object, Array };

/// The value that travels between the module, its host and the business layer.
/// Empty (never assigned) and Null (no data) are distinct: Empty reads as 0 or
/// "" in arithmetic and text, Null refuses to convert. Conversions live in
/// Convert.h; this class only holds and tells.
class Variant {
 public:
  using Array = std::vector<Variant>;

  Variant() = default;
  Variant(NullValue) : value_(NullValue{}) {}
  Variant(bool b) : value_(b) {}
  Variant(int32_t i) : value_(i) {}
  Variant(int64_t i);  ///< kept as Integer when it fits 32 bits, else Double
  Variant(double d) : value_(d) {}
  Variant(Date d) : value_(d) {}
  Variant(std::string s) : value_(std::move(s)) {}
  Variant(std::string_view s) : value_(std::string(s)) {}
  Variant(const char* s) : value_(std::string(s)) {}
  Variant(Array a) : value_(std::move(a)) {}
  template <class T>
  requires std::is_base_of_v<Object, T> Variant(std::shared_ptr<T> o)
      : value_(std::shared_ptr<Object>(std::move(o))) {}

  static Variant Null() { return Variant(NullValue{}); }

  VarType Type() const { return static_cast<VarType>(value_.index()); }
  bool IsEmpty() const { return Type() == VarType::Empty; }
  bool IsNull() const { return Type() == VarType::Null; }
  bool IsObject() const { return Type() == VarType::Object; }
  bool IsArray() const { return Type() == VarType::Array; }
  bool IsString() const { return Type() == VarType::String; }
  /// Boolean, Integer or Double: a value that arithmetic takes as it is.
  bool IsNumber() const;
  /// Booleans (True is -1), Integers, Doubles and Dates (their serial) as a
  /// double; 0 for any other type.
  double NumberValue() const;
  /// An Object that is "no object" (Nothing).
  bool IsNothing() const { return IsObject() && !std::get<kObject>(value_); }

  /// Direct access to the held value. Each throws RuntimeError (type mismatch)
  /// when the Variant holds another type; use Convert.h to convert.
  bool Boolean() const;
  int32_t Integer() const;
  double Double() const;
  orvel::Date DateValue() const;
  const std::string& String() const;
  const std::shared_ptr<orvel::Object>& ObjectValue() const;
  const Array& ArrayValue() const;
  Array& ArrayValue();

  /// The held object cast to an interface; null when empty, nothing or not of it.
  template <class T>
  std::shared_ptr<T> ObjectAs() const {
    if (!IsObject()) return nullptr;
    return std::dynamic_pointer_cast<T>(std::get<kObject>(value_));
  }

  /// Structural equality, for tests and change detection: same type and same
  /// value (objects by identity). Legacy comparison rules are in Convert.h.
  friend bool operator==(const Variant& a, const Variant& b) { return a.value_ == b.value_; }

 private:
  static constexpr size_t kObject = 7;
  std::variant<std::monostate, NullValue, bool, int32_t, double, orvel::Date, std::string,
               std::shared_ptr<orvel::Object>, Array>
      value_;
};

/// A short human-readable description ("Empty", "Null", "Integer 5", "String 'a'"),
/// for test failure messages and diagnostics.
std::string Describe(const Variant& v);
/// GoogleTest prints a Variant through this: its Describe text.
void PrintTo(const Variant& v, std::ostream* os);

}  // namespace orvel
