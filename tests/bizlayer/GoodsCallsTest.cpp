#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <tuple>

#include "CatalogueCallsFixture.h"
#include "bizlayer/SchemaParts.h"

namespace orvel {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::ThrowsMessage;

// A small tree:  1 "12" Maisto prekės    6 "05" Paslaugos    7 "13" Tuščia
//                ├ 2 "1207" Sūris 'Džiugas' (10.00)
//                ├ 3 "1203" Pienas (20.00)
//                └ 4 "1208" Pieno produktai
//                   └ 5 "120801" Jogurtas (100.00)
class GoodsCallsTest : public CatalogueCallsFixture, public ::testing::Test {
 protected:
  GoodsCallsTest() {
    GoodsMeasureSchema().create(*db_);
    GoodsSaleLotSchema().create(*db_);
    db_->Exec(
        "INSERT INTO users (ID, Name) VALUES (1, 'admin');"
        "INSERT INTO measures (Name, Code) VALUES ('vienetas', 'vnt.');"
        "INSERT INTO goods (Name, Code, BarCode, ParentID, GroupFlag, Price, MeasureID, Garanty,"
        " WithRest, Active) VALUES ('Maisto prekės', '12', NULL, NULL, 1, 0.0, 1, 0, 1, 1),"
        " ('Sūris ''Džiugas''', '1207', '4770001', 1, 0, 10.0, 1, 0, 1, 1),"
        " ('Pienas', '1203', '4770002', 1, 0, 20.0, 1, 0, 1, 1),"
        " ('Pieno produktai', '1208', NULL, 1, 1, 0.0, 1, 0, 1, 1),"
        " ('Jogurtas', '120801', '4770003', 4, 0, 100.0, 1, 0, 1, 1),"
        " ('Paslaugos', '05', NULL, NULL, 1, 0.0, 1, 0, 1, 1),"
        " ('Tuščia', '13', NULL, NULL, 1, 0.0, 1, 0, 1, 1);"
        "INSERT INTO firms (Name, GroupFlag) VALUES ('UAB Tiekėjas', 0);"
        "INSERT INTO documents (OType, DocName, Number, DocDate, FirmID, Account, Suma, Debt,"
        " Sign, GID) VALUES ('O1000200', 'Pirkimo sąskaita', 'PIR1', '2026-01-10', 1, '450', 0, 0,"
        " -1, 1), ('O1000200', 'Pirkimo sąskaita', 'PIR2', '2026-02-10', 1, '450', 0, 0, -1, 1),"
        " ('O1000100', 'PVM sąskaita faktūra', 'PSF1', '2026-03-01', 1, '240', 0, 0, 1, 1);"
        "INSERT INTO document_lines (DocumentID, GoodID, Amount, Price, Rest, Reserved, Store,"
        " SerialNo) VALUES (1, 2, 10.0, 8.0, 0.0, 0.0, 'Centrinis', NULL),"
        " (2, 2, 6.0, 8.5, 4.0, 1.0, 'Kauno', 'SN''01'),"
        " (3, 2, 12.0, 10.0, 0.0, 0.0, 'Centrinis', 'SN''01'),"
        " (2, 5, 5.0, 90.0, 5.0, 0.0, 'Centrinis', 'SN-77');"
        "INSERT INTO goods_prices (GoodID, PriceType, Currency, Price, FirmID) VALUES"
        " (2, 'Mažmeninė', 'EUR', 10.0, NULL), (2, 'Didmeninė', 'EUR', 9.0, NULL),"
        " (2, 'Sutartinė', 'EUR', 8.5, 1);");
  }

