#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <memory>
#include <string>

#include "orvel/RuntimeError.h"
#include "orvel/Variant.h"
#include "support/RuntimeErrors.h"

namespace orvel {
namespace {

// The kinds a value answers to, by their predicates' names.
std::string Kinds(const Variant& v) {
  std::string kinds;
  for (const auto& [is, name] : {std::pair{v.IsEmpty(), "Empty"}, {v.IsNull(), "Null"},
                                 {v.IsNumber(), "Number"}, {v.IsString(), "String"},
                                 {v.IsObject(), "Object"}, {v.IsNothing(), "Nothing"}}) {
    if (is) kinds += kinds.empty() ? name : std::string(" ") + name;
  }
  return kinds;
}

TEST(Variant, EmptyAndNullAreDistinctAndNeitherANumberTextNorObject) {
  EXPECT_EQ(Kinds(Variant()), "Empty");
  EXPECT_EQ(Kinds(Variant::Null()), "Null");
  EXPECT_FALSE(Variant() == Variant::Null());
  EXPECT_EQ(Variant::Null(), Variant(NullValue{}));
}

TEST(Variant, AWideIntegerStaysIntegerWhenItFits32Bits) {
  constexpr int64_t kMax = std::numeric_limits<int32_t>::max();
  constexpr int64_t kMin = std::numeric_limits<int32_t>::min();
  constexpr VarType kInteger = VarType::Integer, kDouble = VarType::Double;
  for (const auto& [value, type] :
       {std::pair{int64_t{0}, kInteger}, {-5, kInteger}, {kMax, kInteger}, {kMin, kInteger},
        {kMax + 1, kDouble}, {kMin - 1, kDouble}, {int64_t{1} << 53, kDouble}}) {
    const Variant v(value);
    ASSERT_EQ(v.Type(), type) << value;
    EXPECT_EQ(type == kInteger ? v.Integer() : v.Double(), static_cast<double>(value));
  }
}

TEST(Variant, AccessorOfAnotherTypeIsATypeMismatch) {
  const Variant text("5");
  std::string error;
  EXPECT_EQ(ErrorOf([&] { (void)text.Integer(); }, &error), RuntimeError::kTypeMismatch);
  EXPECT_NE(error.find("String '5'"), std::string::npos) << error;
  EXPECT_THROW((void)Variant().String(), RuntimeError);
  EXPECT_THROW((void)Variant::Null().Double(), RuntimeError);
  EXPECT_THROW((void)Variant(1.5).Boolean(), RuntimeError);
}

class Shape : public Object {};
class Circle : public Shape {};
class Unrelated : public Object {};

TEST(Variant, ObjectAsCastsOnlyToWhatTheObjectIs) {
  const auto circle = std::make_shared<Circle>();
  const Variant v(circle);
  EXPECT_EQ(Kinds(v), "Object");
  EXPECT_EQ(v.ObjectAs<Shape>(), circle);
  EXPECT_EQ(v.ObjectAs<Circle>(), circle);
  EXPECT_EQ(v.ObjectAs<Unrelated>(), nullptr);

  const Variant nothing(std::shared_ptr<Object>{});
  EXPECT_EQ(Kinds(nothing), "Object Nothing");
  EXPECT_EQ(nothing.ObjectAs<Shape>(), nullptr);
  EXPECT_EQ(Variant("text").ObjectAs<Shape>(), nullptr);

  // Objects compare by identity.
  EXPECT_EQ(v, Variant(circle));
  EXPECT_FALSE(v == Variant(std::make_shared<Circle>()));
}

TEST(Variant, DescribeNamesTypeAndValue) {
  for (const auto& [value, expected] : std::initializer_list<std::pair<Variant, const char*>>{
           {Variant(), "Empty"}, {Variant::Null(), "Null"}, {true, "Boolean True"},
           {int32_t{5}, "Integer 5"}, {2.5, "Double 2.5"}, {Date{45292.5}, "Date 45292.5"},
           {"a", "String 'a'"}, {Variant(std::shared_ptr<Object>{}), "Nothing"},
           {Variant(Variant::Array{1, 2}), "Array(2)"}}) {
    EXPECT_EQ(Describe(value), expected);
  }
}

}  // namespace
}  // namespace orvel
