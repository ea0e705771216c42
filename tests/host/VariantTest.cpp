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

struct WideCase {
  int64_t value;
  VarType type;
};

class VariantWide : public testing::TestWithParam<WideCase> {};

TEST_P(VariantWide, KeepsIntegerWhenItFits32Bits) {
  const Variant v(GetParam().value);
  ASSERT_EQ(v.Type(), GetParam().type);
  if (v.Type() == VarType::Integer) {
    EXPECT_EQ(v.Integer(), GetParam().value);
  } else {
    EXPECT_EQ(v.Double(), static_cast<double>(GetParam().value));
  }
}

INSTANTIATE_TEST_SUITE_P(
    Cases, VariantWide,
    testing::Values(WideCase{0, VarType::Integer}, WideCase{-5, VarType::Integer},
                    WideCase{std::numeric_limits<int32_t>::max(), VarType::Integer},
                    WideCase{std::numeric_limits<int32_t>::min(), VarType::Integer},
                    WideCase{int64_t{std::numeric_limits<int32_t>::max()} + 1, VarType::Double},
                    WideCase{int64_t{std::numeric_limits<int32_t>::min()} - 1, VarType::Double},
                    WideCase{int64_t{1} << 53, VarType::Double}));

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

struct DescribeCase {
  Variant value;
  const char* expected;
};

class VariantDescribe : public testing::TestWithParam<DescribeCase> {};

TEST_P(VariantDescribe, NamesTypeAndValue) {
  EXPECT_EQ(Describe(GetParam().value), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, VariantDescribe,
    testing::Values(DescribeCase{Variant(), "Empty"}, DescribeCase{Variant::Null(), "Null"},
                    DescribeCase{true, "Boolean True"}, DescribeCase{int32_t{5}, "Integer 5"},
                    DescribeCase{2.5, "Double 2.5"}, DescribeCase{Date{45292.5}, "Date 45292.5"},
                    DescribeCase{"a", "String 'a'"},
                    DescribeCase{Variant(std::shared_ptr<Object>{}), "Nothing"},
                    DescribeCase{Variant(Variant::Array{1, 2}), "Array(2)"}));

}  // namespace
}  // namespace orvel
