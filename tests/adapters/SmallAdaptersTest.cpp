#include <gtest/gtest.h>

#include "adapters/SmallAdapters.h"
#include "host/MemoryRecordset.h"
#include "orvel/OrvelObjectUIO.h"
#include "support/ModuleTest.h"
#include "testhost/TestServices.h"

namespace orvel {
namespace {

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

TEST_P(SmallAdapterTest, IconTableHoldsTheTypesRowOrIsAbsent) {
  auto table = Adapter(Oid())->GetIconsTable();
  if (!GetParam().iconItem) {
    EXPECT_EQ(table, nullptr);
    return;
  }
  ASSERT_NE(table, nullptr);
  EXPECT_EQ(table->Count(), 1);
  EXPECT_EQ(table->Item("C"), GetParam().iconItem);
  // The adapter's own table, not a copy.
  EXPECT_EQ(Adapter(Oid())->GetIconsTable(), table);
}

TEST_P(SmallAdapterTest, OffersNoMenuActsOnNoKeyAndHasNoWindow) {
  auto adapter = Adapter(Oid());
  EXPECT_EQ(adapter->GetMenu(Oid(), "", ""), std::nullopt);
  EXPECT_EQ(adapter->GetMenu(Oidr(1), "C", ""), std::nullopt);
  for (const char* key : {"0", "1", "4", "6", "70S2", "116S0", "x"}) {
    auto result = adapter->ClickMenu(Oidr(1), "", key, "");
    EXPECT_EQ(result.Action, OrvelMenuResult::kNothing) << key;
    EXPECT_TRUE(result.Value.IsEmpty()) << key;
  }
  EXPECT_FALSE(adapter->AddToDeskTopOrvelObject(Oidr(1)));
  EXPECT_TRUE(adapter->DragOK(Oidr(1), "x", "y"));
  EXPECT_FALSE(adapter->DropOK(Oidr(1)));
  EXPECT_TRUE(BusinessLines().empty());
}

TEST_P(SmallAdapterTest, ReadsTheRecordIntoANewInstanceAdapterThatMarshalsOnlyChanges) {
  auto object = Adapter(Oid())->GetOrvelObject(Oidr(2));
  ASSERT_NE(object, nullptr);
  EXPECT_EQ(object->OIDR(), Oidr(2));
  EXPECT_EQ(object->OID(), Oid());
  EXPECT_EQ(object->Preview(), "antras");
  EXPECT_EQ(object->RsFields()->MarshalOptions(), 1);
  EXPECT_EQ(object->UI(), Adapter(Oid()));
  EXPECT_EQ(object->BO(), host_.BusinessObject(Oid()));
  EXPECT_EQ(object->GetGUID(), "");
  EXPECT_EQ(BusinessLines(),
            std::vector<std::string>{"GetCall Orvel_ReadObject '" + Oidr(2) + "'"});
}

TEST_P(SmallAdapterTest, ARecordThatFailsToReadGivesNoObject) {
  EXPECT_EQ(Adapter(Oid())->GetOrvelObject(Oidr(9)), nullptr);
  BO(Oid()).FailCallsNamed("Orvel_ReadObject", 17, "Nepavyko");
  EXPECT_EQ(Adapter(Oid())->GetOrvelObject(Oidr(1)), nullptr);
  // The failure text is dropped: no box is shown.
  EXPECT_TRUE(host_.Ui()->Boxes().empty());
}

TEST_P(SmallAdapterTest, PropertiesAndMethodsAnswerZeroWithoutABusinessCall) {
  auto object = Adapter(Oid())->GetOrvelObject(Oidr(1));
  ASSERT_NE(object, nullptr);
  host_.Log().Clear();
  for (const char* name : {"GetObjectForm", "Structure", "Firms"}) {
    auto result = object->Properties(name, "");
    EXPECT_EQ(result.Number, 0) << name;
    EXPECT_EQ(result.Text, "") << name;
    EXPECT_TRUE(result.Value.IsEmpty()) << name;
  }
  Variant::Array params{Variant("'x'")};
  auto result = object->Methods("DoSomething", params);
  EXPECT_EQ(result.Number, 0);
  EXPECT_TRUE(result.Value.IsEmpty());
  EXPECT_TRUE(BusinessLines().empty());
}

TEST_P(SmallAdapterTest, ListHandsOnlyTheOidrInwardWhateverTypeAndSettingsSay) {
  auto rs = Adapter(Oid())->GetOrvelObjectList(Oid(), "C", "1,0,1");
  ASSERT_NE(rs, nullptr);
  EXPECT_EQ(rs->RecordCount(), 2);
  EXPECT_EQ(BusinessLines(),
            std::vector<std::string>{"GetCall Orvel_GetObjectList '" + Oid() + "'"});
}

TEST_P(SmallAdapterTest, DeleteIsForwardedAndItsNumberIsTheResult) {
  EXPECT_EQ(Adapter(Oid())->DeleteOrvelObject(Oidr(1)), 0);
  EXPECT_FALSE(BO(Oid()).Table().Contains(1));
  EXPECT_NE(Adapter(Oid())->DeleteOrvelObject(Oidr(1)), 0);
  EXPECT_EQ(BusinessLines().back(), "ExecCall Orvel_DeleteObject '" + Oidr(1) + "'");
}

TEST_P(SmallAdapterTest, OIDAndONameAreTheTypes) {
  auto adapter = Adapter(Oid());
  EXPECT_EQ(adapter->OID(), Oid());
  EXPECT_FALSE(adapter->OName().empty());
}

INSTANTIATE_TEST_SUITE_P(TenPairs, SmallAdapterTest,
                         ::testing::Values(Pair{"O0000400", "C0000200"},
                                           Pair{"O0000500", "C0000500"},
                                           Pair{"O0000600", "stdClose"},
                                           Pair{"O0000700", "stdClose"},
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
