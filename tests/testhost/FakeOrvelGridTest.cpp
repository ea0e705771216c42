#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "host/MemoryRecordset.h"
#include "orvel/RuntimeError.h"
#include "testhost/FakeOrvelGrid.h"
#include "support/StubObjectUIO.h"

namespace orvel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// An object with one record of two fields, whose Structure and Save replies
// are scripted and whose calls are kept.
class RecordObjectUIO : public StubObjectUIO {
 public:
  RecordObjectUIO() : StubObjectUIO("O00003005") {
    record_->AddRow({Variant("SEB"), Variant("CBVILT2X")});
    record_->MoveFirst();
  }
  std::shared_ptr<Recordset> RsFields() override { return record_; }
  using OrvelObjectUIO::Properties;
  OrvelResult Properties(const std::string& name, std::string& par) override {
    calls.push_back("Properties " + name + " '" + par + "'");
    return {0, "", Variant("Banks")};
  }
  OrvelStatus Save(const std::shared_ptr<Recordset>& rs2,
                   const std::shared_ptr<Recordset>& rs3) override {
    calls.push_back(std::string("Save ") + (rs2 || rs3 ? "with sets" : "alone") +
                    " Name=" + record_->Fields("Name").Value().String());
    if (throwOnSave) throw RuntimeError(RuntimeError::kTypeMismatch, "Type mismatch");
    return saveReply;
  }

  std::shared_ptr<MemoryRecordset> record_ =
      std::make_shared<MemoryRecordset>(std::vector<std::string>{"Name", "SWIFT"});
  OrvelStatus saveReply;
  bool throwOnSave = false;
  std::vector<std::string> calls;
};

class FakeOrvelGridTest : public ::testing::Test {
 protected:
  FakeOrvelGridTest() {
    grid.SetObjectUIO(object);
    grid.OnFieldChanged = [this] { ++fieldChanges; };
  }
  std::vector<std::string> FieldNames() const {
    std::vector<std::string> names;
    for (const auto& field : grid.Fields()) names.push_back(field.name);
    return names;
  }
  std::shared_ptr<RecordObjectUIO> object = std::make_shared<RecordObjectUIO>();
  FakeOrvelGrid grid;
  int fieldChanges = 0;
};

TEST_F(FakeOrvelGridTest, Tabs_KeptInOrderWithTheirLists_UntilClearTabs) {
  ListView& firms = grid.AddTab("Firms", "Įmonės");
  grid.AddTab("Accounts", "Sąskaitos");
  firms.ListItems().Add(0, "O00001001", "UAB Ąžuolas");
  grid.SetLabelWidth(2000);
  ASSERT_EQ(grid.Tabs().size(), 2u);
  EXPECT_EQ(grid.Tabs()[0].caption, "Įmonės");
  EXPECT_EQ(&grid.TabList("Firms"), &firms);  // the list stays where the form keeps it
  EXPECT_EQ(grid.TabList("Firms").ListItems().Count(), 1);
  grid.FillFields();
  EXPECT_THAT(object->calls, ElementsAre("Properties Structure ''"));
  EXPECT_THAT(FieldNames(), ElementsAre("Name", "SWIFT"));
  grid.ClearTabs();
  EXPECT_TRUE(grid.Tabs().empty());
  EXPECT_THAT(FieldNames(), IsEmpty());
  EXPECT_THROW(grid.TabList("Firms"), RuntimeError);
  EXPECT_THAT(grid.Operations(),
              ElementsAre("SetObjectUIO", "AddTab Firms Įmonės", "AddTab Accounts Sąskaitos",
                          "SetLabelWidth 2000", "FillFields", "ClearTabs"));
}

// The user: an edit is written at once, a typed cell when the user leaves it
// (EndFieldEdit) or saves.
TEST_F(FakeOrvelGridTest, EditsAreWrittenAndTypedCellsCommittedBeforeTheSave) {
  EXPECT_TRUE(grid.EditField("Name", Variant("Swedbank")));
  EXPECT_EQ(fieldChanges, 1);
  EXPECT_THROW(grid.EditField("Nėra", Variant(1)), RuntimeError);
  grid.TypeIntoField("SWIFT", Variant("HABALT22"));
  grid.EndFieldEdit();
  EXPECT_EQ(object->record_->Fields("SWIFT").Value(), Variant("HABALT22"));
  grid.TypeIntoField("Name", Variant("Luminor"));
  EXPECT_EQ(object->record_->Fields("Name").Value(), Variant("Swedbank"));
  EXPECT_EQ(grid.SaveObject(), 0);
  EXPECT_THAT(object->calls, ElementsAre("Save alone Name=Luminor"));
  EXPECT_EQ(fieldChanges, 3);
  EXPECT_FALSE(grid.HasPendingEdit());
}

// A refused or throwing save: the Number is the result, the text kept until
// the next save.
TEST_F(FakeOrvelGridTest, SaveObject_ReturnsTheNumber_KeepsTheText_NoObjectFails) {
  object->saveReply = {60000, "Įrašą pakeitė kitas vartotojas"};
  EXPECT_EQ(grid.SaveObject(), 60000);
  EXPECT_EQ(grid.LastError(), "Įrašą pakeitė kitas vartotojas");
  object->throwOnSave = true;
  EXPECT_EQ(grid.SaveObject(), 13);
  EXPECT_EQ(grid.LastError(), "Type mismatch");
  EXPECT_EQ(grid.Operations().back(), "SaveObject");
  object->saveReply = {};
  object->throwOnSave = false;
  EXPECT_EQ(grid.SaveObject(), 0);
  EXPECT_EQ(grid.LastError(), "");
  // Without an object both fail quietly.
  FakeOrvelGrid bare;
  bare.FillFields();
  EXPECT_EQ(bare.LastError(), "Laukų lapui nepriskirtas objektas");
  EXPECT_EQ(bare.SaveObject(), FakeOrvelGrid::kNoObject);
  EXPECT_EQ(bare.LastError(), "Laukų lapui nepriskirtas objektas");
}

// List events carry the tab's key and index; a disabled grid takes no edit
// and raises nothing.
TEST_F(FakeOrvelGridTest, ListEvents_CarryTheTabKeyAndIndex_NoneWhenDisabled) {
  grid.AddTab("Firms", "Įmonės");
  grid.AddTab("Accounts", "Sąskaitos");
  std::vector<std::string> seen;
  grid.OnListMouseUp = [&](const std::string& key, int index, int button, int shift) {
    seen.push_back(key + " " + std::to_string(index) + " " + std::to_string(button) + " " +
                   std::to_string(shift));
  };
  grid.OnListDoubleClick = [&](int index) { seen.push_back("dbl " + std::to_string(index)); };
  grid.OnListDragOver = [](std::shared_ptr<Object>, int& effect) { effect = 0; };
  grid.ClickList(1, 2, 1);
  grid.DoubleClickList(0);
  EXPECT_EQ(grid.ListDragOver(nullptr, 1), 0);
  EXPECT_THROW(grid.ClickList(2, 1), RuntimeError);
  grid.SetEnabled(false);
  EXPECT_FALSE(grid.EditField("Name", Variant("x")));
  grid.ClickList(0, 2);
  EXPECT_EQ(object->record_->Fields("Name").Value(), Variant("SEB"));
  EXPECT_EQ(fieldChanges, 0);
  EXPECT_THAT(seen, ElementsAre("Accounts 1 2 1", "dbl 0"));
}

}  // namespace
}  // namespace orvel
