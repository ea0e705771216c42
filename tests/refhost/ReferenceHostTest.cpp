#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "RunningHost.h"
#include "orvel/OrvelObjectUI.h"
#include "orvel/Recordset.h"
#include "hostkit/ComponentRegistry.h"
#include "refhost/ModuleLibrary.h"

namespace orvel {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;

using ReferenceHostTest = RunningHost;

TEST(ModuleLibrary, AModuleOfAnotherVersionIsRefusedNamingBoth) {
  ModuleLibrary library(ORVEL_MODULE_PATH, "1.1.0");
  EXPECT_THAT(library.Error(),
              ::testing::EndsWith(std::string(": modulio versija ") + kVersion +
                                  " netinka šeimininkui, sukurtam 1.1.0 versijai"));
}

TEST_F(ReferenceHostTest, RegistersTheCatalogueAndListsTheBanks) {
  const auto& catalogue = host_.Catalogue();
  ASSERT_FALSE(catalogue.groups.empty());
  EXPECT_EQ(catalogue.groups[0].components[1].caption, "Bankai");
  // The layer tells the list from its start to its whole count.
  std::vector<std::string> told;
  host_.Layer().SetFillObserver([&told](int64_t rows, bool done) {
    told.push_back(std::to_string(rows) + (done ? "." : ""));
  });
  auto rs = host_.Objects().GetOrvelObjectUI("O0000300")->GetOrvelObjectList("O0000300", "", "");
  ASSERT_NE(rs, nullptr);
  EXPECT_EQ(rs->RecordCount(), 6);
  EXPECT_THAT(calls_, ElementsAre("GetCall Orvel_GetObjectList 'O0000300'"));
  EXPECT_THAT(told, ElementsAre("0", "6."));
}

TEST_F(ReferenceHostTest, ABankIsEditedWrittenAndReadBackFromTheDatabase) {
  auto card = OpenSheet("O00003003");
  ASSERT_NE(card, nullptr);
  EXPECT_EQ(sheet_->Text("Name"), "AB Šiaulių bankas");
  Write(card, {{"SWIFT", "CBSBLT26XXX"}});
  EXPECT_EQ(Stored("SELECT SWIFT FROM banks WHERE ID = 3"), Variant("CBSBLT26XXX"));
  EXPECT_EQ(Stored("SELECT UpdatedByUser FROM banks WHERE ID = 3"), Variant("admin"));
  EXPECT_THAT(calls_, Contains("ExecArrayCall Orvel_SaveObject 'O0000300','O00003003'"));
  EXPECT_THAT(calls_, Contains("GetCall GetFirms O00003003"));
}

TEST_F(ReferenceHostTest, DeletingARecordAsksAndRemovesItsRow) {
  auto banks = host_.Objects().GetOrvelObjectUI("O0000300");
  prompter_.answers = {"Gerai"};
  EXPECT_EQ(banks->ClickMenu("O00003006", "C", "6", "").Action, OrvelMenuResult::kRemoved);
  EXPECT_EQ(Stored("SELECT COUNT(*) FROM banks WHERE ID = 6"), Variant(0));
}

TEST_F(ReferenceHostTest, AReferenceBookRecordIsEditedOnItsCard) {
  auto root = host_.Objects().GetOrvelObjectUI("O0001600");
  ASSERT_NE(root, nullptr);
  auto books = root->GetOrvelObjectList("O0001600", "", "");
  ASSERT_NE(books, nullptr);
  EXPECT_EQ(books->RecordCount(), 6);

  auto card = OpenSheet("O00016053", "T");
  ASSERT_NE(card, nullptr);
  EXPECT_EQ(sheet_->Text("Name"), "Parduotuvės");
  Write(card, {{"Name", "Parduotuvės ir kioskai"}});
  EXPECT_EQ(Stored("SELECT Name FROM book_locations WHERE ID = 3"),
            Variant("Parduotuvės ir kioskai"));
  EXPECT_THAT(calls_, Contains("GetCall GetStructure "));
}

}  // namespace
}  // namespace orvel