  std::string Field(int64_t id, const char* field) {
    return Text(
        One(std::string("SELECT ") + field + " FROM goods WHERE ID = " + std::to_string(id)));
  }
};

// The group changes with the argument as the price and guarantee dialogs build it: the call, its
// argument, a field and its values on goods 2, 3 and 5 after it.
using GroupChange = std::tuple<const char*, const char*, const char*, std::vector<std::string>>;
class GroupChangeTest : public GoodsCallsTest, public ::testing::WithParamInterface<GroupChange> {};

TEST_P(GroupChangeTest, ReachesTheGoodsItNames) {
  const auto& [call, argument, field, expected] = GetParam();
  Variant::Array array{Variant(argument)};
  auto status = Type("O0000200").ExecArrayCall(call, "", array);
  ASSERT_EQ(status.Number, 0) << status.Text;
  EXPECT_EQ((std::vector<std::string>{Field(2, field), Field(3, field), Field(5, field)}),
            expected);
  EXPECT_EQ(Field(4, "UpdatedByUser"), "") << "groups are not touched";
}

INSTANTIATE_TEST_SUITE_P(
    Goods, GroupChangeTest,
    ::testing::ValuesIn(std::vector<GroupChange>{
        // Who changed a price is recorded with it.
        {"UpdateGoodsPrice", "1,0,10", "Price || '|' || COALESCE(UpdatedByUser, '')",
         {"11.0|rūta", "22.0|rūta", "100.0|"}},
        {"UpdateGoodsPrice", "1,1,-2.5", "Price", {"9.75", "19.5", "97.5"}},
        {"UpdateGoodsPrice", "4,0,100", "Price", {"10", "20", "200"}},
        {"UpdateGoodsPrice", "2,1,-100", "Price", {"0", "20", "100"}},
        {"UpdateGaranty", "1,1,24", "Garanty", {"24", "24", "24"}},
        {"UpdateGaranty", "1,0,6", "Garanty", {"6", "6", "0"}},
        {"UpdateGaranty", "4,0,1.5", "Garanty", {"0", "0", "1.5"}}}));

TEST_F(GoodsCallsTest, CopyGoodKeepsTheFieldsAndPricesButNotTheCodes) {
  EXPECT_THAT(Column(*Read("O0000200", "CopyGood", "'O00002002','1'"), "OIDR"),
              ElementsAre("O00002008"));
  EXPECT_EQ(Field(8, "Name || '|' || Price || '|' || ParentID || '|' || CreatedByUser || '|' ||"
                    " COALESCE(Code, BarCode, 'none')"),
            "Sūris 'Džiugas'|10.0|1|admin|none");
  // The prices tab shows Preview, Code, Price and FirmName; a row opens as its price record.
  auto prices = Read("O0000200", "GetPrices", "O00002008");
  EXPECT_THAT(Lines(*prices, {"Preview", "Code"}),
              ElementsAre("Didmeninė|EUR", "Mažmeninė|EUR", "Sutartinė|EUR"));
  EXPECT_THAT(Column(*prices, "OIDR")[0].rfind("O0000600", 0), 0u);
}

class GoodsReadTest : public GoodsCallsTest, public ::testing::WithParamInterface<ReadCase> {};

TEST_P(GoodsReadTest, AnswersTheRowsInOrder) { ExpectRead("O0000200", GetParam()); }

INSTANTIATE_TEST_SUITE_P(
    Goods, GoodsReadTest,
    ::testing::ValuesIn(std::vector<ReadCase>{
        // The ParentID text the module sends: the parent's code and the
        // highest code under it ("" for an empty group).
        {"GetStructuredCode", "1", {{"PARENTCODE", {"12"}}, {"MAXCODE", {"1208"}}}},
        {"GetStructuredCode", "4", {{"PARENTCODE", {"1208"}}, {"MAXCODE", {"120801"}}}},
        {"GetStructuredCode", "0", {{"PARENTCODE", {""}}, {"MAXCODE", {"13"}}}},
        {"GetStructuredCode", "", {{"PARENTCODE", {""}}, {"MAXCODE", {"13"}}}},
        {"GetStructuredCode", "7", {{"PARENTCODE", {"13"}}, {"MAXCODE", {""}}}},
        // A group's list gives each good its tax rate as a whole percent, whether its price holds
        // the tax, what is left in its open lots (nothing for a good never bought) and its place in
        // the tree: the group card's columns and its drop come from these. VAT is Null for the
        // general rate (21 %); the rate in force (VatRate) and VAT follow each other.
        {"Orvel_GetObjectList", "'O00002001'",
         {{"Preview", {"Pieno produktai", "Pienas", "Sūris 'Džiugas'"}}, {"VAT", {"9", "5", ""}},
         {"PriceWithVAT", {"False", "True", "False"}}, {"Rest", {"", "", "4"}},
         {"OwnCode", {"/1/4/", "/1/3/", "/1/2/"}}, {"VatRate", {"9", "5", "21"}}},
         "UPDATE goods SET VatRate = 21.0, PriceWithVAT = (ID = 3);"
         " UPDATE goods SET VatRate = 9.0 WHERE ID = 4; UPDATE goods SET VAT = 5 WHERE ID = 3"},
        {"Orvel_ReadObject", "'O00002005'", {{"OwnCode", {"/1/4/5/"}}}},
        // A new record carries the fields the card primes from its group.
        {"Orvel_NewObject", "'O0000200'", {{"VAT", {""}}, {"AmountPrecision", {"2"}},
         {"PriceWithVAT", {"False"}}}},
        {"GetVatFactor", "O00002002", {{"Value", {"21"}}}},
        {"GetVatFactor", "O00002002", {{"Value", {"9"}}},
         "UPDATE settings SET Value = '9' WHERE Name = 'VatFactor'"},
        // The lines of a good or a group.
        {"GetGoodIsUsedInDocuments", "O00002002", {{"Used", {"3"}}}},
        {"GetGoodIsUsedInDocuments", "O00002003", {{"Used", {"0"}}}},
        {"GetGoodIsUsedInDocuments", "O00002001", {{"Used", {"4"}}}},
        {"GetGoodIsUsedInDocuments", "", {{"Used", {"0"}}}},
        // The open lots, then their total.
        {"GetRests", "O00002002", {{"OIDR", {"O10002002", "O0000000"}}, {"Rest", {"4", "4"}},
         {"Reserved", {"1", "1"}}, {"Measure", {"vnt.", "vnt."}}, {"Date", {"2026-02-10", ""}},
         {"Addressee", {"UAB Tiekėjas", ""}}, {"PriceSale", {"10", ""}}}},
        {"GetRests", "O00002003", {{"OIDR", {}}}},
        // The history, from the sale's line, ends with what is left.
        {"GetGoodHistory", "3", {{"Number", {"PIR1", "PIR2", "PSF1", ""}},
         {"Sign", {"0", "0", "1", "2"}}, {"Amount", {"10", "6", "12", "4"}},
         {"Suma", {"80", "51", "120", ""}},
         {"Date", {"2026-01-10", "2026-02-10", "2026-03-01", ""}}}},
        // A period's traffic newest first, then what came in less what went
        // out; the sale costs the average purchase price: (10 x 8 + 6 x 8.5) / 16.
        {"GetTraffic", "'O00002002','2026-02-01','9999-12-31'", {{"Number", {"PSF1", "PIR2", ""}},
         {"OIDR", {"O10001003", "O10002002", "O0000000"}}, {"Sign", {"1", "0", "2"}},
         {"PurchaseID", {"0", "2", ""}}, {"Amount", {"12", "6", "-6"}},
         {"Cost", {"98.25", "51", ""}}, {"SourcerName", {"", "UAB Tiekėjas", ""}}}},
        // A sale taken from a lot stands under it and costs the lot's price.
        {"GetTraffic", "'O00002002','2026-02-01','9999-12-31'", {{"PurchaseID", {"2", "2", ""}},
         {"Cost", {"102", "51", ""}}, {"PurchDate", {"2026-02-10", "2026-02-10", ""}}},
         "UPDATE document_lines SET PurchaseLineID = 2 WHERE ID = 3"},
        {"GetTraffic", "'O00002003','2026-01-01','2026-12-31'", {{"OIDR", {}}}},
        // Serial numbers under the record.
        {"GetFindGoods", "'O00002002','SN''", {{"SN", {"SN'01", "SN'01"}},
         {"Number", {"PIR2", "PSF1"}}}},
        {"GetFindGoods", "'O00002001','SN'", {{"SN", {"SN'01", "SN'01", "SN-77"}}}},
        {"GetFindGoods", "'O00002004','SN'", {{"GName", {"Jogurtas"}}}},
        // A list row says whether the good is kept by serial numbers.
        {"Orvel_GetObjectList", "'O00002001','',1,1,1,'',0,1,0",
         {{"WithItems", {"False", "False", "True"}}},
         "UPDATE goods SET WithItems = (ID = 2)"}}));

// The list call as the catalogue sends it: the settings <Active>,<NotActive>,
// <Code>,'<warehouse>',<ByWarehouse>,<ByCode>,<WithRest>, or a search with
// <in code>,<from start> in place of the first two. Pienas (now "1209") is
// out of use; the services Montavimas and Pristatymas, the second out of
// use, stand under Paslaugos; Centrinis and Kauno are warehouses 1 and 2.
TEST_F(GoodsCallsTest, ListsByTheSettingsAndTheSearchOptions) {
  db_->Exec(
      "UPDATE goods SET Code = '1209', Active = 0 WHERE ID = 3;"
      "INSERT INTO goods (Name, Code, ParentID, GroupFlag, GoodType, Active) VALUES"
      " ('Montavimas', '0501', 6, 0, 1, 1), ('Pristatymas', '0502', 6, 0, 1, 0);"
      "INSERT INTO book_locations (Code, Name, ParentID, GroupFlag) VALUES ('C', 'Centrinis',"
      " 0, 0), ('K', 'Kauno', 0, 0), ('P', 'Parduotuvės', 0, 1)");
  // Each list's rows as "<ID>|<Otype>".
  for (const auto& [param, expected] :
       std::vector<std::pair<const char*, std::vector<std::string>>>{
           // The default settings: in use, by code; a group always comes first.
           {"'O00002001','',1,0,1,'',0,1,0", {"4|Group", "2|GEXIST"}},
           {"'O00002001','',0,1,1,'',0,1,0", {"4|Group", "3|GoodNA"}},
           {"'O00002001','',1,1,1,'',0,1,0", {"4|Group", "2|GEXIST", "3|GoodNA"}},
           {"'O00002001','',1,1,0,'',0,0,0", {"4|Group", "3|GoodNA", "2|GEXIST"}},
           {"'O00002006','',1,1,1,'',0,1,0", {"8|Service", "9|ServiceNA"}},
           // With rest, anywhere or in one warehouse; a warehouse not asked for restricts nothing.
           {"'O00002001','',1,1,1,'',0,1,1", {"4|Group", "2|GEXIST"}},
           {"'O00002001','',1,1,1,'O00016051',1,1,1", {"4|Group"}},
           {"'O00002004','',1,1,1,'O00016051',1,1,1", {"5|GEXIST"}},
           {"'O00002001','',1,1,1,'O00016052',1,1,1", {"4|Group", "2|GEXIST"}},
           {"'O00002001','',1,1,1,'O00016051',1,1,0", {"4|Group", "2|GEXIST"}},
           {"'O00002001','',1,1,1,'O00016051',0,1,1", {"4|Group", "2|GEXIST"}},
           {"'O00002001','',1,1,1,'',1,1,1", {"4|Group", "2|GEXIST"}},
           // A search through every level, in and out of use.
           {"'','pr',0,0,1,'',0,0,0", {"1|Group", "4|Group", "9|ServiceNA"}},
           {"'','pr',0,1,1,'',0,0,0", {"9|ServiceNA"}},
           {"'','PRIST',0,1,1,'',0,0,0", {"9|ServiceNA"}},
           {"'','120',1,1,1,'',0,1,0", {"4|Group", "2|GEXIST", "5|GEXIST", "3|GoodNA"}},
           {"'','08',1,0,1,'',0,1,0", {"4|Group", "5|GEXIST"}}}) {
    EXPECT_EQ(Lines(*Read("O0000200", "Orvel_GetObjectList", param), {"ID", "Otype"}), expected)
        << param;
  }
}

TEST_F(GoodsCallsTest, ListSettingsThatCannotBeReadAreRefusedWithTheirText) {
  db_->Exec("INSERT INTO book_locations (Code, Name, ParentID, GroupFlag)"
            " VALUES ('P', 'Parduotuvės', 0, 1)");
  const char* F = "O0000100";
  const char* G = "O0000200";
  for (const auto& [oid, param, text] :
       std::vector<std::tuple<const char*, const char*, const char*>>{
           {F, "'O0000100','',1,x,1", "Netinkamas sąrašo nustatymas: x"},
           {F, "'O0000100','',1,0,3", "Netinkamas sąrašo nustatymas: 3"},
           {F, "'','alfa',2,0", "Netinkama paieškos parinktis: 2"},
           {F, "'O0000100','',1,0,1,0", "Netinkamas sąrašo nustatymų skaičius: 4"},
           {G, "'O00002001','',1,0,1,'',0,1", "Netinkamas sąrašo nustatymų skaičius: 6"},
           {G, "'','x',0,-1,1,'',0,1,0", "Netinkama paieškos parinktis: -1"},
           {G, "'O00002001','',1,0,1,'',0,1,", "Netinkamas sąrašo nustatymas: "},
           {G, "'O00002001','',1,0,1,'O00003001',1,1,0", "Netinkamas sąrašo nustatymas: O00003001"},
           {G, "'O00002001','',1,0,1,'O00016059',1,1,0", "Sandėlis nerastas: O00016059"},
           {G, "'O00002001','',1,0,1,'O00016051',1,1,0", "Sandėlis nerastas: O00016051"}}) {
    auto reply = Type(oid).GetCall("Orvel_GetObjectList", param, 0);
    EXPECT_EQ(reply.Number, TableBusinessObject::kBadCall) << param;
    EXPECT_EQ(reply.Text, std::string("Orvel_GetObjectList: ") + text);
    EXPECT_EQ(reply.Object, nullptr);
  }
}

// A good's prices, minimum amounts and template rows as records of their own: opened, saved,
// changed and deleted through the standard object calls with the parameter strings the goods card's
// adapter sends, and seen in the good's detail lists. Good 2 "Popierius" in group 1; good 3 alone.
// Warehouses 1 and 3 hold goods, 2 is a group; two template types, two templates, two price types.
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
    EXPECT_EQ(Text(One(std::string("SELECT group_concat(GoodID) FROM ") + table)), "2") << table;
  }
}

