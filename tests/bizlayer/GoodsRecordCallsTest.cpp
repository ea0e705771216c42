// A good's prices, minimum amounts and template rows as records of their own:
// opened, saved, changed and deleted through the standard object calls with
// the parameter strings the goods card's adapter sends, and seen in the
// good's detail lists.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "CatalogueCallsFixture.h"
#include "bizlayer/SchemaParts.h"

namespace orvel {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

// Good 2 "Popierius" in group 1; good 3 alone. Warehouses 1 and 3 hold
// goods, 2 is a group; two template types, two templates, two price types.
class GoodsRecordCallsTest : public CatalogueCallsFixture, public ::testing::Test {
 protected:
  GoodsRecordCallsTest() {
    ReferenceBookSchema().create(*db_);
    GoodsDetailSchema().create(*db_);
    GoodsRecordSchema().create(*db_);
    GoodsRecordCascadeSchema().create(*db_);
    GoodsMeasureSchema().create(*db_);
    db_->Exec(
        "INSERT INTO measures (Code, Name, ParentID, GroupFlag, MeasureType) VALUES"
        " ('vnt.', 'vienetas', 0, 0, 0), ('dėž.', 'dėžė', 0, 0, 0), ('pak.', 'pakuotė', 0, 0, 1);"
        "INSERT INTO goods (Name, ParentID, GroupFlag, Active, MeasureID) VALUES"
        " ('Kanceliarija', NULL, 1, 1, 1), ('Popierius', 1, 0, 1, 1), ('Klijai', NULL, 0, 1, 1);"
        "INSERT INTO book_locations (Code, Name, ParentID, GroupFlag) VALUES"
        " ('C', 'Centrinis', 0, 0), ('PA', 'Parduotuvės', 0, 1),"
        " ('A', 'Kauno ''Akropolis''', 2, 0);"
        "INSERT INTO br_template_types (ID, Name) VALUES (1, 'Pirkimas'), (2, 'Pardavimas');"
        "INSERT INTO br_templates (Name) VALUES ('Prekės'), ('Paslaugos');"
        "INSERT INTO goods_price_types (Name) VALUES ('Klientų ''VIP''')");
  }

