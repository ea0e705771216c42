// A good's detail lists as the goods card asks for them: the good's OIDR,
// bare; each answer with the fields its list reads.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "CatalogueCallsFixture.h"
#include "bizlayer/SchemaParts.h"

namespace orvel {
namespace {

using ::testing::ElementsAre;

// Group 1 "Kanceliarija" holds good 2 "Popierius"; good 3 stands alone.
class GoodsDetailCallsTest : public CatalogueCallsFixture, public ::testing::Test {
 protected:
  GoodsDetailCallsTest() {
    ReferenceBookSchema().create(*db_);
    GoodsDetailSchema().create(*db_);
    Insert("INSERT INTO measures (Name, Code) VALUES ('vienetas', 'vnt.'), ('dėžė', 'dėž.')", {});
    const char* good =
        "INSERT INTO goods (Name, ParentID, GroupFlag, MeasureID, WithRest, Active)"
        " VALUES (?, ?, ?, 1, 1, 1)";
    Insert(good, {"Kanceliarija", Variant::Null(), 1});
    Insert(good, {"Popierius", 1, 0});
    Insert(good, {"Klijai", Variant::Null(), 0});
    Insert(
        "INSERT INTO goods_measures (GoodID, MeasureID, Price, Scale, Scale2)"
        " VALUES (2, 2, 55.5, 10, 0.1)",
        {});
    Insert(
        "INSERT INTO book_locations (Code, Name, ParentID, GroupFlag) VALUES ('C', 'Centrinis',"
        " NULL, 0)",
        {});
    Insert("INSERT INTO goods_min_amounts (GoodID, LocationID, MinAmount) VALUES (2, 1, 5)", {});
    Insert(
        "INSERT INTO goods_discounts (GoodID, DiscountTypeName, VariantName, SumFrom, SumTo,"
        " Percent, Valid) VALUES (2, 'Didmena', 'Nuo kiekio', 100, 0, 5, 1),"
        " (1, 'Akcija', NULL, NULL, NULL, 3, 0)",
        {});
    Insert("INSERT INTO br_template_types (ID, Name) VALUES (1, 'Pirkimas'), (2, 'Pardavimas')",
           {});
    Insert("INSERT INTO br_templates (Name) VALUES ('Prekės'), ('Paslaugos')", {});
    Insert(
        "INSERT INTO goods_templates (GoodID, GoodBRTemplateTypeID, BRTemplateID)"
        " VALUES (2, 1, 1), (1, 2, 2)",
        {});
  }
};

TEST_F(GoodsDetailCallsTest, TemplatesOfTheGroupAreInheritedWithoutARecord) {
  auto rs = Read("O0000200", "GetGoodBRTemplates", "O00002002");
  EXPECT_THAT(Column(*rs, "GoodBRTemplateTypeName"), ElementsAre("Pardavimas", "Pirkimas"));
  EXPECT_THAT(Column(*rs, "GoodBRTemplateTypeOIDR"), ElementsAre("O00008002", "O00008001"));
  EXPECT_THAT(Column(*rs, "OIDR"), ElementsAre("", "O00008001"));
  EXPECT_THAT(Column(*rs, "ID"), ElementsAre("", "1"));
  EXPECT_THAT(Column(*rs, "ID2"), ElementsAre("2", ""));
  EXPECT_THAT(Column(*rs, "BRTemplateName"), ElementsAre("Paslaugos", "Prekės"));
}

TEST_F(GoodsDetailCallsTest, DiscountsOfTheGroupFollowTheGoodsOwn) {
  auto rs = Read("O0000200", "GetDiscounts", "O00002002");
  EXPECT_THAT(Column(*rs, "OIDR"), ElementsAre("O10006001", "O10006002"));
  EXPECT_THAT(Column(*rs, "GoodName"), ElementsAre("", "Kanceliarija"));
  EXPECT_THAT(Column(*rs, "Valid"), ElementsAre("True", "False"));
  EXPECT_THAT(Column(*rs, "Percent"), ElementsAre("5", "3"));
}

TEST_F(GoodsDetailCallsTest, AGoodWithoutDetailsGetsEmptyLists) {
  for (const char* call : {"GetMeasures", "GetMinAmount", "GetGoodBRTemplates", "GetDiscounts"}) {
    EXPECT_EQ(Read("O0000200", call, "O00002003")->RecordCount(), 0) << call;
  }
}

}  // namespace
}  // namespace orvel
