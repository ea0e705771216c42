#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>

#include "host/MemoryRecordset.h"
#include "orvel/RuntimeError.h"
#include "testhost/CallLog.h"
#include "testhost/MemoryBusinessObject.h"

namespace orvel {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

class MemoryBusinessObjectTest : public ::testing::Test {
 protected:
  MemoryBusinessObjectTest() : log_(std::make_shared<CallLog>()), bo_("O0000300", log_) {
    bo_.Table().SetFields({"Code", "Name", "ParentID", "Active"});
  }

  std::shared_ptr<MemoryRecordset> ReadSet(OrvelBoResult result) {
    EXPECT_EQ(result.Number, 0) << result.Text;
    return std::dynamic_pointer_cast<MemoryRecordset>(result.Object);
  }

  OrvelStatus Save(const std::string& param, const std::shared_ptr<Recordset>& rs) {
    Variant::Array args{Variant(rs), Variant(std::shared_ptr<Object>()),
                        Variant(std::shared_ptr<Object>())};
    return bo_.ExecArrayCall("Orvel_SaveObject", param, args);
  }

  std::shared_ptr<CallLog> log_;
  MemoryBusinessObject bo_;
};

TEST_F(MemoryBusinessObjectTest, ASavedFieldUnknownToTheTypeIsKeptAndEveryCallJournalled) {
  auto rs = std::make_shared<MemoryRecordset>(std::vector<std::string>{"ID", "Name", "Swift"});
  rs->AddRow({Variant(), Variant("Luminor"), Variant("AGBLLT2X")});
  rs->MoveFirst();
  ASSERT_EQ(Save("'O0000300',''", rs).Number, 0);
  EXPECT_EQ(bo_.Table().Value(1, "SWIFT"), Variant("AGBLLT2X"));
  EXPECT_EQ(ReadSet(bo_.GetCall("Orvel_ReadObject", "'O00003001'", 0))->Fields("Swift").Value(),
            Variant("AGBLLT2X"));
  bo_.ExecCall("Orvel_DeleteObject", "'O00003001'", 0);
  EXPECT_THAT(log_->Lines(Channel::Business),
              ElementsAre("ExecArrayCall Orvel_SaveObject 'O0000300',''",
                          "GetCall Orvel_ReadObject 'O00003001'",
                          "ExecCall Orvel_DeleteObject 'O00003001'"));
  ASSERT_EQ(bo_.Calls()[0].array.size(), 3u);
  EXPECT_EQ(bo_.Calls()[0].array[0].ObjectAs<Recordset>(), rs);
  EXPECT_EQ(log_->Entries()[0].values.size(), 3u);
  EXPECT_EQ(bo_.Calls("Orvel_DeleteObject").size(), 1u);
}

using Reply = std::pair<int32_t, std::string>;

template <class Result>
Reply ReplyOf(const Result& result) {
  return {result.Number, result.Text};
}

Reply SaveOf(MemoryBusinessObject& bo, const std::string& param, bool pastEnd) {
  auto rs = std::dynamic_pointer_cast<Recordset>(
      bo.GetCall("Orvel_NewObject", "'O0000300'", 0).Object);
  if (pastEnd) rs->MoveNext();
  Variant::Array args{Variant(rs)};
  return ReplyOf(bo.ExecArrayCall("Orvel_SaveObject", param, args));
}

Reply SaveWith(MemoryBusinessObject& bo, Variant::Array args) {
  return ReplyOf(bo.ExecArrayCall("Orvel_SaveObject", "'O0000300',''", args));
}

// A call the double refuses: its Number, a piece of its text; nothing stored.
TEST_F(MemoryBusinessObjectTest, ABadCallAnswersNumberAndTextAndChangesNothing) {
  const struct {
    std::function<Reply(MemoryBusinessObject&)> call;
    int32_t number;
    const char* text;
  } cases[] = {
      {[](auto& bo) { return ReplyOf(bo.ExecCall("Orvel_SaveObject", "'O0000300',''", 0)); }, 5,
       "kviečiamas per ExecArrayCall, ne per ExecCall"},
      {[](auto& bo) { return ReplyOf(bo.GetCall("Orvel_DeleteObject", "'O00003001'", 0)); }, 5,
       "kviečiamas per ExecCall, ne per GetCall"},
      {[](auto& bo) { return SaveWith(bo, {Variant("not a set")}); }, 13, ""},
      {[](auto& bo) { return SaveWith(bo, {}); }, 13, ""},
      {[](auto& bo) { return SaveOf(bo, "'O0000300','O00003007'", false); }, 3021,
       "Įrašas nerastas: O00003007"},
      {[](auto& bo) { return SaveOf(bo, "'O0000300',''", true); }, 3021, "Orvel_SaveObject"}};
  bo_.Table().Seed({{{"Name", "A"}}});
  for (const auto& c : cases) {
    SCOPED_TRACE(c.text);
    const auto [number, text] = c.call(bo_);
    EXPECT_EQ(number, c.number);
    EXPECT_THAT(text, HasSubstr(c.text));
    EXPECT_EQ(bo_.Table().Ids(), std::vector<int32_t>{1});
  }
}

TEST_F(MemoryBusinessObjectTest, ScriptsOverrideCallsAndAScriptedSetIsHandedOutFresh) {
  auto firms = std::make_shared<MemoryRecordset>(std::vector<std::string>{"OIDR", "Name"});
  firms->AddRow({Variant("O00001001"), Variant("UAB Medis")});
  bo_.ReplyRead("GetFirms", firms);
  auto first = ReadSet(bo_.GetCall("GetFirms", "", 0));
  first->Fields("Name").SetValue(Variant("changed"));
  EXPECT_EQ(ReadSet(bo_.GetCall("GetFirms", "", 0))->Fields("Name").Value(), Variant("UAB Medis"));
  bo_.ReplyRead("Orvel_ReadObject", OrvelBoResult(91, "Užrakinta"));
  std::string seenParam;
  bo_.OnAction("Orvel_SaveObject", [&](const std::string& param, Variant::Array& args) {
    seenParam = param;
    args.push_back(Variant("returned"));
    return OrvelStatus{0, ""};
  });
  bo_.ReplyAction("Orvel_DeleteObject", OrvelStatus{547, "Naudojamas"});
  bo_.OnRead("GetRate", [](const std::string& param) {
    if (param != "'EUR'") throw RuntimeError(RuntimeError::kInvalidCall, "bad currency");
    return OrvelBoResult(0, "ok");
  });
  EXPECT_EQ(bo_.GetCall("Orvel_ReadObject", "'O00003001'", 0).Text, "Užrakinta");
  Variant::Array args;
  EXPECT_EQ(bo_.ExecArrayCall("Orvel_SaveObject", "'O0000300',''", args).Number, 0);
  EXPECT_EQ(seenParam, "'O0000300',''");
  EXPECT_EQ(args.size(), 1u);
  EXPECT_EQ(bo_.ExecCall("Orvel_DeleteObject", "'O00003001'", 0).Number, 547);
  EXPECT_EQ(bo_.GetCall("GetRate", "'EUR'", 0).Text, "ok");
  EXPECT_EQ(ReplyOf(bo_.GetCall("GetRate", "'USD'", 0)),
            Reply(RuntimeError::kInvalidCall, "GetRate: bad currency"));
  bo_.ClearScripts();
  EXPECT_EQ(bo_.GetCall("Orvel_ReadObject", "'O00003001'", 0).Number, 3021);
}

TEST_F(MemoryBusinessObjectTest, AFailedCallStoresNothingAndIsJournalled) {
  auto rs = ReadSet(bo_.GetCall("Orvel_NewObject", "'O0000300'", 0));
  bo_.FailCallsNamed("Orvel_SaveObject", -2147467259, "Ryšys nutrūko");
  EXPECT_EQ(ReplyOf(Save("'O0000300',''", rs)), Reply(-2147467259, "Ryšys nutrūko"));
  EXPECT_EQ(bo_.GetCall("Orvel_GetObjectList", "'O0000300'", 0).Number, 0);
  bo_.ClearFailures();
  EXPECT_EQ(Save("'O0000300',''", rs).Number, 0);
  EXPECT_EQ(bo_.Table().Ids(), std::vector<int32_t>{1});
  EXPECT_EQ(bo_.Calls().size(), 4u);
}

TEST(MemoryTable, SeedsChosenIdsPreviewsByItsRuleAndKeepsValuesByNameAcrossNewFields) {
  MemoryTable table("O0000200");
  table.SetFields({"Code", "Name"});
  table.SetPreviewRule([](const MemoryTable::FieldReader& field) {
    return field("Code").String() + " " + field("Name").String();
  });
  EXPECT_EQ(table.Seed({{{"ID", 978}, {"Code", "EUR"}, {"Name", "Euras"}},
                        {{"Code", "USD"}, {"Name", "JAV doleris"}}}),
            (std::vector<std::string>{"O0000200978", "O0000200979"}));
  EXPECT_EQ(table.Preview(978), "EUR Euras");
  EXPECT_EQ(table.IdOf("O0000200979"), 979);
  EXPECT_EQ(table.IdOf("O00002000979"), std::nullopt);
  EXPECT_EQ(table.IdOf("O0000300979"), std::nullopt);
  table.SetFields({"Code", "Rate", "Name"});
  EXPECT_EQ(table.FieldNames(), (std::vector<std::string>{"ID", "Code", "Rate", "Name"}));
  EXPECT_EQ(table.Value(978, "code"), Variant("EUR"));
  EXPECT_TRUE(table.Value(978, "Rate").IsEmpty());
}

}  // namespace
}  // namespace orvel
