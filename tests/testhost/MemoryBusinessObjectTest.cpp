#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/MemoryRecordset.h"
#include "orvel/RuntimeError.h"
#include "testhost/CallLog.h"
#include "testhost/MemoryBusinessObject.h"

namespace orvel {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

constexpr const char* kBanks = "O0000300";

class MemoryBusinessObjectTest : public ::testing::Test {
 protected:
  MemoryBusinessObjectTest() : log_(std::make_shared<CallLog>()), bo_(kBanks, log_) {
    bo_.Table().SetFields({"Code", "Name", "ParentID", "Active"});
    bo_.Table().SetDefault("Active", Variant(true));
  }

  std::shared_ptr<MemoryRecordset> ReadSet(OrvelBoResult result) {
    EXPECT_EQ(result.Number, 0) << result.Text;
    auto rs = std::dynamic_pointer_cast<MemoryRecordset>(result.Object);
    EXPECT_NE(rs, nullptr);
    return rs;
  }

  OrvelStatus Save(const std::string& param, const std::shared_ptr<Recordset>& rs) {
    Variant::Array args{Variant(rs), Variant(std::shared_ptr<Object>()),
                        Variant(std::shared_ptr<Object>())};
    return bo_.ExecArrayCall("Orvel_SaveObject", param, args);
  }

