// The standard objects behind every adapter (one record per instance, all
// data through the type's business object) and the small adapter pairs that
// are no more than them.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "adapters/SmallAdapters.h"
#include "adapters/StandardObjectUI.h"
#include "adapters/StandardObjectUIO.h"
#include "host/MemoryRecordset.h"
#include "orvel/OrvelObjectUIO.h"
#include "support/ModuleTest.h"
#include "support/TextRecords.h"
#include "testhost/TestServices.h"

namespace orvel {
namespace {

using Lines = std::vector<std::string>;

class StandardObjectsTest : public ModuleTest {
 protected:
  void SetUp() override {
    ModuleTest::SetUp();
    auto& table = BO("O0000400").Table();
    table.SetFields({"ID", "Name", "Code", "Ratio"});
    table.SetDefault("Ratio", Variant(1.0));
    table.Seed(SeedRows("Name Code", {"kilogramas|kg", "metras|m"}));
    adapter_ = Adapter("O0000400");
    host_.Log().Clear();
  }

  std::shared_ptr<OrvelObjectUI> adapter_;
};

TEST_F(StandardObjectsTest, SavingAnEditedRecordSendsItAndReadsItBack) {
  auto object = adapter_->GetOrvelObject("O00004001");
  ASSERT_NE(object, nullptr);
  object->Fields("Name").SetValue(Variant("kilogramai"));
  EXPECT_EQ(object->Fields("name").UnderlyingValue(), Variant("kilogramas"));
  auto status = object->Save(nullptr, nullptr);
  ASSERT_EQ(status.Number, 0) << status.Text;
  EXPECT_EQ(BusinessLines(), (Lines{"GetCall Orvel_ReadObject 'O00004001'",
                                    "ExecArrayCall Orvel_SaveObject 'O0000400','O00004001'",
                                    "GetCall Orvel_ReadObject 'O00004001'"}));
  EXPECT_EQ(CStr(BO("O0000400").Table().Value(1, "Name")) + " " +
                CStr(object->Fields("Name").UnderlyingValue()) + " " + object->Preview(),
            "kilogramai kilogramai kilogramai");
  // A save hands the second and third sets on behind the record.
  auto record = object->RsFields();
  auto rs2 = std::make_shared<MemoryRecordset>(std::vector<std::string>{"X"});
  ASSERT_EQ(object->Save(rs2, nullptr).Number, 0);
  auto calls = BO("O0000400").Calls("Orvel_SaveObject");
  ASSERT_EQ(calls.size(), 2u);
  ASSERT_EQ(calls[1].array.size(), 3u);
  EXPECT_EQ(calls[1].array[0].ObjectAs<Recordset>(), record);
  EXPECT_TRUE(calls[1].array[1].ObjectAs<Recordset>() == rs2 && calls[1].array[2].IsNothing());
}

// The type itself, a zero ninth character or no OIDR ask for a new record,
// which takes its OIDR when saved; a save that returns no ID is a failure.
TEST_F(StandardObjectsTest, ANewRecordStartsFromDefaultsAndTakesItsOidrWhenSaved) {
  for (const char* oidr : {"O0000400", "O00004000", "O000040001"}) {
    host_.Log().Clear();
    ASSERT_NE(adapter_->GetOrvelObject(oidr), nullptr) << oidr;
    EXPECT_EQ(BusinessLines().front(), "GetCall Orvel_NewObject 'O0000400'") << oidr;
  }
  auto object = adapter_->GetOrvelObject("");
  EXPECT_TRUE(object->OIDR().empty() && object->Fields("ID").Value().IsEmpty());
  EXPECT_EQ(object->Fields("Ratio").Value(), Variant(1.0));
  object->Fields("Name").SetValue(Variant("litras"));
  BO("O0000400").ReplyAction("Orvel_SaveObject", OrvelStatus{});
  EXPECT_NE(object->Save(nullptr, nullptr).Number, 0);
  EXPECT_EQ(object->OIDR(), "");
  BO("O0000400").ClearScripts();
  host_.Log().Clear();
  ASSERT_EQ(object->Save(nullptr, nullptr).Number, 0);
  EXPECT_EQ(object->OIDR(), "O00004003");
  EXPECT_EQ(BusinessLines(), (Lines{"ExecArrayCall Orvel_SaveObject 'O0000400',''",
                                    "GetCall Orvel_ReadObject 'O00004003'"}));
  EXPECT_EQ(BO("O0000400").Table().Value(3, "Name"), Variant("litras"));
}

// A refused save changes nothing and the edit stays until cancelled; a save
// without a record and an object without a business object fail clearly.
TEST_F(StandardObjectsTest, SavesAndReadsThatCannotWorkAreClearFailures) {
  auto object = adapter_->GetOrvelObject("O00004002");
  object->Fields("Name").SetValue(Variant("mylia"));
  BO("O0000400").FailCallsNamed("Orvel_SaveObject", 60000, "Užimta");
  auto status = object->Save(nullptr, nullptr);
  EXPECT_EQ(std::to_string(status.Number) + " " + status.Text, "60000 Užimta");
  EXPECT_EQ(CStr(BO("O0000400").Table().Value(2, "Name")) + " " +
                CStr(object->Fields("Name").Value()),
            "metras mylia");
  object->CancelUpdate();
  EXPECT_EQ(object->Fields("Name").Value(), Variant("metras"));
  host_.Log().Clear();
  UIO0000400 unread;
  unread.SetUI(adapter_);
  status = unread.Save(nullptr, nullptr);
  EXPECT_TRUE(status.Number != 0 && !status.Text.empty());
  EXPECT_TRUE(BusinessLines().empty());
  UIO0000400 orphan;
  orphan.SetOIDR("O00004001");
  status = orphan.Read();
  EXPECT_NE(status.Number, 0);
  EXPECT_THAT(status.Text, ::testing::HasSubstr("O00004001"));
  EXPECT_TRUE(orphan.RsFields() == nullptr && orphan.Preview().empty());
}

TEST_F(StandardObjectsTest, AListRequestMayCarryItsOwnArgumentString) {
  auto rs = adapter_->GetOrvelObjectList("'','metr'", "", "");
  ASSERT_NE(rs, nullptr);
  EXPECT_EQ(rs->RecordCount(), 1);
  EXPECT_EQ(rs->Fields("OIDR").Value(), Variant("O00004002"));
  EXPECT_EQ(BusinessLines(), Lines{"GetCall Orvel_GetObjectList '','metr'"});
}

TEST_F(StandardObjectsTest, TheStandardTypeObjectPlacesOnTheDesktopThroughTheObjectManager) {
  auto standard = std::make_shared<StandardObjectUI>();
  standard->SetOID("O0000400");
  EXPECT_TRUE(standard->AddToDeskTopOrvelObject("O00004001"));
  EXPECT_EQ(host_.Log().Lines(Channel::Host), Lines{"AddToDesktop O00004001"});
  EXPECT_EQ(standard->OName(), "Atsargų matavimo vienetai");
  // Each standard instance has its own GUID.
  StandardObjectUIO a, b;
  EXPECT_EQ(a.GetGUID().size(), 38u);
  EXPECT_NE(a.GetGUID(), b.GetGUID());
}

TEST_F(StandardObjectsTest, StandardPropertiesPrefixGetAndReportOnlyPositiveNumbers) {
  auto object = std::make_shared<StandardObjectUIO>();
  object->SetUI(adapter_);
  object->SetOIDR("O00004001");
  ASSERT_EQ(object->Read().Number, 0);
  host_.Log().Clear();
  auto rs = std::make_shared<MemoryRecordset>(std::vector<std::string>{"A"});
  BO("O0000400").ReplyRead("GetHistory", rs);
  auto result = object->Properties("History", "");
  EXPECT_TRUE(result.Number == 0 && result.Value.ObjectAs<Recordset>());
  object->Properties("History", "'O00004001',5");
  BO("O0000400").ReplyRead("GetBroken", OrvelBoResult(42, "Sugedo"));
  result = object->Properties("Broken", "");
  EXPECT_EQ(std::to_string(result.Number) + " " + result.Text, "42 42");
  BO("O0000400").ReplyRead("GetQuiet", OrvelBoResult(-3, "Tyliai"));
  result = object->Properties("Quiet", "");
  EXPECT_TRUE(result.Number == 0 && result.Value.IsEmpty());
  Variant::Array params{Variant("'O00004001',1")};
  EXPECT_EQ(object->Methods("Recalculate", params).Number, 0);
  Variant::Array none;
  EXPECT_EQ(object->Methods("Touch", none).Number, 0);
  EXPECT_EQ(Join(BusinessLines(), "|"),
            "GetCall GetHistory O00004001|GetCall GetHistory 'O00004001',5|GetCall GetBroken "
            "O00004001|GetCall GetQuiet O00004001|ExecCall Recalculate 'O00004001',1|"
            "ExecCall Touch");
}

struct Pair {
  const char* oid;
  const char* iconItem;  // the item of row "C"; null for a type without a table
};

std::ostream& operator<<(std::ostream& out, const Pair& pair) { return out << pair.oid; }

class SmallAdapterTest : public ModuleTest, public ::testing::WithParamInterface<Pair> {
 protected:
  std::string Oid() const { return GetParam().oid; }
  std::string Oidr(int id) const { return Oid() + std::to_string(id); }
  void SetUp() override {
    ModuleTest::SetUp();
    BO(Oid()).Table().Seed({{{"Name", Variant("pirmas")}}, {{"Name", Variant("antras")}}});
  }
};

// No menu, key or window, only the type and its icon table; properties and
// methods answer zero without a business call.
TEST_P(SmallAdapterTest, OffersNoMenuNoKeyNoWindowAndAnswersZeroWithoutABusinessCall) {
  auto adapter = Adapter(Oid());
  EXPECT_EQ(adapter->OID(), Oid());
  EXPECT_FALSE(adapter->OName().empty());
  // The adapter's own icon table, not a copy.
  auto table = adapter->GetIconsTable();
  EXPECT_EQ(table ? *table->Item("C") + std::to_string(table->Count()) : "none",
            GetParam().iconItem ? GetParam().iconItem + std::string("1") : "none");
  EXPECT_EQ(adapter->GetIconsTable(), table);
  EXPECT_FALSE(adapter->GetMenu(Oid(), "", "") || adapter->GetMenu(Oidr(1), "C", ""));
  for (const char* key : {"0", "1", "4", "6", "70S2", "116S0", "x"}) {
    auto result = adapter->ClickMenu(Oidr(1), "", key, "");
    EXPECT_TRUE(result.Action == OrvelMenuResult::kNothing && result.Value.IsEmpty()) << key;
  }
  EXPECT_FALSE(adapter->AddToDeskTopOrvelObject(Oidr(1)));
  EXPECT_TRUE(adapter->DragOK(Oidr(1), "x", "y"));
  EXPECT_FALSE(adapter->DropOK(Oidr(1)));
  EXPECT_TRUE(BusinessLines().empty());
  auto object = adapter->GetOrvelObject(Oidr(1));
  host_.Log().Clear();
  for (const char* name : {"GetObjectForm", "Structure", "Firms"}) {
    auto result = object->Properties(name, "");
    EXPECT_TRUE(result.Number == 0 && result.Text.empty() && result.Value.IsEmpty()) << name;
  }
  Variant::Array params{Variant("'x'")};
  auto result = object->Methods("DoSomething", params);
  EXPECT_TRUE(result.Number == 0 && result.Value.IsEmpty());
  EXPECT_TRUE(BusinessLines().empty());
}

// A record is read into a new instance adapter that marshals only changes; one
// that fails to read gives no object, and the text is dropped. The list hands
// only the OIDR inward whatever type and settings say; a delete is forwarded
// and its number is the result.
TEST_P(SmallAdapterTest, ReadsListsAndDeletesThroughTheBusinessObject) {
  auto object = Adapter(Oid())->GetOrvelObject(Oidr(2));
  ASSERT_NE(object, nullptr);
  EXPECT_EQ(object->OIDR() + " " + object->OID() + " " + object->Preview() + " " +
                std::to_string(object->RsFields()->MarshalOptions()) + object->GetGUID(),
            Oidr(2) + " " + Oid() + " antras 1");
  EXPECT_TRUE(object->UI() == Adapter(Oid()) && object->BO() == host_.BusinessObject(Oid()));
  EXPECT_EQ(Adapter(Oid())->GetOrvelObject(Oidr(9)), nullptr);
  EXPECT_EQ(Adapter(Oid())->GetOrvelObjectList(Oid(), "C", "1,0,1")->RecordCount(), 2);
  EXPECT_EQ(Adapter(Oid())->DeleteOrvelObject(Oidr(1)), 0);
  EXPECT_FALSE(BO(Oid()).Table().Contains(1));
  EXPECT_NE(Adapter(Oid())->DeleteOrvelObject(Oidr(1)), 0);
  EXPECT_EQ(Join(BusinessLines(), "|"),
            "GetCall Orvel_ReadObject '" + Oidr(2) + "'|GetCall Orvel_ReadObject '" + Oidr(9) +
                "'|GetCall Orvel_GetObjectList '" + Oid() + "'|ExecCall Orvel_DeleteObject '" +
                Oidr(1) + "'|ExecCall Orvel_DeleteObject '" + Oidr(1) + "'");
  BO(Oid()).FailCallsNamed("Orvel_ReadObject", 17, "Nepavyko");
  EXPECT_EQ(Adapter(Oid())->GetOrvelObject(Oidr(2)), nullptr);
  EXPECT_TRUE(host_.Ui()->Boxes().empty());
}

INSTANTIATE_TEST_SUITE_P(
    TenPairs, SmallAdapterTest,
    ::testing::Values(Pair{"O0000400", "C0000200"}, Pair{"O0000500", "C0000500"},
                      Pair{"O0000600", "stdClose"}, Pair{"O0000700", "stdClose"},
                      Pair{"O0000800", "C0000200"}, Pair{"O0002000", nullptr},
                      Pair{"O0002100", nullptr}, Pair{"O0002300", "C0000200"},
                      Pair{"O0002400", nullptr}, Pair{"O0002500", nullptr}),
    [](const auto& info) { return std::string(info.param.oid); });

class OrvelSTest : public ModuleTest {};

TEST_F(OrvelSTest, TheFirstServicesWrittenAreKeptModuleWide) {
  EXPECT_EQ(OrvelS(), nullptr);
  UI0000400 first;
  UI0002500 second;
  TestHost other;
  first.SetOrvelS(host_.Services());
  second.SetOrvelS(other.Services());
  first.SetOrvelS(other.Services());
  EXPECT_EQ(OrvelS(), host_.Services());
}

}  // namespace
}  // namespace orvel