  int Rows(const std::string& table) {
    return static_cast<int>(One("SELECT COUNT(*) FROM " + table).NumberValue());
  }
};

// ---- new, read back, changed, deleted ------------------------------------

// Prices, minimum amounts, measure and template rows are added, listed,
// changed and deleted on the road tests over the sample database.

const Variant k0(0), k1(1), k2(2), k7(7), k9(9), k99(99);

TEST_F(GoodsRecordCallsTest, ADeletedGoodTakesItsRecordsAlong) {
  for (int good : {2, 3}) {
    Made("O0000600", {{"GoodID", Variant(good)}, {"GoodPriceTypeID", Variant(1)}});
    Made("O0000700",
         {{"GoodID", Variant(good)}, {"LocationID", Variant(1)}, {"MinAmount", Variant(2)}});
    Made("O0000800", {{"GoodID", Variant(good)}, {"GoodBRTemplateTypeID", Variant(1)},
                      {"BRTemplateID", Variant(1)}});
  }
  OrvelStatus status = Type("O0000200").ExecCall("Orvel_DeleteObject", "'O00002003'", 0);
  ASSERT_EQ(status.Number, 0) << status.Text;
  for (const char* table : {"goods_prices", "goods_min_amounts", "goods_templates"}) {
    const std::string count = std::string("SELECT COUNT(*) FROM ") + table + " WHERE GoodID = ";
    EXPECT_EQ(One(count + "3").NumberValue(), 0) << table;
    EXPECT_EQ(One(count + "2").NumberValue(), 1) << table;
  }
}

// A measure row is the good's alone: a ratio left 0 is the other's inverse,
// a second row of a unit is refused, and neither deleting a row nor its good
// deletes the unit, which is not deleted while named.
TEST_F(GoodsRecordCallsTest, AMeasureRowNeverTakesItsUnitAlong) {
  const std::string row = Made("O0000400", {{"GoodID", Variant(2)}, {"MeasureID", Variant(3)},
                                            {"Scale", Variant(4)}, {"Scale2", Variant(0)}});
  ASSERT_FALSE(row.empty());
  OrvelStatus status;
  EXPECT_EQ(Text(One("SELECT Scale2 FROM goods_measures")), "0.25");
  EXPECT_EQ(Create("O0000400", {{"GoodID", Variant(2)}, {"MeasureID", Variant(3)}}, &status), "");
  EXPECT_THAT(status.Text, HasSubstr("Šis matavimo vienetas prekei jau nurodytas"));
  ASSERT_FALSE(Made("O0000400", {{"GoodID", Variant(3)}, {"MeasureID", Variant(2)}}).empty());

  // The unit's name follows into its rows; a unit in use stays.
  db_->Exec("UPDATE measures SET Name = 'pakelis' WHERE ID = 3");
  EXPECT_THAT(Column(*Read("O0000200", "GetMeasures", "O00002002"), "MeasureName"),
              ElementsAre("pakelis"));
  status = Type("O0001606").ExecCall("Orvel_DeleteObject", "'O00016063'", 0);
  EXPECT_NE(status.Number, 0);
  EXPECT_FALSE(status.Text.empty());
  auto refusal = [&](const char* sql) -> std::string {
    try {
      db_->Exec(sql);
      return "written";
    } catch (const DatabaseError& e) {
      return e.what();
    }
  };
  EXPECT_THAT(refusal("DELETE FROM measures WHERE ID = 2"),
              HasSubstr("Matavimo vienetas naudojamas prekėse"));
  EXPECT_THAT(refusal("UPDATE goods SET VAT = 121 WHERE ID = 2"),
              HasSubstr("Neteisingas PVM tarifas"));

  // The rename moved the row on since it was written: read again first.
  Read("O0000400", "Orvel_ReadObject", "'" + row + "'");
  ASSERT_EQ(Type("O0000400").ExecCall("Orvel_DeleteObject", "'" + row + "'", 0).Number, 0);
  ASSERT_EQ(Type("O0000200").ExecCall("Orvel_DeleteObject", "'O00002003'", 0).Number, 0);
  EXPECT_EQ(Rows("goods_measures"), 0);
  EXPECT_EQ(Rows("measures"), 3);
  status = Type("O0001606").ExecCall("Orvel_DeleteObject", "'O00016063'", 0);
  EXPECT_EQ(status.Number, 0) << status.Text;
}

// The copy of a good writes its prices by the type's name alone.
TEST_F(GoodsRecordCallsTest, APriceWrittenByNameGetsItsTypesId) {
  db_->Exec("INSERT INTO goods_prices (GoodID, PriceType, Currency, Price)"
            " VALUES (3, 'Klientų ''VIP''', 'EUR', 1)");
  EXPECT_EQ(One("SELECT GoodPriceTypeID FROM goods_prices"),
            One("SELECT ID FROM goods_price_types WHERE Name = 'Klientų ''VIP'''"));
  auto record = Read("O0000600", "Orvel_ReadObject", "'O00006001'");
  ASSERT_NE(record, nullptr);
  EXPECT_EQ(ConcatText(record->Fields("Preview").Value()), "Klientų 'VIP'");
}

// ---- refused records -----------------------------------------------------

struct RefusedCase {
  const char* oid;
  FieldValues fields;
  const char* reason;
};

TEST_F(GoodsRecordCallsTest, ABadRecordIsToldAndNothingIsWritten) {
  for (const RefusedCase& c : std::vector<RefusedCase>{
           {"O0000600", {{"GoodPriceTypeID", k1}, {"Price", k1}}, "Nenurodyta prekė"},
           {"O0000600", {{"GoodID", k99}, {"GoodPriceTypeID", k1}}, "Nenurodyta prekė"},
           {"O0000600", {{"GoodID", k2}, {"GoodPriceTypeID", k99}}, "Nėra tokio kainos tipo"},
           {"O0000700", {{"GoodID", k2}, {"LocationID", k2}, {"MinAmount", k1}},
            "Nėra tokio sandėlio"},
           {"O0000800", {{"GoodID", k2}, {"GoodBRTemplateTypeID", k7}},
            "Nėra tokio šablono tipo"},
           {"O0000800", {{"GoodID", k2}, {"GoodBRTemplateTypeID", k1}, {"BRTemplateID", k9}},
            "Nėra tokio šablono"},
           {"O0000400", {{"GoodID", k1}, {"MeasureID", k2}}, "Nenurodyta prekė"},
           {"O0000400", {{"GoodID", k2}, {"MeasureID", k9}}, "Nėra tokio matavimo vieneto"},
           {"O0000400", {{"GoodID", k2}, {"MeasureID", k1}},
            "Šis matavimo vienetas prekei jau nurodytas"},
           {"O0000400", {{"GoodID", k2}, {"MeasureID", k2}, {"Scale", k0}, {"Scale2", k0}},
            "Santykis turi būti didesnis už nulį"}}) {
    SCOPED_TRACE(c.reason);
    const std::string before = Snapshot();
    OrvelStatus status;
    EXPECT_EQ(Create(c.oid, c.fields, &status), "");
    EXPECT_EQ(status.Number, TableBusinessObject::kDatabaseError);
    EXPECT_THAT(status.Text, HasSubstr(c.reason));
    for (const char* table :
         {"goods_prices", "goods_min_amounts", "goods_templates", "goods_measures"}) {
      EXPECT_EQ(Rows(table), 0) << table;
    }
    EXPECT_EQ(Snapshot(), before);
  }
}

TEST_F(GoodsRecordCallsTest, AChangeToAnUnknownTypeKeepsTheRecordAsItWas) {
  const std::string oidr = Made(
      "O0000600", {{"GoodID", Variant(2)}, {"GoodPriceTypeID", Variant(1)}, {"Price", Variant(7)}});
  ASSERT_FALSE(oidr.empty());
  auto record = Read("O0000600", "Orvel_ReadObject", "'" + oidr + "'");
  record->Fields("GoodPriceTypeID").SetValue(Variant(42));
  record->Fields("Price").SetValue(Variant(8));
  EXPECT_EQ(Save("O0000600", oidr, record).Number, TableBusinessObject::kDatabaseError);
  EXPECT_EQ(Text(One("SELECT GoodPriceTypeID || '|' || Price || '|' || Name FROM goods_prices")),
            "1|7.0|Mažmeninė");
}

}  // namespace
}  // namespace orvel
