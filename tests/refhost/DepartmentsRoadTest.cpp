#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "RunningHost.h"
#include "host/Convert.h"
#include "orvel/OrvelObjectUI.h"
#include "orvel/Recordset.h"
#include "ui/TextBox.h"

namespace orvel {
namespace {

using ::testing::Contains;

// The sample departments: "Buhalterija" (3) is linked to a firm branch. The
// sample destinations: "Didmeninė prekyba" (2) under "Pardavimai" (1).
class DepartmentsRoadTest : public RunningHost {
 protected:
  // The first row of GetBRTemplates of a destination, as "type|ID|template".
  std::string FirstTemplate(OrvelObjectUIO& object) {
    auto rs = object.Properties("BRTemplates", object.OIDR()).Value.ObjectAs<Recordset>();
    if (!rs || rs->RecordCount() == 0) return "none";
    rs->MoveFirst();
    return ConcatText(rs->Fields("TemplateTypeOIDR").Value()) + "|" +
           ConcatText(rs->Fields("ID").Value()) + "|" +
           ConcatText(rs->Fields("BRTemplateOIDR").Value());
  }
};

TEST_F(DepartmentsRoadTest, ADepartmentIsWrittenWithoutItsBranchReReadAndDeleted) {
  const char* stored = "SELECT Name || '|' || COALESCE(FirmBranchID, 'none') FROM book_departments"
                       " WHERE ID = 3";
  const std::string before = StoredText(stored);
  auto card = OpenCard("O00016043", "T");
  ASSERT_NE(card, nullptr);
  EXPECT_THAT(calls_, Contains("RecordsetCall DO0001604_GetFirmBranches 0"));
  EXPECT_EQ(Control<TextBox>(*card, "txtName").Text() + "|" +
                Control<TextBox>(*card, "txtFirmBranch").Tag() + "|" +
                Control<TextBox>(*card, "txtGroup").Text(),
            before + "|Administracija");

  Control<TextBox>(*card, "txtName").Edit(" Buhalterija ir kasa ");
  Press(*card, "cmdCleanFirmBranch");
  Press(*card, "cmdWrite");
  EXPECT_EQ(StoredText(stored), "Buhalterija ir kasa|none");
  auto reread = host_.Objects().GetOrvelObject("O00016043");
  ASSERT_NE(reread, nullptr);
  EXPECT_EQ(reread->Preview(), "Buhalterija ir kasa");
  EXPECT_EQ(host_.Objects().GetOrvelObjectUI("O0001604")->DeleteOrvelObject("O00016043"), 0);
  EXPECT_EQ(CLng(Stored("SELECT COUNT(*) FROM book_departments WHERE ID = 3")), 0);
}

// The branch picker of the host lists the firm branches by name; the pick
// is written, a cancelled pick changes nothing.
TEST_F(DepartmentsRoadTest, ABranchIsPickedInTheHostsPickerAndWritten) {
  auto card = OpenCard("O00016043", "T");
  ASSERT_NE(card, nullptr);
  const std::string before = Control<TextBox>(*card, "txtFirmBranch").Tag();
  Press(*card, "cmdFirmBranches");  // no answer: cancelled
  EXPECT_EQ(Control<TextBox>(*card, "txtFirmBranch").Tag(), before);

  const std::string last =
      " FROM firm_branches b JOIN firms f ON f.ID = b.FirmID ORDER BY b.ID DESC LIMIT 1";
  const Variant id = Stored("SELECT b.ID" + last);
  prompter_.answers = {StoredText("SELECT f.Name || ', ' || b.Name" + last)};
  Press(*card, "cmdFirmBranches");
  EXPECT_THAT(calls_, Contains("RecordsetCall DO0001604_GetFirmBranches 0"));
  Press(*card, "cmdWrite");
  EXPECT_EQ(CLng(Stored("SELECT FirmBranchID FROM book_departments WHERE ID = 3")), CLng(id));
}

TEST_F(DepartmentsRoadTest, ADestinationTakesATemplateOfItsOwnAndGivesItBack) {
  auto card = OpenCard("O00016152", "T");
  ASSERT_NE(card, nullptr);
  EXPECT_THAT(calls_, Contains("GetCall GetBRTemplates O00016152"));
  auto object = std::dynamic_pointer_cast<OrvelWindow>(card)->OrvelObjectUIO();
  ASSERT_NE(object, nullptr);
  // The sales template comes from the group.
  EXPECT_EQ(FirstTemplate(*object), "O02015001||O02016001");

  Variant::Array add{Variant("'O00016152','O02015001','O02016002','',0")};
  EXPECT_EQ(object->Methods("SaveUpdateDeleteTemplates", add).Number, 0);
  const auto id = StoredText("SELECT ID FROM destination_templates WHERE DestinationID = 2"
                             " AND BRTemplateID = 2");
  ASSERT_FALSE(id.empty());
  EXPECT_EQ(FirstTemplate(*object), "O02015001|" + id + "|O02016002");

  Variant::Array remove{Variant("'O00016152','O02015001','',''," + id)};
  EXPECT_EQ(object->Methods("SaveUpdateDeleteTemplates", remove).Number, 0);
  EXPECT_EQ(FirstTemplate(*object), "O02015001||O02016001");
}

}  // namespace
}  // namespace orvel
