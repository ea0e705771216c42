#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "CatalogueCallsFixture.h"
#include "host/MemoryRecordset.h"

namespace orvel {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;

class TableBusinessObjectTest : public CatalogueCallsFixture, public ::testing::Test {
 protected:
  std::shared_ptr<Recordset> Record(const std::string& oidr) {
    return Read(oidr.substr(0, 8), "Orvel_ReadObject", "'" + oidr + "'");
  }

  int Count(const std::string& table) { return CLng(One("SELECT COUNT(*) FROM " + table)); }
};

// A grouped record names the groups above it, top first, each followed by
// "\\"; the card shows that path before its group's name.
TEST_F(TableBusinessObjectTest, AGroupedRecordCarriesThePathOfItsGroups) {
  const std::string top =
      Made("O0000100", {{"Name", Variant("Tiekėjai")}, {"GroupFlag", Variant(1)}});
  const std::string sub = Made("O0000100", {{"Name", Variant("O'Brien grupė")},
                                              {"GroupFlag", Variant(1)},
                                              {"ParentID", Variant(std::stoi(top.substr(8)))}});
  const std::string firm = Made(
      "O0000100", {{"Name", Variant("UAB Alfa")}, {"ParentID", Variant(std::stoi(sub.substr(8)))}});
  EXPECT_EQ(ConcatText(Record(firm)->Fields("PreviewPath").Value()), "Tiekėjai\\O'Brien grupė\\");
  EXPECT_EQ(ConcatText(Record(sub)->Fields("PreviewPath").Value()), "Tiekėjai\\");
  EXPECT_EQ(ConcatText(Record(top)->Fields("PreviewPath").Value()), "");
  // A catalogue without groups has no path.
  const std::string bank = Made("O0000300", {{"Name", Variant("AB SEB bankas")}});
  EXPECT_FALSE(Record(bank)->Fields().Exists("PreviewPath"));
}

TEST_F(TableBusinessObjectTest, AFailedSaveLeavesTheTableAsItWas) {
  Made("O0000300", {{"Name", Variant("AB SEB bankas")}});
  auto rs = Record("O00003001");
  rs->Fields("Name").SetValue(Variant("Pakeistas"));
  rs->Fields("Code").SetValue(Variant(std::make_shared<MemoryRecordset>()));  // cannot be stored
  Variant::Array array{Variant(rs)};
  auto status = Type("O0000300").ExecArrayCall("Orvel_SaveObject", "'O0000300','O00003001'", array);
  EXPECT_EQ(status.Number, TableBusinessObject::kDatabaseError);
  EXPECT_EQ(Record("O00003001")->Fields("Name").Value(), Variant("AB SEB bankas"));

  Variant::Array empty;
  status = Type("O0000300").ExecArrayCall("Orvel_SaveObject", "'O0000300',''", empty);
  EXPECT_NE(status.Number, 0);
  EXPECT_EQ(Count("banks"), 1);
  auto unknown = Type("O0000300").GetCall("GetNothing", "", 0);
  EXPECT_EQ(unknown.Number, 5);
  EXPECT_EQ(unknown.Text, "O0000300 neturi skaitymo kvietimo GetNothing");
}

// The card's fields and their captions, also asked by the type's OID alone.
TEST_F(TableBusinessObjectTest, StructureComesFromTheFieldDescriptions) {
  auto reply = Type("O0000300").RecordsetCall("Orvel_GetObjectStructure", "Banks", 0);
  ASSERT_EQ(reply.Number, 0) << reply.Text;
  auto rs = std::dynamic_pointer_cast<Recordset>(reply.Object);
  EXPECT_THAT(Lines(*rs, {"Name", "Caption", "xType", "Visible"}),
              ElementsAre("ID|ID|56|0", "Name|Pavadinimas|231|1", "Code|Banko kodas|231|1",
                          "SWIFT|SWIFT kodas|231|1", "Address|Adresas|231|1",
                          "CreatedByUser|Sukūrė|231|0", "CreationDate|Sukurta|61|0",
                          "UpdatedByUser|Pakeitė|231|0", "UpdateDate|Pakeista|61|0"));
  auto byOid = layer_.ServiceCall("Orvel_GetObjectStructureByOID", "O0000300");
  EXPECT_EQ(byOid.Number, 0);
  EXPECT_THAT(Column(*byOid.Value.ObjectAs<Recordset>(), "Name"), Contains("SWIFT"));
}

TEST_F(TableBusinessObjectTest, BankFirmsAreTheFirmsWithItsAccount) {
  Made("O0000300", {{"Name", Variant("AB Šiaulių bankas")}});
  Made("O0000100", {{"Name", Variant("UAB „Gintaro prekyba“")}, {"BankID", Variant(1)}});
  Made("O0000100", {{"Name", Variant("AB „Lino baldai“")}});
  auto reply = Type("O0000300").GetCall("GetFirms", "O00003001", 0);
  ASSERT_EQ(reply.Number, 0) << reply.Text;
  auto rs = std::dynamic_pointer_cast<Recordset>(reply.Object);
  ASSERT_EQ(rs->RecordCount(), 1);
  EXPECT_EQ(rs->Fields("OIDR").Value(), Variant("O00001001"));
}

}  // namespace
}  // namespace orvel
