// The standard objects behind every adapter: one record per instance, all
// data through the type's business object.
#include <gtest/gtest.h>

#include "adapters/SmallAdapters.h"
#include "adapters/StandardObjectUI.h"
#include "adapters/StandardObjectUIO.h"
#include "host/MemoryRecordset.h"
#include "orvel/OrvelObjectUIO.h"
#include "support/ModuleTest.h"
#include "testhost/TestServices.h"

namespace orvel {
namespace {

class StandardObjectsTest : public ModuleTest {
 protected:
  void SetUp() override {
    ModuleTest::SetUp();
    auto& table = BO("O0000400").Table();
    table.SetFields({"ID", "Name", "Code", "Ratio"});
    table.SetDefault("Ratio", Variant(1.0));
    table.Seed({{{"Name", Variant("kilogramas")}, {"Code", Variant("kg")}},
                {{"Name", Variant("metras")}, {"Code", Variant("m")}}});
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
  EXPECT_EQ(BusinessLines(), (std::vector<std::string>{
                                 "GetCall Orvel_ReadObject 'O00004001'",
                                 "ExecArrayCall Orvel_SaveObject 'O0000400','O00004001'",
                                 "GetCall Orvel_ReadObject 'O00004001'",
                             }));
  EXPECT_EQ(BO("O0000400").Table().Value(1, "Name"), Variant("kilogramai"));
  EXPECT_EQ(object->Fields("Name").UnderlyingValue(), Variant("kilogramai"));
  EXPECT_EQ(object->Preview(), "kilogramai");
}

TEST_F(StandardObjectsTest, ANewRecordStartsFromDefaultsAndTakesItsOidrWhenSaved) {
  auto object = adapter_->GetOrvelObject("");
  ASSERT_NE(object, nullptr);
  EXPECT_EQ(object->OIDR(), "");
  EXPECT_TRUE(object->Fields("ID").Value().IsEmpty());
  EXPECT_EQ(object->Fields("Ratio").Value(), Variant(1.0));

  object->Fields("Name").SetValue(Variant("litras"));
  ASSERT_EQ(object->Save(nullptr, nullptr).Number, 0);
  EXPECT_EQ(object->OIDR(), "O00004003");
  EXPECT_EQ(BusinessLines(), (std::vector<std::string>{
                                 "GetCall Orvel_NewObject 'O0000400'",
                                 "ExecArrayCall Orvel_SaveObject 'O0000400',''",
                                 "GetCall Orvel_ReadObject 'O00004003'",
                             }));
  EXPECT_EQ(BO("O0000400").Table().Value(3, "Name"), Variant("litras"));
}

TEST_F(StandardObjectsTest, TheTypeItselfAndAZeroNinthCharacterAskForANewRecord) {
  for (const char* oidr : {"O0000400", "O00004000", "O000040001"}) {
    host_.Log().Clear();
    auto object = adapter_->GetOrvelObject(oidr);
    ASSERT_NE(object, nullptr) << oidr;
    EXPECT_EQ(BusinessLines().front(), "GetCall Orvel_NewObject 'O0000400'") << oidr;
  }
}

TEST_F(StandardObjectsTest, AFailedSaveIsReportedAndChangesNothing) {
  auto object = adapter_->GetOrvelObject("O00004002");
  ASSERT_NE(object, nullptr);
  object->Fields("Name").SetValue(Variant("mylia"));
  BO("O0000400").FailCallsNamed("Orvel_SaveObject", 60000, "Užimta");
  auto status = object->Save(nullptr, nullptr);
  EXPECT_EQ(status.Number, 60000);
  EXPECT_EQ(status.Text, "Užimta");
  EXPECT_EQ(BO("O0000400").Table().Value(2, "Name"), Variant("metras"));
  // The edit stays in the window's record until it is cancelled.
  EXPECT_EQ(object->Fields("Name").Value(), Variant("mylia"));
  object->CancelUpdate();
  EXPECT_EQ(object->Fields("Name").Value(), Variant("metras"));
}

TEST_F(StandardObjectsTest, ANewRecordWhoseSaveReturnsNoIdIsAFailureNotANewBlank) {
  auto object = adapter_->GetOrvelObject("");
  ASSERT_NE(object, nullptr);
  BO("O0000400").ReplyAction("Orvel_SaveObject", OrvelStatus{});
  auto status = object->Save(nullptr, nullptr);
  EXPECT_NE(status.Number, 0);
  EXPECT_EQ(object->OIDR(), "");
}

TEST_F(StandardObjectsTest, SaveHandsTheSecondAndThirdSetsOn) {
  auto object = adapter_->GetOrvelObject("O00004001");
  ASSERT_NE(object, nullptr);
  auto record = object->RsFields();
  auto rs2 = std::make_shared<MemoryRecordset>(std::vector<std::string>{"X"});
  ASSERT_EQ(object->Save(rs2, nullptr).Number, 0);
  auto calls = BO("O0000400").Calls("Orvel_SaveObject");
  ASSERT_EQ(calls.size(), 1u);
  ASSERT_EQ(calls[0].array.size(), 3u);
  EXPECT_EQ(calls[0].array[0].ObjectAs<Recordset>(), record);
  EXPECT_EQ(calls[0].array[1].ObjectAs<Recordset>(), rs2);
  EXPECT_TRUE(calls[0].array[2].IsNothing());
}

TEST_F(StandardObjectsTest, SavingWithoutARecordIsAClearFailure) {
  UIO0000400 unread;
  unread.SetUI(adapter_);
  auto status = unread.Save(nullptr, nullptr);
  EXPECT_NE(status.Number, 0);
  EXPECT_FALSE(status.Text.empty());
  EXPECT_TRUE(BusinessLines().empty());
}

TEST_F(StandardObjectsTest, AnObjectWithoutABusinessObjectFailsClearlyInsteadOfCrashing) {
  UIO0000400 orphan;
  orphan.SetOIDR("O00004001");
  auto status = orphan.Read();
  EXPECT_NE(status.Number, 0);
  EXPECT_NE(status.Text.find("O00004001"), std::string::npos) << status.Text;
  EXPECT_EQ(orphan.RsFields(), nullptr);
  EXPECT_EQ(orphan.Preview(), "");
}

TEST_F(StandardObjectsTest, AListRequestMayCarryItsOwnArgumentString) {
  auto rs = adapter_->GetOrvelObjectList("'','metr'", "", "");
  ASSERT_NE(rs, nullptr);
  EXPECT_EQ(rs->RecordCount(), 1);
  EXPECT_EQ(rs->Fields("OIDR").Value(), Variant("O00004002"));
  EXPECT_EQ(BusinessLines(), std::vector<std::string>{"GetCall Orvel_GetObjectList '','metr'"});
}

TEST_F(StandardObjectsTest, TheStandardTypeObjectPlacesOnTheDesktopThroughTheObjectManager) {
  auto standard = std::make_shared<StandardObjectUI>();
  standard->SetOID("O0000400");
  EXPECT_TRUE(standard->AddToDeskTopOrvelObject("O00004001"));
  EXPECT_EQ(host_.Log().Lines(Channel::Host), std::vector<std::string>{"AddToDesktop O00004001"});
  EXPECT_EQ(standard->OName(), "Atsargų matavimo vienetai");
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
  EXPECT_EQ(result.Number, 0);
  EXPECT_NE(result.Value.ObjectAs<Recordset>(), nullptr);
  object->Properties("History", "'O00004001',5");

  BO("O0000400").ReplyRead("GetBroken", OrvelBoResult(42, "Sugedo"));
  result = object->Properties("Broken", "");
  EXPECT_EQ(result.Number, 42);
  EXPECT_EQ(result.Text, "42");
  BO("O0000400").ReplyRead("GetQuiet", OrvelBoResult(-3, "Tyliai"));
  result = object->Properties("Quiet", "");
  EXPECT_EQ(result.Number, 0);
  EXPECT_TRUE(result.Value.IsEmpty());

  Variant::Array params{Variant("'O00004001',1")};
  EXPECT_EQ(object->Methods("Recalculate", params).Number, 0);
  Variant::Array none;
  EXPECT_EQ(object->Methods("Touch", none).Number, 0);

  EXPECT_EQ(BusinessLines(), (std::vector<std::string>{
                                 "GetCall GetHistory O00004001",
                                 "GetCall GetHistory 'O00004001',5",
                                 "GetCall GetBroken O00004001",
                                 "GetCall GetQuiet O00004001",
                                 "ExecCall Recalculate 'O00004001',1",
                                 "ExecCall Touch",
                             }));
}

TEST_F(StandardObjectsTest, EachStandardInstanceHasItsOwnGuid) {
  StandardObjectUIO a, b;
  EXPECT_EQ(a.GetGUID().size(), 38u);
  EXPECT_NE(a.GetGUID(), b.GetGUID());
}

}  // namespace
}  // namespace orvel
