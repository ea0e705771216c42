#include <gtest/gtest.h>

#include "CatalogueCallsFixture.h"
#include "bizlayer/SchemaParts.h"

namespace orvel {
namespace {

constexpr const char* kDestinations = "O0001615";

// Destinations: group "Pardavimai" (1) with member "Didmeninė" (2), and
// "Vidaus" (3) at the top. Two template types, two templates, one document
// group; the group has a sales template for invoices, which its member
// inherits.
class DepartmentCallsTest : public CatalogueCallsFixture, public ::testing::Test {
 protected:
  DepartmentCallsTest() {
    ReferenceBookSchema().create(*db_);
    db_->Exec(
        "INSERT INTO book_destinations (Name, ParentID, GroupFlag) VALUES ('Pardavimai', 0, 1),"
        " ('Didmeninė', 1, 0), ('Vidaus', 0, 0);"
        "INSERT INTO br_template_types (ID, Name) VALUES (1, 'Pardavimo'), (2, 'Pirkimo');"
        "INSERT INTO br_templates (Name) VALUES ('Prekių pardavimas'), ('Prekių pirkimas');"
        "INSERT INTO document_groups (Name) VALUES ('Sąskaitos');"
        "INSERT INTO destination_templates (DestinationID, TemplateTypeID, BRTemplateID,"
        " DocumentGroupID) VALUES (1, 1, 1, 1);");
  }

  OrvelStatus Save(const std::string& param) {
    return Type(kDestinations).ExecCall("SaveUpdateDeleteTemplates", param, 0);
  }

  // Every attached row as "destination:type:template:group", a space between.
  std::string Attached() {
    return Text(One("SELECT group_concat(r, ' ') FROM (SELECT DestinationID || ':' ||"
                    " TemplateTypeID || ':' || BRTemplateID || ':' || COALESCE(DocumentGroupID, '')"
                    " AS r FROM destination_templates ORDER BY ID)"));
  }

  // Each row of GetBRTemplates as "type|ID|ID2|template|templateOIDR|group|groupOIDR".
  std::vector<std::string> Rows(const std::string& oidr) {
    auto rs = Read(kDestinations, "GetBRTemplates", oidr);
    if (!rs) return {};
    return Lines(*rs, {"TemplateTypeOIDR", "ID", "ID2", "BRTemplateName", "BRTemplateOIDR",
                       "DocumentGroupName", "DocumentGroupOIDR"});
  }

};

// A member inherits its group's template and shows the types without one; a
// new record has only empty rows and cannot take templates.
TEST_F(DepartmentCallsTest, AMemberInheritsItsGroupsTemplateAndANewRecordHasNone) {
  EXPECT_EQ(Rows("O00016152"), (std::vector<std::string>{
                                   "O02015001||1|Prekių pardavimas|O02016001|Sąskaitos|O10002001",
                                   "O02015002||||||"}));
  EXPECT_EQ(Rows("O00016151"), (std::vector<std::string>{
                                   "O02015001|1|1|Prekių pardavimas|O02016001|Sąskaitos|O10002001",
                                   "O02015002||||||"}));
  EXPECT_EQ(Rows(kDestinations), (std::vector<std::string>{"O02015001||||||", "O02015002||||||"}));
  auto status = Save("'O0001615','O02015001','O02016001','',0");
  EXPECT_EQ(status.Number, 777);
  EXPECT_EQ(status.Text, "SaveUpdateDeleteTemplates: Pirmiausia įrašykite tikslą.");
}

struct SaveCase {
  const char* name;
  const char* param;
  int32_t number;
  const char* attached;
};

class SaveTemplatesTest : public DepartmentCallsTest,
                          public ::testing::WithParamInterface<SaveCase> {};

TEST_P(SaveTemplatesTest, OneMethodAddsChangesAndDeletes) {
  const auto& c = GetParam();
  auto status = Save(c.param);
  EXPECT_EQ(status.Number, c.number) << status.Text;
  EXPECT_EQ(Attached(), c.attached);
}

// What a refused call leaves: the group's one row.
constexpr const char* kKept = "1:1:1:1";

INSTANTIATE_TEST_SUITE_P(
    Params, SaveTemplatesTest,
    ::testing::ValuesIn(std::vector<SaveCase>{
        {"NewRow", "'O00016153','O02015002','O02016002','O10002001',0", 0, "1:1:1:1 3:2:2:1"},
        {"NewRowWithoutGroup", "'O00016153','O02015001','O02016001','',0", 0, "1:1:1:1 3:1:1:"},
        {"Update", "'O00016151','O02015001','O02016002','',1", 0, "1:1:2:"},
        {"Delete", "'O00016151','O02015001','','',1", 0, ""},
        {"EmptyPairOnAnInheritedRow", "'O00016152','O02015001','','',0", 0, "1:1:1:1"},
        {"GroupWithoutTemplate", "'O00016153','O02015001','','O10002001',0", 777, kKept},
        {"SameTypeAndGroupTwice", "'O00016151','O02015001','O02016002','O10002001',0", 777, kKept},
        {"RowOfAnotherDestination", "'O00016153','O02015001','','',1", 777, kKept},
        {"UnknownTemplate", "'O00016153','O02015001','O02016009','',0", 777, kKept},
        {"NotATemplateReference", "'O00016153','O02015001','O00001001','',0", 5, kKept},
        {"UnknownDestination", "'O000161599','O02015001','O02016001','',0", 3021, kKept}}),
    [](const auto& info) { return std::string(info.param.name); });

// The departments list the suite's firm branches, by firm and branch name.
TEST_F(DepartmentCallsTest, TheDepartmentsListTheSuitesFirmBranches) {
  db_->Exec("INSERT INTO firms (Name, GroupFlag) VALUES ('UAB Medis', 0);"
            "INSERT INTO firm_branches (FirmID, Name) VALUES (1, 'Vilniaus filialas'),"
            " (1, 'Kauno filialas')");
  auto reply = Type("O0001604").RecordsetCall("DO0001604_GetFirmBranches", "0", 0);
  ASSERT_EQ(reply.Number, 0) << reply.Text;
  auto rs = std::dynamic_pointer_cast<Recordset>(reply.Object);
  ASSERT_TRUE(rs);
  EXPECT_EQ(Column(*rs, "Preview"), (std::vector<std::string>{"UAB Medis, Kauno filialas",
                                                              "UAB Medis, Vilniaus filialas"}));
  EXPECT_EQ(Column(*rs, "ID"), (std::vector<std::string>{"2", "1"}));
}

}  // namespace
}  // namespace orvel
