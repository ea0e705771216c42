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

TEST(Variant, EmptyAndNullAreDistinct) {
  const Variant empty;
  const Variant null = Variant::Null();
  EXPECT_TRUE(empty.IsEmpty());
  EXPECT_FALSE(empty.IsNull());
  EXPECT_TRUE(null.IsNull());
  EXPECT_FALSE(null.IsEmpty());
  EXPECT_FALSE(empty == null);
  EXPECT_EQ(null, Variant(NullValue{}));
  // Neither is a number, text or an object.
  for (const Variant& v : {empty, null}) {
    EXPECT_FALSE(v.IsNumber());
    EXPECT_FALSE(v.IsString());
    EXPECT_FALSE(v.IsObject());
    EXPECT_FALSE(v.IsNothing());
  }
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
  EXPECT_EQ(text.String(), "5");
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
  EXPECT_TRUE(v.IsObject());
  EXPECT_FALSE(v.IsNothing());
  EXPECT_EQ(v.ObjectAs<Shape>(), circle);
  EXPECT_EQ(v.ObjectAs<Circle>(), circle);
  EXPECT_EQ(v.ObjectAs<Unrelated>(), nullptr);

  const Variant nothing(std::shared_ptr<Object>{});
  EXPECT_TRUE(nothing.IsNothing());
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
