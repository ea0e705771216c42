#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "RunningHost.h"
#include "host/Convert.h"
#include "orvel/OrvelObjectUI.h"
#include "hostkit/TextDragData.h"

namespace orvel {
namespace {

using ::testing::Contains;

// A good of the sample database through the real module: its card opens
// with its lists filled from the database, an edit is written and read back,
// and the good is deleted.
class GoodsRoadTest : public RunningHost {
 protected:
  // The first good with prices, as "O0000200<ID>".
  std::string PricedGood() {
    return "O0000200" + ConcatText(Stored("SELECT MIN(GoodID) FROM goods_prices"));
  }
};

TEST_F(GoodsRoadTest, AGoodOpensWithItsListsAndAnEditIsWrittenAndReadBack) {
  const std::string oidr = PricedGood();
  const std::string id = oidr.substr(8);
  auto card = OpenSheet(oidr);
  ASSERT_NE(card, nullptr);
  EXPECT_EQ(sheet_->Text("Name"), StoredText("SELECT Name FROM goods WHERE ID = " + id));
  EXPECT_THAT(calls_, Contains("GetCall GetPrices " + oidr));

  // The prices tab shows each price's type, currency and amount.
  ListView* prices = sheet_->TabList("PRICES");
  ASSERT_TRUE(prices && prices->ListItems().Count() > 0);
  const ListItem& first = prices->ListItems().Item(1);
  EXPECT_FALSE(first.Text().empty());
  EXPECT_EQ(first.Key().substr(0, 8) + "|" + first.ListSubItems().Item(1).Text(), "O0000600|EUR");

  Write(card, {{"Name", "Sūris 'Džiugas', 24 mėn."}});
  EXPECT_EQ(Stored("SELECT Name FROM goods WHERE ID = " + id), Variant("Sūris 'Džiugas', 24 mėn."));
  EXPECT_THAT(calls_, Contains("ExecArrayCall Orvel_SaveObject 'O0000200','" + oidr + "'"));

  auto reread = host_.Objects().GetOrvelObject(oidr);
  ASSERT_NE(reread, nullptr);
  EXPECT_EQ(reread->Fields("Name").Value(), Variant("Sūris 'Džiugas', 24 mėn."));
}

// A good dropped on another group's card moves into that group, which the
// card's list then shows; the drop reads the record's place in the tree.
TEST_F(GoodsRoadTest, AGoodDroppedOnAGroupsCardMovesIntoIt) {
  const std::string good = StoredText(
      "SELECT MIN(ID) FROM goods WHERE GroupFlag = 0 AND ParentID = (SELECT MIN(ID) FROM goods"
      " WHERE GroupFlag = 1)");
  const std::string group =
      StoredText("SELECT MAX(ID) FROM goods WHERE GroupFlag = 1 AND ID <> (SELECT ParentID FROM"
                 " goods WHERE ID = " + good + ")");
  ASSERT_NE(OpenSheet("O0000200" + group, "Group"), nullptr);
  EXPECT_NE(sheet_->ListDragOver(std::make_shared<TextDragData>("O0000200" + good), 1), 0);
  sheet_->ListDragDrop(std::make_shared<TextDragData>("O0000200" + good));
  EXPECT_EQ(StoredText("SELECT ParentID FROM goods WHERE ID = " + good), group);
  EXPECT_THAT(calls_, Contains("ExecArrayCall Orvel_SaveObject 'O0000200','O0000200" + good + "'"));
  ListView* goods = sheet_->TabList("Goods");
  EXPECT_TRUE(goods && goods->ListItems().Find("O0000200" + good));
  EXPECT_TRUE(prompter_.said.empty() ||
              prompter_.said.back().find("Klaida") == std::string::npos);
}

// A good made from a group's menu takes the group's VAT rate, and the rate
// is in force when written; used in no document, it is deleted.
TEST_F(GoodsRoadTest, ANewGoodInAGroupTakesItsVatRateAndIsDeleted) {
  const std::string group = StoredText("SELECT MIN(ID) FROM goods WHERE GroupFlag = 1");
  host_.Database().Exec("UPDATE goods SET VAT = 9 WHERE ID = " + group);
  auto card = OpenSheet("O0000200" + group, "Group", "1");
  ASSERT_NE(card, nullptr);
  Write(card, {{"Name", "Arbata juodoji"}});
  EXPECT_THAT(calls_, Contains("GetCall Orvel_NewObject 'O0000200'"));
  EXPECT_EQ(StoredText("SELECT ParentID || '|' || VAT || '|' || VatRate FROM goods"
                       " WHERE Name = 'Arbata juodoji'"),
            group + "|9|9.0");

  // Used in no document, the good is deleted.
  const std::string oidr =
      "O0000200" + StoredText("SELECT ID FROM goods WHERE Name = 'Arbata juodoji'");
  EXPECT_EQ(host_.Objects().GetOrvelObjectUI("O0000200")->DeleteOrvelObject(oidr), 0);
  EXPECT_EQ(Stored("SELECT COUNT(*) FROM goods WHERE Name = 'Arbata juodoji'"), Variant(0));
  EXPECT_THAT(calls_, Contains("ExecCall Orvel_DeleteObject '" + oidr + "'"));
}

}  // namespace
}  // namespace orvel
