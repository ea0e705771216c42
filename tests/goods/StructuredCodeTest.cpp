// Structured goods codes: the arithmetic on the parent's and the highest
// child's code, and the method that writes the proposal into the record.
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "adapters/UI0000200.h"
#include "goods/StructuredCode.h"
#include "host/MemoryRecordset.h"
#include "orvel/OrvelObjectUIO.h"
#include "support/ModuleTest.h"
#include "testhost/TestSession.h"

namespace orvel {
namespace {

struct CodeCase {
  const char* name;
  Variant parent;
  Variant max;
  std::optional<std::string> code;
};

class StructuredCodeTableTest : public ::testing::TestWithParam<CodeCase> {};

TEST_P(StructuredCodeTableTest, ProposesTheCodeOfTheFirstCaseThatHolds) {
  const CodeCase& c = GetParam();
  EXPECT_EQ(ProposeStructuredCode(c.parent, c.max, Locale::Lithuanian()), c.code);
}

const Variant kNull = Variant::Null();

INSTANTIATE_TEST_SUITE_P(
    Cases, StructuredCodeTableTest,
    ::testing::Values(
        // Case A: the parent's code and the next number of the series.
        CodeCase{"NextInSeries", Variant("12"), Variant("1207"), "1208"},
        CodeCase{"CarryInsideTheWidth", Variant("12"), Variant("1209"), "1210"},
        // The series wraps to its start when it overflows its width.
        CodeCase{"WrapsAtTheWidth", Variant("12"), Variant("1299"), "1200"},
        CodeCase{"LongerParent", Variant("0105"), Variant("0105009"), "0105010"},
        // Zero width: the highest code is the parent's own length.
        CodeCase{"ZeroWidthGivesTheParent", Variant("12"), Variant("12"), "12"},
        // Whole doubles print in plain digits: 1E+15 + 1 has no exponent.
        CodeCase{"SixteenDigitsWithoutExponent", Variant("10"), Variant("1000000000000000"),
                 "1000000000000001"},
        CodeCase{"NumbersNotText", Variant(12), Variant(1207), "1208"},
        // Case B: a top-level series keeps its width.
        CodeCase{"TopLevelSeries", kNull, Variant("0041"), "0042"},
        CodeCase{"TopLevelWraps", kNull, Variant("99"), "00"},
        CodeCase{"TopLevelAtTheIntegerLimit", kNull, Variant("2147483646"), "2147483647"},
        // Cases C and D: no child yet, so no width.
        CodeCase{"NoChildYet", Variant("12"), kNull, "12???"},
        CodeCase{"EmptyHighestCode", Variant("12"), Variant(""), "12???"},
        // Case E: nothing numeric to work with.
        CodeCase{"NeitherCode", kNull, kNull, std::nullopt},
        CodeCase{"TopLevelWithoutChildren", kNull, Variant(""), std::nullopt},
        CodeCase{"TextParent", Variant("AB"), Variant("AB01"), std::nullopt},
        CodeCase{"TextHighestCode", Variant("12"), Variant("12A"), std::nullopt},
        // Errors: no width can be worked out.
        CodeCase{"HighestShorterThanParent", Variant("123"), Variant("45"), "123???"},
        CodeCase{"TopLevelBeyondInteger", kNull, Variant("2147483647"), "???"},
        CodeCase{"TopLevelFarBeyondInteger", kNull, Variant("99999999999"), "???"}),
    [](const auto& info) { return std::string(info.param.name); });

// ---- the method on the good ----

// Group 1 (code "12") with good 2 in it; the structured-code setting is on.
class GenerateCodeTest : public ModuleTest {
 protected:
  void SetUp() override {
    ModuleTest::SetUp();
    auto& table = BO("O0000200").Table();
    table.SetFields({"ID", "Name", "Code", "ParentID", "GroupFlag", "Active", "WithRest"});
    table.SetDefault("ParentID", Variant::Null());
    table.Seed({{{"Name", Variant("Grupė")}, {"Code", Variant("12")}, {"GroupFlag", Variant(1)}},
                {{"Name", Variant("Prekė")}, {"Code", Variant("1207")}, {"ParentID", Variant(1)}}});
    SetStructuredCodes(Variant(true));
  }

  void SetStructuredCodes(Variant on) {
    auto settings = std::make_shared<MemoryRecordset>(
        std::vector<std::string>{"StructuredCode", "PriceWithVAT"});
    settings->AddRow({std::move(on), Variant(true)});
    settings->MoveFirst();
    host_.Session()->SetSettingObject("O00018021", settings);
  }

