#include <gtest/gtest.h>

#include <optional>
#include <vector>

#include "adapters/UI0000200.h"
#include "goods/StructuredCode.h"
#include "host/MemoryRecordset.h"
#include "orvel/OrvelObjectUIO.h"
#include "support/ModuleTest.h"
#include "support/TextRecords.h"
#include "host/Convert.h"
#include "testhost/TestSession.h"

namespace orvel {
namespace {

struct CodeCase {
  const char* name;
  Variant parent, max;
  std::optional<std::string> code;
};

const Variant kNull = Variant::Null();

TEST(StructuredCodeTableTest, ProposesTheCodeOfTheFirstCaseThatHolds) {
  for (const CodeCase& c : std::initializer_list<CodeCase>{
           // Case A: the parent's code and the next number of the series.
           {"NextInSeries", Variant("12"), Variant("1207"), "1208"},
           // The series wraps to its start when it overflows its width.
           {"WrapsAtTheWidth", Variant("12"), Variant("1299"), "1200"},
           // Zero width: the highest code is the parent's own length.
           {"ZeroWidthGivesTheParent", Variant("12"), Variant("12"), "12"},
           // Whole doubles print in plain digits: 1E+15 + 1 has no exponent.
           {"SixteenDigitsWithoutExponent", Variant("10"), Variant("1000000000000000"),
            "1000000000000001"},
           {"NumbersNotText", Variant(12), Variant(1207), "1208"},
           // Case B: a top-level series keeps its width.
           {"TopLevelSeries", kNull, Variant("0041"), "0042"},
           {"TopLevelWraps", kNull, Variant("99"), "00"},
           {"TopLevelAtTheIntegerLimit", kNull, Variant("2147483646"), "2147483647"},
           // Cases C and D: no child yet, so no width.
           {"NoChildYet", Variant("12"), kNull, "12???"},
           {"EmptyHighestCode", Variant("12"), Variant(""), "12???"},
           // Case E: nothing numeric to work with.
           {"NeitherCode", kNull, kNull, std::nullopt},
           {"TextParent", Variant("AB"), Variant("AB01"), std::nullopt},
           {"TextHighestCode", Variant("12"), Variant("12A"), std::nullopt},
           // Errors: no width can be worked out.
           {"HighestShorterThanParent", Variant("123"), Variant("45"), "123???"},
           {"TopLevelBeyondInteger", kNull, Variant("2147483647"), "???"},
           {"TopLevelFarBeyondInteger", kNull, Variant("99999999999"), "???"}}) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(ProposeStructuredCode(c.parent, c.max, Locale::Lithuanian()), c.code);
  }
}

// Group 1 (code "12") with good 2 in it; the structured-code setting is on.
class GenerateCodeTest : public ModuleTest {
 protected:
  void SetUp() override {
    ModuleTest::SetUp();
    auto& table = BO("O0000200").Table();
    table.SetFields({"ID", "Name", "Code", "ParentID", "GroupFlag", "Active", "WithRest"});
    table.SetDefault("ParentID", Variant::Null());
    table.Seed(SeedRows("Name Code GroupFlag ParentID", {"Grupė|#12|1", "Prekė|#1207||1"}));
    SetStructuredCodes(Variant(true));
  }

  void SetStructuredCodes(Variant on) {
    auto settings = TextRecords("StructuredCode PriceWithVAT", "");
    settings->AddRow({std::move(on), Variant(true)});
    settings->MoveFirst();
    host_.Session()->SetSettingObject("O00018021", settings);
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

// The setting (Empty: no settings object, so the codes are off too); the answer's
// PARENTCODE|MAXCODE ("" no record, "!" a failure, null: not asked); the result's number and
// value, and the record's code afterwards.
struct GenerateCase {
  const char* name;
  Variant setting;
  const char* codes;
  int32_t number;
  Variant value;
  const char* code;
};

TEST_F(GenerateCodeTest, WritesTheProposalIntoCodeAndReturnsItWhenTheSettingIsOn) {
  for (const GenerateCase& c : std::initializer_list<GenerateCase>{
           {"Proposed", Variant(true), "#12|#1207", 0, Variant("1208"), "1208"},
           // Nothing to work with: the code stays and is returned.
           {"NothingToWorkWith", Variant(true), "~|~", 0, Variant("old"), "old"},
           {"NoRecord", Variant(true), "", 0, Variant("???"), "???"},
           {"FailedRead", Variant(true), "!", 17, Variant(), "old"},
           {"SettingNull", Variant::Null(), nullptr, 0, Variant(), "old"},
           {"SettingFalse", Variant(false), nullptr, 0, Variant(), "old"},
           {"SettingZero", Variant(0), nullptr, 0, Variant(), "old"},
           {"NoSettings", Variant(), nullptr, 0, Variant(), "old"}}) {
    SCOPED_TRACE(c.name);
    SetStructuredCodes(c.setting);
    if (c.setting.IsEmpty()) host_.Session()->SetSettingObject("O00018021", nullptr);
    if (c.codes && *c.codes == '!') {
      BO("O0000200").ReplyRead("GetStructuredCode", OrvelBoResult(17, "nėra ryšio"));
    } else if (c.codes) {
      BO("O0000200").ReplyRead("GetStructuredCode", TextRecords("PARENTCODE MAXCODE", c.codes));
    }
    auto good = NewGoodIn(Variant(1));
    auto result = Generate(*good, "generateUNICALstructuredcode");
    EXPECT_EQ(result.Number, c.number);
    EXPECT_EQ(result.Value, c.value);
    EXPECT_EQ(good->Fields("Code").Value(), Variant(c.code));
    EXPECT_EQ(BusinessLines(), c.codes ? std::vector<std::string>{"GetCall GetStructuredCode 1"}
                                       : std::vector<std::string>{});
  }
  // A top-level record asks with its own reference: a Null parent gives an empty parameter, which
  // falls back on the OIDR.
  SetStructuredCodes(Variant(true));
  BO("O0000200").ReplyRead("GetStructuredCode", TextRecords("PARENTCODE MAXCODE", {"~|#0041"}));
  auto top = Adapter("O0000200")->GetOrvelObject("O00002001");
  host_.Log().Clear();
  EXPECT_EQ(Generate(*top).Value, Variant("0042"));
  EXPECT_EQ(BusinessLines(), std::vector<std::string>{"GetCall GetStructuredCode O00002001"});
}

}  // namespace
}  // namespace orvel
