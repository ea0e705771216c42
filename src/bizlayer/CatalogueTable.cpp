#include "bizlayer/CatalogueTable.h"

#include <strings.h>

#include <map>
#include <string>

namespace orvel {

const char* SqlTypeName(SqlType type) {
  switch (type) {
    case SqlType::Integer:
      return "INTEGER";
    case SqlType::Real:
      return "REAL";
    case SqlType::Text:
      return "TEXT";
    case SqlType::Date:
      return "DATE";
    case SqlType::Boolean:
      return "BOOLEAN";
  }
  return "TEXT";
}

int ServerTypeCode(SqlType type) {
  switch (type) {
    case SqlType::Integer:
      return 56;
    case SqlType::Real:
      return 108;
    case SqlType::Text:
      return 231;
    case SqlType::Date:
      return 61;
    case SqlType::Boolean:
      return 104;
  }
  return 231;
}

const CatalogueField* CatalogueTable::Field(const std::string& name) const {
  for (const auto& field : fields) {
    if (strcasecmp(field.name.c_str(), name.c_str()) == 0) return &field;
  }
  return nullptr;
}

namespace {

CatalogueField Text(std::string name, std::string caption, int length, bool visible = true) {
  return CatalogueField{std::move(name), SqlType::Text, std::move(caption),
                        length,          visible,       Variant()};
}

CatalogueField Number(std::string name, std::string caption, SqlType type = SqlType::Integer,
                      bool visible = true, Variant defaultValue = Variant()) {
  return CatalogueField{std::move(name),        type, std::move(caption), 4, visible,
                        std::move(defaultValue)};
}

// Who made and last changed a record, as every catalogue keeps it.
void AddAudit(std::vector<CatalogueField>& fields) {
  fields.push_back(Text("CreatedByUser", "Sukūrė", 30, false));
  fields.push_back(Number("CreationDate", "Sukurta", SqlType::Date, false));
  fields.push_back(Text("UpdatedByUser", "Pakeitė", 30, false));
  fields.push_back(Number("UpdateDate", "Pakeista", SqlType::Date, false));
}

std::vector<CatalogueTable> MakeCatalogues() {
  std::vector<CatalogueTable> specs;

  CatalogueTable firms{"O0000100", "firms", "Firms", {}, true};
  firms.fields = {
      Text("Name", "Pavadinimas", 100),
      Text("Code", "Įmonės kodas", 20),
      Text("VATCode", "PVM mokėtojo kodas", 20),
      Text("Address", "Adresas", 100),
      Text("Phone", "Telefonas", 30),
      Number("ParentID", "Grupė", SqlType::Integer, false),
      Number("GroupFlag", "Grupė", SqlType::Integer, false, Variant(0)),
      Number("Active", "Aktyvi", SqlType::Boolean, true, Variant(true)),
      Text("OwnCode", "Grupės kodas", 50, false),
      Number("FirmTypeId", "Tipas", SqlType::Integer, false),
      Number("RegionID", "Regionas", SqlType::Integer, false),
      Number("BankID", "Bankas", SqlType::Integer, false),
      Text("Account", "Sąskaita", 34, false),
      Number("CreditLimit", "Kredito limitas", SqlType::Real, false, Variant(0.0)),
      Number("CreditDays", "Kredito dienos", SqlType::Integer, false, Variant(0)),
  };
  AddAudit(firms.fields);
  specs.push_back(std::move(firms));

  CatalogueTable banks{"O0000300", "banks", "Banks", {}, false};
  banks.fields = {
      Text("Name", "Pavadinimas", 100),
      Text("Code", "Banko kodas", 10),
      Text("SWIFT", "SWIFT kodas", 11),
      Text("Address", "Adresas", 100),
  };
  AddAudit(banks.fields);
  specs.push_back(std::move(banks));


  CatalogueTable currencies{"O0002200", "currencies", "Currencies", {}, false};
  currencies.fields = {
      Text("Code", "Kodas", 3),
      Text("Name", "Pavadinimas", 50),
      Text("State", "Šalis", 15),
      Number("FixedRate", "Pastovus kursas", SqlType::Real, false, Variant(0.0)),
      Number("GenderCurr", "Giminė", SqlType::Integer, false, Variant(0)),
      Text("OneCurr", "Vienas", 20, false),
      Text("TwoCurr", "Du", 20, false),
      Text("TenCurr", "Dešimt", 20, false),
      Number("GenderSmall", "Smulkiosios giminė", SqlType::Integer, false, Variant(0)),
      Text("OneSmall", "Vienas (smulkioji)", 20, false),
      Text("TwoSmall", "Du (smulkioji)", 20, false),
      Text("TenSmall", "Dešimt (smulkioji)", 20, false),
  };
  specs.push_back(std::move(currencies));

  CatalogueTable goods{"O0000200", "goods", "Goods", {}, true};
  goods.fields = {
      Text("Name", "Pavadinimas", 100),
      Text("Code", "Kodas", 30),
      Text("BarCode", "Brūkšninis kodas", 30),
      Number("ParentID", "Grupė", SqlType::Integer, false),
      Number("GroupFlag", "Grupė", SqlType::Integer, false, Variant(0)),
      Number("GoodType", "Rūšis", SqlType::Integer, false, Variant(0)),
      Number("MeasureID", "Matavimo vienetas", SqlType::Integer, false),
      // Decimals of a quantity: 0 for a unit counted whole.
      Number("AmountPrecision", "Kiekio tikslumas", SqlType::Integer, false, Variant(2)),
      Number("Price", "Kaina", SqlType::Real, true, Variant(0.0)),
      Number("VatRate", "PVM tarifas", SqlType::Real, false, Variant(21.0)),
      // The rate the card writes and a new good takes from its group; Null
      // is the general rate. VatRate follows it (GoodsRecordSchema.cpp).
      Number("VAT", "PVM tarifas, %", SqlType::Integer),
      Number("PriceWithVAT", "Kaina su PVM", SqlType::Boolean, false, Variant(false)),
      Number("Active", "Aktyvi", SqlType::Boolean, true, Variant(true)),
      Number("WithRest", "Su likučiais", SqlType::Boolean, false, Variant(true)),
      Number("WithItems", "Su serijiniais numeriais", SqlType::Boolean, false, Variant(false)),
      Number("Garanty", "Garantija (mėn.)", SqlType::Real, false, Variant(0.0)),
  };
  AddAudit(goods.fields);
  // The goods lists read what is left of the good in its open lots; the
  // drop on a group's card reads the record's place in the tree as the IDs
  // from the top down ("/1/4/"), so that a group's path begins every path
  // under it.
  goods.derived = {
      "(SELECT SUM(l.Rest) FROM document_lines l WHERE l.GoodID = goods.ID) AS Rest",
      "(WITH RECURSIVE own(pid, path, depth) AS (SELECT goods.ParentID, goods.ID || '/', 0"
      " UNION ALL SELECT g.ParentID, g.ID || '/' || own.path, own.depth + 1 FROM goods g"
      " JOIN own ON g.ID = own.pid WHERE own.depth < 64) SELECT '/' || path FROM own"
      " ORDER BY depth DESC LIMIT 1) AS OwnCode"};
  specs.push_back(std::move(goods));

  // The reference books: the list of books under the root, then each book,
  // a grouped list of records with a code and a name.
  CatalogueTable books{"O0001600", "reference_books", "ReferenceBooks", {}, false};
  books.fields = {Text("BookOID", "Žinyno OID", 8, false), Text("Name", "Pavadinimas", 100)};
  specs.push_back(std::move(books));
  auto book = [&](const char* oid, const char* table, const char* structure,
                  std::vector<CatalogueField> extra) {
    CatalogueTable entries{oid, table, structure, {}, true};
    entries.fields = {
        Text("Code", "Kodas", 20),
        Text("Name", "Pavadinimas", 100),
        Number("ParentID", "Grupė", SqlType::Integer, false, Variant(0)),
        Number("GroupFlag", "Grupė", SqlType::Integer, false, Variant(0)),
    };
    for (auto& field : extra) entries.fields.push_back(std::move(field));
    specs.push_back(std::move(entries));
  };
  book("O0001602", "book_firm_types", "FirmTypes", {});
  book("O0001603", "book_payment_terms", "PaymentTerms",
       {Number("Days", "Dienų skaičius", SqlType::Integer, true, Variant(0))});
  book("O0001605", "book_locations", "Locations", {Text("Address", "Adresas", 100)});
  book("O0001604", "book_departments", "Departments",
       {Number("FirmBranchID", "Įmonės filialas", SqlType::Integer, false)});
  book("O0001615", "book_destinations", "Destinations", {});
  // The units of measure; MeasureType 1 is a unit counted whole. The table
  // keeps its first name: goods and their measure rows name units by ID.
  book("O0001606", "measures", "Measures",
       {Number("MeasureType", "Skaičiuojamas sveikais vienetais", SqlType::Integer, true,
               Variant(0))});

  // A firm's settlement accounts and details; each record names its firm
  // (an account by the firm's OIDR in FOIDR, the others by FirmID).
  CatalogueTable accounts{"O0000500", "firm_accounts", "Accounts", {}, false};
  accounts.fields = {Text("Name", "Sąskaitos numeris", 34), Number("BankID", "Bankas"),
                     Text("Currency", "Valiuta", 3), Text("FOIDR", "Įmonė", 20, false)};
  specs.push_back(std::move(accounts));
  CatalogueTable addresses{"O0002000", "firm_addresses", "FirmAddresses", {}, false};
  addresses.fields = {Text("Name", "Adreso tipas", 50),       Text("Region", "Regionas", 50),
                      Text("PostCode", "Pašto indeksas", 10), Text("Street", "Gatvė", 100),
                      Text("Phone", "Telefonas", 30),         Text("Fax", "Faksas", 30),
                      Text("EMail", "El. paštas", 60),
                      Number("FlagMain", "Pagrindinis", SqlType::Boolean, true, Variant(false)),
                      Number("FirmID", "Įmonė", SqlType::Integer, false)};
  specs.push_back(std::move(addresses));
  CatalogueTable contacts{"O0002100", "firm_contacts", "FirmContacts", {}, false};
  contacts.fields = {Text("Name", "Vardas", 50),         Text("LastName", "Pavardė", 50),
                     Text("Role", "Pareigos", 50),       Text("Phone", "Telefonas", 30),
                     Text("Fax", "Faksas", 30),          Text("EMail", "El. paštas", 60),
                     Text("Note", "Pastaba", 200),
                     Number("FlagMain", "Pagrindinis", SqlType::Boolean, true, Variant(false)),
                     Number("FirmID", "Įmonė", SqlType::Integer, false)};
  specs.push_back(std::move(contacts));
  CatalogueTable managers{"O0002400", "firm_managers", "FirmServers", {}, false};
  managers.fields = {Text("Name", "Vadybininkas", 100),
                     Number("FirmID", "Įmonė", SqlType::Integer, false)};
  specs.push_back(std::move(managers));
  CatalogueTable activities{"O0002500", "firm_activities", "FirmActivities", {}, false};
  activities.fields = {Text("Name", "Veiklos pavadinimas", 100),
                       Number("FirmID", "Įmonė", SqlType::Integer, false)};
  specs.push_back(std::move(activities));

  // A good's detail records, each naming its good by GoodID. Name is the
  // record's preview, kept by the database (see GoodsRecordSchema.cpp); a
  // price keeps its type's name in PriceType as well, which the price list
  // and the copying of a good read.
  CatalogueTable prices{"O0000600", "goods_prices", "GoodPrices", {}, false};
  prices.fields = {Number("GoodID", "Prekė", SqlType::Integer, false),
                   Number("GoodPriceTypeID", "Kainos tipas"),
                   Number("Price", "Kaina", SqlType::Real),
                   CatalogueField{"Currency", SqlType::Text, "Valiuta", 3, true, Variant("EUR")},
                   Number("FirmID", "Įmonė", SqlType::Integer, false),
                   // An empty text, not Null: a file of the previous version
                   // holds the column NOT NULL.
                   CatalogueField{"PriceType", SqlType::Text, "Kainos tipo pavadinimas", 50, false,
                                  Variant("")},
                   Text("Name", "Pavadinimas", 50, false)};
  specs.push_back(std::move(prices));
  CatalogueTable minAmounts{"O0000700", "goods_min_amounts", "GoodMinAmounts", {}, false};
  minAmounts.fields = {Number("GoodID", "Prekė", SqlType::Integer, false),
                       Number("LocationID", "Sandėlis"),
                       Number("MinAmount", "Minimalus kiekis", SqlType::Real),
                       Text("Name", "Pavadinimas", 100, false)};
  specs.push_back(std::move(minAmounts));
  // A good's measure row: another unit of the book for the good, with its
  // price and its ratio to the good's own unit (Scale) and back (Scale2).
  CatalogueTable goodMeasures{"O0000400", "goods_measures", "GoodMeasures", {}, false};
  goodMeasures.fields = {Number("GoodID", "Prekė", SqlType::Integer, false),
                         Number("MeasureID", "Matavimo vienetas"),
                         Number("Price", "Kaina", SqlType::Real),
                         Number("Scale", "Santykis", SqlType::Real, true, Variant(1.0)),
                         Number("Scale2", "1 / Santykis", SqlType::Real, true, Variant(1.0)),
                         Text("Name", "Pavadinimas", 100, false)};
  specs.push_back(std::move(goodMeasures));
  CatalogueTable templates{"O0000800", "goods_templates", "GoodBRTemplates", {}, false};
  templates.fields = {Number("GoodID", "Prekė", SqlType::Integer, false),
                      Number("GoodBRTemplateTypeID", "Atsargų šablono tipas"),
                      Number("BRTemplateID", "Šablonas"),
                      Text("Name", "Pavadinimas", 100, false)};
  specs.push_back(std::move(templates));

  // The types of the suite's other modules that this module's windows open
  // by OIDR: the stock templates a good's template row and a destination
  // name, the document groups, a firm's and a good's discounts, and the
  // documents and contracts in a firm's and a good's lists, read only.
  CatalogueTable stockTemplates{"O0201600", "br_templates", "StockTemplates", {}, true};
  stockTemplates.fields = {Text("Name", "Pavadinimas", 100),
                           Number("ParentID", "Grupė", SqlType::Integer, false, Variant(0)),
                           Number("GroupFlag", "Grupė", SqlType::Integer, false, Variant(0))};
  specs.push_back(std::move(stockTemplates));
  // Every document group is a group of the documents' tree.
  CatalogueTable documentGroups{"O1000200", "document_groups", "DocumentGroups", {}, true};
  documentGroups.fields = {Text("Name", "Pavadinimas", 100),
                           Number("ParentID", "Grupė", SqlType::Integer, false, Variant(0)),
                           Number("GroupFlag", "Grupė", SqlType::Integer, false, Variant(1))};
  specs.push_back(std::move(documentGroups));
  // A discount of a firm (or of the firms of a group); Name, its preview,
  // is kept by the database.
  CatalogueTable discounts{"O1000600", "firm_discounts", "Discounts", {}, false};
  discounts.fields = {
      Text("DiscountTypeName", "Nuolaidos tipas", 50),
      Text("VariantName", "Variantas", 50),
      Number("SumFrom", "Suma nuo", SqlType::Real),
      Number("SumTo", "Suma iki", SqlType::Real),
      Number("Percent", "Procentas", SqlType::Real, true, Variant(0.0)),
      Number("Valid", "Galioja", SqlType::Boolean, true, Variant(true)),
      Number("FirmID", "Įmonė", SqlType::Integer, false),
      Text("GoodName", "Paveldėta iš grupės", 100, false),
      Text("Name", "Pavadinimas", 100, false),
  };
  specs.push_back(std::move(discounts));
  auto documents = [&](const char* oid, const char* view, const char* structure) {
    CatalogueTable kind{oid, view, structure, {}, false};
    kind.fields = {Text("DocName", "Dokumentas", 50),
                   Text("Number", "Dok. Nr.", 20),
                   Number("DocDate", "Data", SqlType::Date),
                   Text("FirmName", "Įmonė", 100),
                   Number("Suma", "Suma", SqlType::Real),
                   Number("Debt", "Skola", SqlType::Real),
                   Text("Name", "Pavadinimas", 80, false)};
    kind.view = std::string(
                    "SELECT d.ID, d.DocName, d.Number, d.DocDate, f.Name AS FirmName, d.Suma,"
                    " d.Debt, d.DocName || ' ' || d.Number AS Name FROM documents d"
                    " LEFT JOIN firms f ON f.ID = d.FirmID WHERE d.OType = '") +
                oid + "'";
    specs.push_back(std::move(kind));
  };
  documents("O1000100", "document_invoices", "Invoices");
  documents("O1000300", "document_advances_received", "AdvancesReceived");
  documents("O1000400", "document_advances_paid", "AdvancesPaid");
  CatalogueTable contracts{"O1001000", "document_contracts", "Contracts", {}, false};
  contracts.fields = {Text("ContractNumber", "Numeris", 30),
                      Number("DateFrom", "Galioja nuo", SqlType::Date),
                      Number("DateTo", "Galioja iki", SqlType::Date),
                      Number("SumA", "Suma", SqlType::Real),
                      Text("State", "Būklė", 30),
                      Text("Responsible", "Vadybininkas", 100),
                      Text("FirmName", "Įmonė", 100),
                      Text("Name", "Pavadinimas", 80, false)};
  contracts.view =
      "SELECT c.ID, c.ContractNumber, c.DateFrom, c.DateTo, c.SumA, c.State, c.Responsible,"
      " f.Name AS FirmName, 'Sutartis ' || c.ContractNumber AS Name FROM firm_contracts c"
      " LEFT JOIN firms f ON f.ID = c.FirmID WHERE c.OType = 'O1001000'";
  specs.push_back(std::move(contracts));

  return specs;
}

}  // namespace

const std::vector<CatalogueTable>& Catalogues() {
  static const std::vector<CatalogueTable> specs = MakeCatalogues();
  return specs;
}

std::string RightKeyOf(const std::string& oid) {
  static const std::map<std::string, std::string> keys{
      {"O0000100", "CFirms"},   {"O0000500", "CFirms"},   {"O0002000", "CFirms"},
      {"O0002100", "CFirms"},   {"O0002400", "CFirms"},   {"O0002500", "CFirms"},
      {"O0000200", "CGoods"},   {"O0000400", "CGoods"},   {"O0000600", "CGoodsPT"},
      {"O0000700", "CGoodsMIN"}, {"O0000800", "CGoodsBR"}, {"O0000300", "CBanks"},
      {"O0002200", "CCurrency"}, {"O1000600", "CCatalogueDiscounts"}};
  auto key = keys.find(oid);
  return key == keys.end() ? "CReference" : key->second;
}

const CatalogueTable* CatalogueOf(const std::string& oid) {
  for (const auto& catalogue : Catalogues()) {
    if (catalogue.oid == oid) return &catalogue;
  }
  return nullptr;
}

}  // namespace orvel