  void ReplyCodes(Variant parent, Variant max) {
    auto rs = std::make_shared<MemoryRecordset>(std::vector<std::string>{"PARENTCODE", "MAXCODE"});
    rs->AddRow({std::move(parent), std::move(max)});
    BO("O0000200").ReplyRead("GetStructuredCode", rs);
  }

  std::shared_ptr<OrvelObjectUIO> NewGoodIn(Variant parentId) {
    auto good = Adapter("O0000200")->GetOrvelObject("");
    good->Fields("ParentID").SetValue(std::move(parentId));
    good->Fields("Code").SetValue(Variant("old"));
    host_.Log().Clear();
    return good;
  }

  OrvelResult Generate(OrvelObjectUIO& good, const char* name = "GenerateUnicalStructuredCode") {
    Variant::Array none;
    return good.Methods(name, none);
  }
};

TEST_F(GenerateCodeTest, WritesTheProposalIntoCodeAndReturnsIt) {
  ReplyCodes(Variant("12"), Variant("1207"));
  auto good = NewGoodIn(Variant(1));
  auto result = Generate(*good, "generateUNICALstructuredcode");
  EXPECT_EQ(result.Number, 0);
  EXPECT_EQ(result.Value, Variant("1208"));
  EXPECT_EQ(good->Fields("Code").Value(), Variant("1208"));
  EXPECT_EQ(BusinessLines(), std::vector<std::string>{"GetCall GetStructuredCode 1"});
}

TEST_F(GenerateCodeTest, NothingToWorkWithLeavesTheCodeAndReturnsIt) {
  ReplyCodes(Variant::Null(), Variant::Null());
  auto good = NewGoodIn(Variant(1));
  auto result = Generate(*good);
  EXPECT_EQ(result.Number, 0);
  EXPECT_EQ(result.Value, Variant("old"));
}

class GenerateCodeOffTest : public GenerateCodeTest,
                            public ::testing::WithParamInterface<Variant> {};

TEST_P(GenerateCodeOffTest, WithTheSettingOffNothingIsAskedOrTouched) {
  SetStructuredCodes(GetParam());
  auto good = NewGoodIn(Variant(1));
  auto result = Generate(*good);
  EXPECT_EQ(result.Number, 0);
  EXPECT_TRUE(result.Value.IsEmpty());
  EXPECT_EQ(good->Fields("Code").Value(), Variant("old"));
  EXPECT_TRUE(BusinessLines().empty());
}

INSTANTIATE_TEST_SUITE_P(Settings, GenerateCodeOffTest,
                         ::testing::Values(Variant::Null(), Variant(false), Variant(0)));

TEST_F(GenerateCodeTest, WithoutASettingsObjectTheCodesAreOff) {
  host_.Session()->SetSettingObject("O00018021", nullptr);
  auto good = NewGoodIn(Variant(1));
  EXPECT_EQ(Generate(*good).Number, 0);
  EXPECT_TRUE(BusinessLines().empty());
}

TEST_F(GenerateCodeTest, AFailedCodeReadEndsWithItsNumberAndLeavesTheCode) {
  BO("O0000200").ReplyRead("GetStructuredCode", OrvelBoResult(17, "nėra ryšio"));
  auto good = NewGoodIn(Variant(1));
  auto result = Generate(*good);
  EXPECT_EQ(result.Number, 17);
  EXPECT_EQ(result.Text, "nėra ryšio");
  EXPECT_EQ(good->Fields("Code").Value(), Variant("old"));
}

TEST_F(GenerateCodeTest, AnAnswerWithoutARecordGivesThePlaceholder) {
  BO("O0000200")
      .ReplyRead("GetStructuredCode", std::make_shared<MemoryRecordset>(
                                          std::vector<std::string>{"PARENTCODE", "MAXCODE"}));
  auto good = NewGoodIn(Variant(1));
  EXPECT_EQ(Generate(*good).Value, Variant("???"));
}

TEST_F(GenerateCodeTest, ATopLevelRecordAsksWithItsOwnReference) {
  // A Null parent gives an empty parameter, which falls back on the OIDR.
  ReplyCodes(Variant::Null(), Variant("0041"));
  auto top = Adapter("O0000200")->GetOrvelObject("O00002001");
  host_.Log().Clear();
  EXPECT_EQ(Generate(*top).Value, Variant("0042"));
  EXPECT_EQ(BusinessLines(), std::vector<std::string>{"GetCall GetStructuredCode O00002001"});
}

}  // namespace
}  // namespace orvel
