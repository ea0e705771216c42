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

class GoodsDetailReadTest : public GoodsDetailCallsTest,
                            public ::testing::WithParamInterface<ReadCase> {};

TEST_P(GoodsDetailReadTest, AnswersTheRowsInOrder) { ExpectRead("O0000200", GetParam()); }

INSTANTIATE_TEST_SUITE_P(
    Goods, GoodsDetailReadTest,
    ::testing::Values(
        // The group's templates are inherited without a record of the good's.
        ReadCase{"GetGoodBRTemplates", "O00002002",
                 {{"GoodBRTemplateTypeName", {"Pardavimas", "Pirkimas"}},
                  {"GoodBRTemplateTypeOIDR", {"O00008002", "O00008001"}}, {"OIDR", {"", "O00008001"}},
                  {"ID", {"", "1"}}, {"ID2", {"2", ""}}, {"BRTemplateName", {"Paslaugos", "Prekės"}}}},
        // The group's discounts follow the good's own.
        ReadCase{"GetDiscounts", "O00002002",
                 {{"OIDR", {"O10006001", "O10006002"}}, {"GoodName", {"", "Kanceliarija"}},
                  {"Valid", {"True", "False"}}, {"Percent", {"5", "3"}}}},
        // A good without details gets empty lists.
        ReadCase{"GetMeasures", "O00002003", {{"OIDR", {}}}},
        ReadCase{"GetMinAmount", "O00002003", {{"OIDR", {}}}},
        ReadCase{"GetGoodBRTemplates", "O00002003", {{"OIDR", {}}}},
        ReadCase{"GetDiscounts", "O00002003", {{"OIDR", {}}}}));

}  // namespace
}  // namespace orvel