// A measure row is the good's alone: a ratio left 0 is the other's inverse,
// a second row of a unit is refused, and neither deleting a row nor its good
// deletes the unit, which is not deleted while named.
TEST_F(GoodsRecordCallsTest, AMeasureRowNeverTakesItsUnitAlong) {
  const std::string row = Made("O0000400", {{"GoodID", Variant(2)}, {"MeasureID", Variant(3)},
                                            {"Scale", Variant(4)}, {"Scale2", Variant(0)}});
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
  EXPECT_THAT([&] { db_->Exec("DELETE FROM measures WHERE ID = 2"); },
              ThrowsMessage<DatabaseError>(HasSubstr("Matavimo vienetas naudojamas prekėse")));
  EXPECT_THAT([&] { db_->Exec("UPDATE goods SET VAT = 121 WHERE ID = 2"); },
              ThrowsMessage<DatabaseError>(HasSubstr("Neteisingas PVM tarifas")));

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
  EXPECT_THAT(Column(*Read("O0000600", "Orvel_ReadObject", "'O00006001'"), "Preview"),
              ElementsAre("Klientų 'VIP'"));
}

TEST_F(GoodsRecordCallsTest, ABadRecordIsToldAndNothingIsWritten) {
  for (const auto& [oid, fields, reason] :
       std::vector<std::tuple<const char*, FieldValues, const char*>>{
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
    SCOPED_TRACE(reason);
    const std::string before = Snapshot();
    OrvelStatus status;
    EXPECT_EQ(Create(oid, fields, &status), "");
    EXPECT_EQ(status.Number, TableBusinessObject::kDatabaseError);
    EXPECT_THAT(status.Text, HasSubstr(reason));
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
