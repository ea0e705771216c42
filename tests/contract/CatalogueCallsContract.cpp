// The catalogues' own calls, each with the parameter string the module's
// windows and adapters send, answered over the sample office with the fields
// the windows read; and refused, changing nothing, when the string cannot be
// read or names no record.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <tuple>

#include "ContractFixture.h"

namespace orvel::contract {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

enum class Op { GetCall, RecordsetCall, ExecCall };

struct Field {
  const char* name;
  Kind kind;
};

// One call as the module makes it and what its answer must hold.
struct CallCase {
  const char* oid;
  Op op;
  const char* name;
  const char* param;
  std::vector<Field> fields;  // read calls: the fields the windows read
  int minRows = 1;            // read calls: rows the sample office answers at least
  // Parameter strings the call must refuse: unreadable, or naming no record.
  std::vector<const char*> refused = {};
};

// A bookkeeper reads the refusal: it names the call and says why in
// Lithuanian, with none of the words a programmer's English text has.
bool SaysWhyInLithuanian(const std::string& text, const std::string& call) {
  if (text.find(call) == std::string::npos && text.find("Įrašas nerastas") == std::string::npos) {
    return false;
  }
  for (const char* english : {"expected", " got ", " the ", " is not ", " not a ", "unknown",
                              " no ", "readable", "record of"}) {
    if (text.find(english) != std::string::npos) return false;
  }
  return true;
}

void PrintTo(const CallCase& c, std::ostream* out) { *out << c.name << " " << c.param; }

// Every engine that keeps the catalogue calls, over its own sample office.
class CatalogueCallsContract
    : public ContractFixture,
      public ::testing::TestWithParam<std::tuple<const EngineKind*, CallCase>> {
 protected:
  CatalogueCallsContract() : ContractFixture(*std::get<0>(GetParam())) {}
  void SetUp() override { Engine().GivenSampleOffice(); }
  const CallCase& Case() const { return std::get<1>(GetParam()); }

  int32_t Call(const std::string& param, std::shared_ptr<Recordset>* rs = nullptr,
               std::string* text = nullptr) {
    const CallCase& c = Case();
    OrvelObjectBO& object = Engine().Object(c.oid);
    if (c.op == Op::ExecCall) {
      const OrvelStatus status = object.ExecCall(c.name, param, 0);
      if (text) *text = status.Text;
      return status.Number;
    }
    const OrvelBoResult reply = c.op == Op::GetCall ? object.GetCall(c.name, param, 0)
                                                    : object.RecordsetCall(c.name, param, 0);
    if (rs) *rs = std::dynamic_pointer_cast<Recordset>(reply.Object);
    if (text) *text = reply.Text;
    return reply.Number;
  }
};

TEST_P(CatalogueCallsContract, AnswersTheFieldsTheWindowsRead) {
  const CallCase& c = Case();
  std::shared_ptr<Recordset> rs;
  std::string text;
  ASSERT_EQ(Call(c.param, &rs, &text), 0) << text;
  if (c.op == Op::ExecCall) return;
  ASSERT_NE(rs, nullptr);
  EXPECT_GE(rs->RecordCount(), c.minRows);
  for (const Field& field : c.fields) {
    ASSERT_TRUE(rs->Fields().Exists(field.name)) << field.name;
    for (rs->MoveFirst(); !rs->IsEOF(); rs->MoveNext()) {
      EXPECT_TRUE(IsKind(rs->Fields(field.name).Value(), field.kind))
          << field.name << " = " << ConcatText(rs->Fields(field.name).Value());
    }
  }
}

TEST_P(CatalogueCallsContract, RefusesWhatItCannotReadAndChangesNothing) {
  const std::string before = Engine().Digest();
  for (const char* param : Case().refused) {
    std::string text;
    EXPECT_NE(Call(param, nullptr, &text), 0) << param;
    EXPECT_TRUE(SaysWhyInLithuanian(text, Case().name)) << param << ": " << text;
  }
  EXPECT_EQ(Engine().Digest(), before);
}

std::string CaseName(const ::testing::TestParamInfo<std::tuple<const EngineKind*, CallCase>>& info) {
  return std::string(std::get<0>(info.param)->name) + "_" + std::get<1>(info.param).name + "_" +
         std::to_string(info.index);
}

constexpr Kind N = Kind::Number;
constexpr Kind T = Kind::Text;
constexpr Kind D = Kind::Date;
constexpr Kind B = Kind::Boolean;

const std::vector<CallCase>& Calls() {
  static const std::vector<CallCase> calls{
      {"O0000100", Op::GetCall, "CheckCode", "'O000010020','123456789'", {{"Exist", N}}, 1,
       {"'O0000100x','1'", "'O000010020"}},
      {"O0000100", Op::GetCall, "GetFirmDebt", "O000010020",
       {{"Sum220", N}, {"Sum240", N}, {"Sum450", N}, {"Sum460", N}, {"Limit", N},
        {"LimitTerm", N}, {"LimitDays", N}}},
  };
  return calls;
}

INSTANTIATE_TEST_SUITE_P(EveryEngine, CatalogueCallsContract,
                         ::testing::Combine(::testing::ValuesIn(EngineParams(true)),
                                            ::testing::ValuesIn(Calls())),
                         CaseName);

}  // namespace
}  // namespace orvel::contract
