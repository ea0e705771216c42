#include "orvel/Variant.h"

#include <cstdio>
#include <limits>
#include <ostream>

#include "orvel/RuntimeError.h"

namespace orvel {

namespace {
[[noreturn]] void Mismatch(const char* wanted, const Variant& v) {
  throw RuntimeError(RuntimeError::kTypeMismatch,
                     std::string("Type mismatch: ") + wanted + " expected, got " + Describe(v));
}
}  // namespace

Variant::Variant(int64_t i) {
  if (i >= std::numeric_limits<int32_t>::min() && i <= std::numeric_limits<int32_t>::max()) {
    value_ = static_cast<int32_t>(i);
  } else {
    value_ = static_cast<double>(i);
  }
}

bool Variant::IsNumber() const {
  auto t = Type();
  return t == VarType::Boolean || t == VarType::Integer || t == VarType::Double;
}

double Variant::NumberValue() const {
  switch (Type()) {
    case VarType::Boolean:
      return std::get<bool>(value_) ? -1.0 : 0.0;
    case VarType::Integer:
      return std::get<int32_t>(value_);
    case VarType::Double:
      return std::get<double>(value_);
    case VarType::Date:
      return std::get<orvel::Date>(value_).serial;
    default:
      return 0.0;
  }
}

bool Variant::Boolean() const {
  if (Type() != VarType::Boolean) Mismatch("Boolean", *this);
  return std::get<bool>(value_);
}

int32_t Variant::Integer() const {
  if (Type() != VarType::Integer) Mismatch("Integer", *this);
  return std::get<int32_t>(value_);
}

double Variant::Double() const {
  if (Type() != VarType::Double) Mismatch("Double", *this);
  return std::get<double>(value_);
}

Date Variant::DateValue() const {
  if (Type() != VarType::Date) Mismatch("Date", *this);
  return std::get<Date>(value_);
}

const std::string& Variant::String() const {
  if (Type() != VarType::String) Mismatch("String", *this);
  return std::get<std::string>(value_);
}

const std::shared_ptr<Object>& Variant::ObjectValue() const {
  if (Type() != VarType::Object) Mismatch("Object", *this);
  return std::get<kObject>(value_);
}

const Variant::Array& Variant::ArrayValue() const {
  if (Type() != VarType::Array) Mismatch("Array", *this);
  return std::get<Array>(value_);
}

Variant::Array& Variant::ArrayValue() {
  if (Type() != VarType::Array) Mismatch("Array", *this);
  return std::get<Array>(value_);
}

void PrintTo(const Variant& v, std::ostream* os) { *os << Describe(v); }

std::string Describe(const Variant& v) {
  char buf[64];
  switch (v.Type()) {
    case VarType::Empty:
      return "Empty";
    case VarType::Null:
      return "Null";
    case VarType::Boolean:
      return v.Boolean() ? "Boolean True" : "Boolean False";
    case VarType::Integer:
      return "Integer " + std::to_string(v.Integer());
    case VarType::Double:
      std::snprintf(buf, sizeof buf, "Double %.17g", v.Double());
      return buf;
    case VarType::Date:
      std::snprintf(buf, sizeof buf, "Date %.10g", v.DateValue().serial);
      return buf;
    case VarType::String:
      return "String '" + v.String() + "'";
    case VarType::Object:
      return v.IsNothing() ? "Nothing" : "Object";
    case VarType::Array:
      return "Array(" + std::to_string(v.ArrayValue().size()) + ")";
  }
  return "?";
}

}  // namespace orvel