  std::shared_ptr<CallLog> log_;
  MemoryBusinessObject bo_;
};

TEST_F(MemoryBusinessObjectTest, Save_FieldUnknownToType_IsKeptNotLost) {
  auto rs = std::make_shared<MemoryRecordset>(std::vector<std::string>{"ID", "Name", "Swift"});
  rs->AddRow({Variant(), Variant("Luminor"), Variant("AGBLLT2X")});
  rs->MoveFirst();

  ASSERT_EQ(Save("'O0000300',''", rs).Number, 0);

  EXPECT_EQ(bo_.Table().Value(1, "SWIFT"), Variant("AGBLLT2X"));
  auto read = ReadSet(bo_.GetCall("Orvel_ReadObject", "'O00003001'", 0));
  EXPECT_EQ(read->Fields("Swift").Value(), Variant("AGBLLT2X"));
}

struct BadCallCase {
  MemoryBusinessObject::Op op;
  std::string name;
  std::string param;
  int32_t number;
  std::string text;  // contained in the reply's Text
};

class BadCallTest : public MemoryBusinessObjectTest,
                    public ::testing::WithParamInterface<BadCallCase> {};

TEST_P(BadCallTest, AnswersNumberAndTextAndChangesNothing) {
  bo_.Table().Seed({{{"Name", "A"}}});
  const BadCallCase& c = GetParam();
  int32_t number = 0;
  std::string text;
  if (c.op == MemoryBusinessObject::Op::GetCall) {
    OrvelBoResult r = bo_.GetCall(c.name, c.param, 0);
    number = r.Number;
    text = r.Text;
    EXPECT_EQ(r.Object, nullptr);
  } else {
    OrvelStatus s = bo_.ExecCall(c.name, c.param, 0);
    number = s.Number;
    text = s.Text;
  }
  EXPECT_EQ(number, c.number);
  EXPECT_THAT(text, HasSubstr(c.text));
  EXPECT_EQ(bo_.Table().Ids(), std::vector<int32_t>{1});
}

using Op = MemoryBusinessObject::Op;
INSTANTIATE_TEST_SUITE_P(
    Calls, BadCallTest,
    ::testing::Values(
        // A standard call through the wrong road is a fault of the caller.
        BadCallCase{Op::ExecCall, "Orvel_SaveObject", "'O0000300',''", 5,
                    "kviečiamas per ExecArrayCall, ne per ExecCall"},
        BadCallCase{Op::GetCall, "Orvel_DeleteObject", "'O00003001'", 5,
                    "kviečiamas per ExecCall, ne per GetCall"}));

TEST_F(MemoryBusinessObjectTest, Save_BadArrayOrUnknownRecord_StoresNothing) {
  Variant::Array noSet{Variant("not a set")};
  EXPECT_EQ(bo_.ExecArrayCall("Orvel_SaveObject", "'O0000300',''", noSet).Number, 13);
  Variant::Array empty;
  EXPECT_EQ(bo_.ExecArrayCall("Orvel_SaveObject", "'O0000300',''", empty).Number, 13);

  auto rs = ReadSet(bo_.GetCall("Orvel_NewObject", "'O0000300'", 0));
  OrvelStatus unknown = Save("'O0000300','O00003007'", rs);
  EXPECT_EQ(unknown.Number, 3021);
  EXPECT_EQ(unknown.Text, "Įrašas nerastas: O00003007");

  // A set past its last record has no current record to store.
  rs->MoveNext();
  OrvelStatus noRecord = Save("'O0000300',''", rs);
  EXPECT_NE(noRecord.Number, 0);
  EXPECT_THAT(noRecord.Text, HasSubstr("Orvel_SaveObject"));
  EXPECT_EQ(bo_.Table().Count(), 0u);
}

TEST_F(MemoryBusinessObjectTest, EveryCall_LoggedAndKeptStructured) {
  auto rs = ReadSet(bo_.GetCall("Orvel_NewObject", "'O0000300'", 0));
  Save("'O0000300',''", rs);
  bo_.RecordsetCall("Orvel_GetObjectStructure", "'O0000300'", 0);
  bo_.ExecCall("Orvel_DeleteObject", "'O00003001'", 0);

  EXPECT_THAT(log_->Lines(Channel::Business),
              ElementsAre("GetCall Orvel_NewObject 'O0000300'",
                          "ExecArrayCall Orvel_SaveObject 'O0000300',''",
                          "RecordsetCall Orvel_GetObjectStructure 'O0000300'",
                          "ExecCall Orvel_DeleteObject 'O00003001'"));
  ASSERT_EQ(bo_.Calls().size(), 4u);
  const auto& save = bo_.Calls()[1];
  EXPECT_EQ(save.op, Op::ExecArrayCall);
  EXPECT_EQ(save.param, "'O0000300',''");
  ASSERT_EQ(save.array.size(), 3u);
  EXPECT_EQ(save.array[0].ObjectAs<Recordset>(), rs);
  EXPECT_TRUE(save.array[1].IsNothing());
  EXPECT_EQ(log_->Entries()[1].values.size(), 3u);
  EXPECT_EQ(bo_.Calls("Orvel_DeleteObject").size(), 1u);
}

TEST_F(MemoryBusinessObjectTest, Unscripted_NonStandardCalls_AnswerZero) {
  OrvelBoResult get = bo_.GetCall("GetFirms", "O00003005", 0);
  OrvelBoResult structure = bo_.RecordsetCall("Orvel_GetObjectStructure", "", 0);
  Variant::Array args{Variant(1)};

  EXPECT_EQ(get.Number, 0);
  auto rs = std::dynamic_pointer_cast<MemoryRecordset>(get.Object);
  ASSERT_NE(rs, nullptr);
  EXPECT_EQ(rs->RecordCount(), 0);
  EXPECT_NE(std::dynamic_pointer_cast<MemoryRecordset>(structure.Object), nullptr);
  EXPECT_EQ(bo_.ExecCall("Recalculate", "1", 0).Number, 0);
  EXPECT_EQ(bo_.ExecArrayCall("Import", "", args).Number, 0);
}

TEST_F(MemoryBusinessObjectTest, ScriptedRead_FixedSetHandedOutFreshEachCall) {
  auto firms = std::make_shared<MemoryRecordset>(std::vector<std::string>{"OIDR", "Name"});
  firms->AddRow({Variant("O00001001"), Variant("UAB Medis")});
  firms->AddRow({Variant("O00001002"), Variant("UAB Akmuo")});
  bo_.ReplyRead("GetFirms", firms);

  auto first = ReadSet(bo_.GetCall("GetFirms", "", 0));
  first->SetFilter(Variant("Name = 'UAB Akmuo'"));
  first->Fields("Name").SetValue(Variant("changed"));
  auto second = ReadSet(bo_.GetCall("GetFirms", "", 0));

  EXPECT_NE(first, second);
  EXPECT_EQ(second->RecordCount(), 2);
  EXPECT_EQ(second->Fields("Name").Value(), Variant("UAB Medis"));
}

TEST_F(MemoryBusinessObjectTest, Scripts_OverrideStandardCalls_HandlersSeeParamAndArray) {
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
  // A handler that throws becomes a Number and Text.
  OrvelBoResult thrown = bo_.GetCall("GetRate", "'USD'", 0);
  EXPECT_EQ(thrown.Number, RuntimeError::kInvalidCall);
  EXPECT_EQ(thrown.Text, "GetRate: bad currency");

  bo_.ClearScripts();
  EXPECT_EQ(bo_.GetCall("Orvel_ReadObject", "'O00003001'", 0).Number, 3021);
}

TEST_F(MemoryBusinessObjectTest, FailNthCall_FailsOnlyThatCall_AndStoresNothing) {
  auto rs = ReadSet(bo_.GetCall("Orvel_NewObject", "'O0000300'", 0));
  bo_.FailNthCall(2, -2147467259, "Ryšys nutrūko");

  OrvelBoResult first = bo_.GetCall("Orvel_GetObjectList", "'O0000300'", 0);
  OrvelStatus second = Save("'O0000300',''", rs);
  OrvelStatus third = Save("'O0000300',''", rs);

  EXPECT_EQ(first.Number, 0);
  EXPECT_EQ(second.Number, -2147467259);
  EXPECT_EQ(second.Text, "Ryšys nutrūko");
  EXPECT_EQ(third.Number, 0);
  EXPECT_EQ(bo_.Table().Ids(), std::vector<int32_t>{1});
  // The failed call is in the journal all the same.
  EXPECT_EQ(bo_.Calls().size(), 4u);
}

TEST_F(MemoryBusinessObjectTest, FailCallsNamed_FailsEveryCallOfThatName_UntilCleared) {
  bo_.Table().Seed({{{"Name", "A"}}});
  bo_.FailCallsNamed("Orvel_ReadObject", 3021, "Įrašas nerastas: O00003001");

  OrvelBoResult a = bo_.GetCall("Orvel_ReadObject", "'O00003001'", 0);
  OrvelBoResult b = bo_.GetCall("Orvel_ReadObject", "'O00003001'", 0);
  OrvelBoResult other = bo_.GetCall("Orvel_GetObjectList", "'O0000300'", 0);

  EXPECT_EQ(a.Number, 3021);
  EXPECT_EQ(a.Object, nullptr);
  EXPECT_EQ(b.Number, 3021);
  EXPECT_EQ(other.Number, 0);
  bo_.ClearFailures();
  EXPECT_EQ(bo_.GetCall("Orvel_ReadObject", "'O00003001'", 0).Number, 0);
}

TEST(MemoryTable, PreviewRule_AndSeedWithChosenIds) {
  MemoryTable table("O0000200");
  table.SetFields({"Code", "Name"});
  table.SetPreviewRule([](const MemoryTable::FieldReader& field) {
    return field("Code").String() + " " + field("Name").String();
  });

  auto oidrs = table.Seed({{{"ID", 978}, {"Code", "EUR"}, {"Name", "Euras"}},
                           {{"Code", "USD"}, {"Name", "JAV doleris"}}});

  EXPECT_EQ(oidrs, (std::vector<std::string>{"O0000200978", "O0000200979"}));
  EXPECT_EQ(table.Preview(978), "EUR Euras");
  EXPECT_EQ(table.IdOf("O0000200979"), 979);
  EXPECT_EQ(table.IdOf("O00002000979"), std::nullopt);
  EXPECT_EQ(table.IdOf("O0000300979"), std::nullopt);
}

TEST(MemoryTable, SetFields_AfterSeeding_KeepsValuesByName) {
  MemoryTable table("O0000200");
  table.Seed({{{"Name", "Euras"}, {"Code", "EUR"}}});

  table.SetFields({"Code", "Rate", "Name"});

  EXPECT_EQ(table.FieldNames(), (std::vector<std::string>{"ID", "Code", "Rate", "Name"}));
  EXPECT_EQ(table.Value(1, "code"), Variant("EUR"));
  EXPECT_EQ(table.Value(1, "Name"), Variant("Euras"));
  EXPECT_EQ(table.Value(1, "ID"), Variant(1));
  EXPECT_TRUE(table.Value(1, "Rate").IsEmpty());
}

}  // namespace
}  // namespace orvel
