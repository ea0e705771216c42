#include "bizlayer/ReferenceDatabase.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <string>
#include <vector>

#include "bizlayer/CatalogueTable.h"
#include "bizlayer/SchemaPart.h"
#include "bizlayer/PgDatabase.h"
#include "bizlayer/PgDialect.h"
#include "bizlayer/SchemaParts.h"
#include "bizlayer/SqliteDatabase.h"
#include "host/Convert.h"

namespace orvel {

namespace {

// A small deterministic generator, so every new database holds the same data.
class SampleRandom {
 public:
  explicit SampleRandom(uint32_t seed) : state_(seed) {}
  uint32_t Next() {
    state_ = state_ * 1664525u + 1013904223u;
    return state_ >> 8;
  }
  int Below(int n) { return static_cast<int>(Next() % static_cast<uint32_t>(n)); }
  template <class T>
  const T& Pick(const std::vector<T>& items) {
    return items[static_cast<size_t>(Below(static_cast<int>(items.size())))];
  }

 private:
  uint32_t state_;
};

bool TableExists(Database& db, const std::string& table);

// Whether every table a view reads exists yet: PostgreSQL, unlike SQLite,
// makes no view over a table still to come.
bool SourcesExist(Database& db, const std::string& view) {
  for (const char* word : {"FROM ", "JOIN "}) {
    for (size_t at = view.find(word); at != std::string::npos; at = view.find(word, at + 1)) {
      const size_t start = at + std::string(word).size();
      const std::string table = view.substr(start, view.find(' ', start) - start);
      if (!TableExists(db, table)) return false;
    }
  }
  return true;
}

void CreateCatalogueTable(Database& db, const CatalogueTable& catalogue) {
  if (!catalogue.view.empty() && db.Kind() == Database::Engine::Postgres) {
    if (!SourcesExist(db, catalogue.view)) return;
    db.Exec("CREATE VIEW " + catalogue.name + " AS " + catalogue.view);
    db.Exec(PgReadOnlyTriggers(catalogue.name));
    DescribeAgain(db, catalogue);
    return;
  }
  if (!catalogue.view.empty()) {
    // Read only: a write is refused with its reason, as the bookkeeper reads it.
    db.Exec("CREATE VIEW " + catalogue.name + " AS " + catalogue.view);
    for (const char* event : {"INSERT", "UPDATE", "DELETE"}) {
      db.Exec("CREATE TRIGGER " + catalogue.name + "_" + event + " INSTEAD OF " + event + " ON " +
              catalogue.name + " BEGIN SELECT RAISE(ABORT, 'Šie įrašai tik skaitomi'); END");
    }
    DescribeAgain(db, catalogue);
    return;
  }
  std::string sql = "CREATE TABLE " + catalogue.name + " (ID INTEGER PRIMARY KEY AUTOINCREMENT";
  for (const auto& field : catalogue.fields) {
    sql += ", " + field.name + " " + SqlTypeName(field.type);
  }
  sql += ")";
  db.Exec(sql);
  KeepRecordVersions(db, catalogue);
  if (catalogue.grouped) {
    db.Exec("CREATE INDEX " + catalogue.name + "_parent ON " + catalogue.name +
            " (ParentID, Name)");
  }
  DescribeCatalogue(db, catalogue);
}

// What the catalogues' own calls read besides the cards: the documents that
// use firms and goods, a firm's notes and branches, a good's prices, and the
// database-wide settings (the default VAT rate and the base currency).
void CreateCallTables(Database& db) {
  db.Exec(
      "CREATE TABLE settings (Name TEXT PRIMARY KEY, Value TEXT);"
      "CREATE TABLE regions (ID INTEGER PRIMARY KEY, Name TEXT NOT NULL);"
      "INSERT INTO settings (Name, Value) VALUES ('VatFactor', '21'), ('BaseCurrency', 'EUR');"
      "CREATE TABLE documents (ID INTEGER PRIMARY KEY AUTOINCREMENT, OType TEXT NOT NULL,"
      " DocName TEXT NOT NULL, Number TEXT NOT NULL, DocDate DATE NOT NULL,"
      " FirmID INTEGER REFERENCES firms(ID), Account TEXT NOT NULL, Suma REAL NOT NULL,"
      " Debt REAL NOT NULL, Sign INTEGER NOT NULL, GID INTEGER NOT NULL);"
      "CREATE INDEX documents_firm ON documents (FirmID, DocDate);"
      "CREATE TABLE document_lines (ID INTEGER PRIMARY KEY AUTOINCREMENT,"
      " DocumentID INTEGER NOT NULL REFERENCES documents(ID) ON DELETE CASCADE,"
      " GoodID INTEGER NOT NULL REFERENCES goods(ID), Amount REAL NOT NULL, Price REAL NOT NULL,"
      " Rest REAL NOT NULL DEFAULT 0, Reserved REAL NOT NULL DEFAULT 0, Store TEXT,"
      " Comment TEXT, SerialNo TEXT, PurchaseLineID INTEGER);"
      "CREATE INDEX document_lines_good ON document_lines (GoodID);"
      "CREATE INDEX document_lines_document ON document_lines (DocumentID);"
      "CREATE TABLE firm_info (ID INTEGER PRIMARY KEY AUTOINCREMENT,"
      " FirmID INTEGER NOT NULL REFERENCES firms(ID) ON DELETE CASCADE, Info TEXT NOT NULL,"
      " DateFrom DATE, DateTo DATE, UserName TEXT, Priority INTEGER NOT NULL DEFAULT 1);"
      "CREATE TABLE firm_branches (ID INTEGER PRIMARY KEY AUTOINCREMENT,"
      " FirmID INTEGER NOT NULL REFERENCES firms(ID) ON DELETE CASCADE, Name TEXT NOT NULL,"
      " Code TEXT, Region TEXT, Street TEXT, Tel TEXT, Fax TEXT, EMail TEXT);"
      // The price catalogue (O0000600) makes this table in a new file; a
      // file of the first version gets it here in its old shape.
      "CREATE TABLE IF NOT EXISTS goods_prices (ID INTEGER PRIMARY KEY AUTOINCREMENT,"
      " GoodID INTEGER NOT NULL REFERENCES goods(ID) ON DELETE CASCADE, PriceType TEXT NOT NULL,"
      " Currency TEXT NOT NULL, Price REAL NOT NULL, FirmID INTEGER REFERENCES firms(ID));");
}

int64_t Insert(Database& db, const std::string& sql, const std::vector<Variant>& values) {
  auto stmt = db.Prepare(sql);
  for (size_t i = 0; i < values.size(); ++i) stmt.Bind(static_cast<int>(i) + 1, values[i]);
  stmt.Run();
  return db.LastInsertRowId();
}

void SeedBanks(Database& db) {
  struct Bank {
    const char* name;
    const char* code;
    const char* swift;
    const char* address;
  };
  const Bank banks[] = {
      {"AB SEB bankas", "70440", "CBVILT2X", "Konstitucijos pr. 24, Vilnius"},
      {"„Swedbank“, AB", "73000", "HABALT22", "Konstitucijos pr. 20A, Vilnius"},
      {"AB Šiaulių bankas", "71800", "CBSBLT26", "Tilžės g. 149, Šiauliai"},
      {"Luminor Bank AS Lietuvos skyrius", "40100", "AGBLLT2X", "Konstitucijos pr. 21A, Vilnius"},
      {"UAB Medicinos bankas", "72300", "MDBALT22", "Pamėnkalnio g. 40, Vilnius"},
      {"AB Citadele bankas", "72900", "INDULT2X", "K. Kalinausko g. 13, Vilnius"},
  };
  for (const auto& bank : banks) {
    Insert(db, "INSERT INTO banks (Name, Code, SWIFT, Address) VALUES (?, ?, ?, ?)",
           {Variant(bank.name), Variant(bank.code), Variant(bank.swift), Variant(bank.address)});
  }
}

// The units of measure; a pack and a set are counted whole (MeasureType 1).
void SeedMeasures(Database& db) {
  const std::pair<const char*, const char*> measures[] = {
      {"vienetas", "vnt."},     {"kilogramas", "kg"},         {"litras", "l"},
      {"metras", "m"},          {"kvadratinis metras", "m²"}, {"kubinis metras", "m³"},
      {"pakuotė", "pak."},      {"valanda", "val."},          {"tona", "t"},
      {"komplektas", "kompl."},
  };
  for (const auto& [name, code] : measures) {
    const std::string text(code);
    Insert(db,
           "INSERT INTO measures (Name, Code, ParentID, GroupFlag, MeasureType)"
           " VALUES (?, ?, 0, 0, ?)",
           {Variant(name), Variant(code), Variant(text == "pak." || text == "kompl." ? 1 : 0)});
  }
}

void SeedFirms(Database& db) {
  SampleRandom random(2026);
  const std::vector<std::string> forms{"UAB", "AB", "MB", "IĮ", "ŽŪB"};
  const std::vector<std::string> roots{
      "Medienos", "Baltijos", "Šiaulių", "Nemuno",    "Žalgirio",  "Aukštaitijos", "Žemaitijos",
      "Dzūkijos", "Vilniaus", "Kauno",   "Klaipėdos", "Panevėžio", "Gintaro",      "Ąžuolo",
      "Lino",     "Rūtos",    "Vėjo",    "Saulės",    "Upės",      "Girios"};
  const std::vector<std::string> trades{"centras", "prekyba",  "statyba",  "transportas", "duona",
                                        "baldai",  "technika", "servisas", "logistika",   "pienas",
                                        "mėsa",    "spauda",   "vaistai",  "energija"};
  const std::vector<std::string> towns{"Vilnius",   "Kaunas", "Klaipėda",    "Šiauliai",
                                       "Panevėžys", "Alytus", "Marijampolė", "Utena"};
  const std::vector<std::string> streets{"Gedimino pr.", "Laisvės al.", "Vilniaus g.",
                                         "Taikos pr.",   "Ąžuolyno g.", "Žalgirio g."};
  struct Group {
    const char* name;
    const char* parent;
  };
  const Group groups[] = {{"Tiekėjai", nullptr},
                          {"Pirkėjai", nullptr},
                          {"Partneriai", nullptr},
                          {"Užsienio įmonės", nullptr},
                          {"Žaliavų tiekėjai", "Tiekėjai"},
                          {"Paslaugų tiekėjai", "Tiekėjai"},
                          {"Didmeninė prekyba", "Pirkėjai"},
                          {"Mažmeninė prekyba", "Pirkėjai"}};
  std::vector<std::pair<std::string, int64_t>> ids;
  auto idOf = [&](const char* name) -> Variant {
    if (!name) return Variant::Null();
    for (const auto& [group, id] : ids) {
      if (group == name) return Variant(id);
    }
    return Variant::Null();
  };
  int own = 0;
  for (const auto& group : groups) {
    char code[8];
    std::snprintf(code, sizeof code, "%03d", ++own);
    int64_t id = Insert(
        db,
        "INSERT INTO firms (Name, ParentID, GroupFlag, Active, OwnCode, CreatedByUser,"
        " CreationDate) VALUES (?, ?, 1, 1, ?, 'admin', ?)",
        {Variant(group.name), idOf(group.parent), Variant(code), Variant(DateSerial(2026, 1, 2))});
    ids.emplace_back(group.name, id);
  }
  auto firm = db.Prepare(
      "INSERT INTO firms (Name, Code, VATCode, Address, Phone, ParentID, GroupFlag, Active,"
      " FirmTypeId, RegionID, BankID, Account, CreditLimit, CreatedByUser, CreationDate)"
      " VALUES (?, ?, ?, ?, ?, ?, 0, ?, 1, ?, ?, ?, ?, 'admin', ?)");
  for (int i = 0; i < 300; ++i) {
    // One draw a statement: the order of the draws fixes the data, and the
    // order in which a compiler evaluates operands or arguments is its own.
    const std::string& trade = random.Pick(trades);
    const std::string& root = random.Pick(roots);
    const std::string& form = random.Pick(forms);
    const std::string name = form + " „" + root + " " + trade + "“";
    const std::string code = std::to_string(100000000 + random.Below(899999999));
    const std::string& town = random.Pick(towns);
    const int house = 1 + random.Below(120);
    const std::string address = random.Pick(streets) + " " + std::to_string(house) + ", " + town;
    const int line = 10000 + random.Below(89999);
    const int prefix = 600 + random.Below(100);
    const std::string phone = "+370 " + std::to_string(prefix) + " " + std::to_string(line);
    const int accountNo = random.Below(999999999);
    const int check = 10 + random.Below(89);
    char account[32];
    std::snprintf(account, sizeof account, "LT%02d7044%012d", check, accountNo);
    Variant parent =
        i % 10 == 0
            ? Variant::Null()
            : Variant(ids[static_cast<size_t>(random.Below(static_cast<int>(ids.size())))].second);
    const double limit = static_cast<double>(random.Below(20) * 500);
    const int bank = 1 + random.Below(6);
    const int region = 1 + random.Below(10);
    firm.Reset();
    firm.BindAll(name, code, "LT" + code.substr(0, 9), address, phone, parent, i % 17 != 0,
                 region, bank, std::string(account), limit, DateSerial(2026, 1, 2));
    firm.Run();
  }
}

// Goods in five groups. A good's name is a product, its maker and its pack,
// each combination once, so that a list reads like a real stock list.
void SeedGoods(Database& db) {
  SampleRandom random(1990);
  struct Group {
    const char* name;
    const char* code;
    std::vector<std::string> products;
    std::vector<std::string> packs;
    int count;
  };
  const std::vector<Group> groups{
      {"Maisto prekės",
       "01",
       {"Duona ruginė", "Pienas 2,5 %", "Sūris fermentinis", "Kava malta", "Arbata žalioji",
        "Obuolių sultys", "Grietinė 30 %", "Varškė liesa", "Makaronai", "Ryžiai ilgagrūdžiai"},
       {"maža pakuotė", "didelė pakuotė", "šeimos pakuotė", "ekonominė pakuotė", "dėžė", "vnt."},
       600},
      {"Statybinės medžiagos",
       "02",
       {"Cementas", "Plytos keraminės", "Dažai fasadiniai", "Lenta obliuota", "Vinys statybinės",
        "Gipso plokštė", "Glaistas", "Gruntas", "Klijai plytelėms", "Putos montavimo"},
       {"maža pakuotė", "didelė pakuotė", "padėklas", "vnt.", "profesionali", "ekonominė"},
       600},
      {"Biuro prekės",
       "03",
       {"Popierius A4", "Tušinukas mėlynas", "Segtuvas 75 mm", "Sąsiuvinis langeliais",
        "Klijai pieštukiniai", "Žymeklis geltonas", "Vokai C5", "Lipnūs lapeliai", "Sąvaržėlės",
        "Kalkuliatorius"},
       {"1 vnt.", "5 vnt.", "10 vnt.", "20 vnt.", "pakuotė", "dėžutė"},
       600},
      {"Buitinė technika",
       "04",
       {"Virdulys", "Lygintuvas", "Šaldytuvas", "Skalbyklė", "Dulkių siurblys", "Mikrobangų krosnelė",
        "Kavos aparatas", "Plaukų džiovintuvas", "Indaplovė", "Orkaitė"},
       {"balta", "juoda", "sidabrinė", "A+++ klasės", "kompaktiška", "su ekranu"},
       600},
      {"Paslaugos",
       "05",
       {"Pristatymas", "Montavimas", "Konsultacija", "Remontas", "Sandėliavimas", "Transportavimas"},
       {"Vilniuje", "Kaune", "Klaipėdoje", "visoje Lietuvoje", "skubus", "savaitgalį"},
       60},
  };
  const std::vector<std::string> makers{"Baltijos", "Dzūkijos", "Kauno", "Klaipėdos", "Lino",
                                        "Nemuno", "Panevėžio", "Rūtos", "Šiaulių", "Vilniaus",
                                        "Žalgirio", "Žemaitijos"};
  auto good = db.Prepare(
      "INSERT INTO goods (Name, Code, BarCode, ParentID, GroupFlag, GoodType, MeasureID, Price,"
      " VatRate, Active, CreatedByUser, CreationDate) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, 1,"
      " 'admin', ?)");
  for (const auto& group : groups) {
    good.Reset();
    good.BindAll(group.name, group.code, Variant::Null(), Variant::Null(), 1, 0, Variant::Null(),
                 0.0, 21.0, DateSerial(2026, 1, 2));
    good.Run();
    int64_t parent = db.LastInsertRowId();
    bool services = std::string(group.code) == "05";
    // Every product, maker and pack once, in a shuffled order.
    std::vector<std::string> names;
    for (const auto& product : group.products) {
      for (const auto& pack : group.packs) {
        if (services) {
          names.push_back(product + " " + pack);
          continue;
        }
        for (const auto& maker : makers) names.push_back(product + ", " + maker + ", " + pack);
      }
    }
    for (size_t i = names.size(); i > 1; --i) {
      std::swap(names[i - 1], names[static_cast<size_t>(random.Below(static_cast<int>(i)))]);
    }
    names.resize(std::min(names.size(), static_cast<size_t>(group.count)));
    int number = 0;
    for (const auto& name : names) {
      char code[16];
      std::snprintf(code, sizeof code, "%s%04d", group.code, ++number);
      char barcode[16];
      std::snprintf(barcode, sizeof barcode, "477%010u", random.Next() % 1000000000u);
      double price = std::round((0.5 + random.Below(20000) / 100.0) * 100.0) / 100.0;
      const double vat = random.Below(10) == 0 ? 9.0 : 21.0;
      const int units = services ? 8 : 1 + random.Below(7);
      good.Reset();
      good.BindAll(name, std::string(code),
                   services ? Variant::Null() : Variant(std::string(barcode)), parent, 0,
                   services ? 1 : 0, units, price, vat, DateSerial(2026, 1, 2));
      good.Run();
    }
  }
}

// A few goods and services out of use, as every catalogue in use has.
void RetireSampleGoods(Database& db) {
  db.Exec("UPDATE goods SET Active = 0 WHERE GroupFlag = 0 AND ID % 40 = 7");
}

void SeedCurrencies(Database& db) {
  struct Currency {
    const char* code;
    const char* name;
    const char* state;
    int gender;
    const char* one;
    const char* two;
    const char* ten;
    int genderSmall;
    const char* oneSmall;
    const char* twoSmall;
    const char* tenSmall;
    double rate;  // units of it for one euro, as the bank quotes it
  };
  // Stored as the module writes a day rate: the price of one unit in euro.
  auto perUnit = [](double unitsPerEuro) { return std::round(1e8 / unitsPerEuro) / 1e8; };
  const Currency currencies[] = {
      {"EUR", "Euras", "Europos Sąjungos", 0, "euras", "eurai", "eurų", 0, "centas", "centai",
       "centų", 1.0},
      {"USD", "JAV doleris", "JAV", 0, "doleris", "doleriai", "dolerių", 0, "centas", "centai",
       "centų", 1.0825},
      {"GBP", "Svaras sterlingas", "Didžiosios Britanijos", 0, "svaras", "svarai", "svarų", 0,
       "pensas", "pensai", "pensų", 0.8412},
      {"PLN", "Lenkijos zlotas", "Lenkijos", 0, "zlotas", "zlotai", "zlotų", 0, "grašis", "grašiai",
       "grašių", 4.3215},
      {"SEK", "Švedijos krona", "Švedijos", 1, "krona", "kronos", "kronų", 1, "erė", "erės", "erių",
       11.2450},
      {"NOK", "Norvegijos krona", "Norvegijos", 1, "krona", "kronos", "kronų", 1, "erė", "erės",
       "erių", 11.6120},
      {"DKK", "Danijos krona", "Danijos", 1, "krona", "kronos", "kronų", 1, "erė", "erės", "erių",
       7.4590},
      {"CHF", "Šveicarijos frankas", "Šveicarijos", 0, "frankas", "frankai", "frankų", 0,
       "santimas", "santimai", "santimų", 0.9410},
      {"JPY", "Japonijos jena", "Japonijos", 1, "jena", "jenos", "jenų", 1, "sena", "senos", "senų",
       162.35},
      {"LTL", "Litas", "Lietuvos", 0, "litas", "litai", "litų", 0, "centas", "centai", "centų",
       3.4528},
  };
  auto currency = db.Prepare(
      "INSERT INTO currencies (Code, Name, State, FixedRate, GenderCurr, OneCurr, TwoCurr,"
      " TenCurr, GenderSmall, OneSmall, TwoSmall, TenSmall) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?,"
      " ?, ?)");
  auto rate =
      db.Prepare("INSERT INTO currency_rates (CurrencyID, RateDate, Rate) VALUES (?, ?, ?)");
  SampleRandom random(1993);
  Date first = DateSerial(2025, 11, 23);
  for (const auto& c : currencies) {
    bool fixed = std::string(c.code) == "EUR" || std::string(c.code) == "LTL";
    currency.Reset();
    currency
        .BindAll(c.code, c.name, c.state, fixed ? perUnit(c.rate) : 0.0, c.gender, c.one, c.two,
                 c.ten, c.genderSmall, c.oneSmall, c.twoSmall, c.tenSmall)
        .Run();
    if (fixed) continue;
    int64_t id = db.LastInsertRowId();
    double value = c.rate;
    for (int day = 0; day < 365; ++day) {
      value *= 1.0 + (random.Below(2001) - 1000) / 250000.0;
      rate.Reset();
      rate.BindAll(id, Date{first.serial + day}, perUnit(std::round(value * 10000.0) / 10000.0))
          .Run();
    }
  }
}

std::vector<int64_t> Ids(Database& db, const std::string& sql) {
  std::vector<int64_t> ids;
  auto stmt = db.Prepare(sql);
  while (stmt.Step()) ids.push_back(static_cast<int64_t>(stmt.Column(0).NumberValue()));
  return ids;
}

// Sales and purchases with their lines, and advances, for most firms: what
// the debt, traffic, rest and history calls of the catalogues read.
void SeedDocuments(Database& db) {
  db.Exec(
      "INSERT INTO regions (ID, Name) VALUES (1, 'Vilniaus apskritis'),"
      " (2, 'Kauno apskritis'), (3, 'Klaipėdos apskritis'), (4, 'Šiaulių apskritis'),"
      " (5, 'Panevėžio apskritis'), (6, 'Alytaus apskritis');"
      "UPDATE firms SET CreditDays = CASE WHEN CreditLimit > 0 THEN 30 ELSE 0 END"
      " WHERE GroupFlag = 0;"
      "UPDATE firms SET FirmTypeId = 1 + ID % 3, RegionID = 1 + ID % 6 WHERE GroupFlag = 1;"
      "UPDATE goods SET WithRest = CASE WHEN GroupFlag = 0 AND GoodType = 0 THEN 1 ELSE 0 END,"
      " Garanty = CASE WHEN Code LIKE '04%' AND GroupFlag = 0 THEN 24 ELSE 0 END;");
  SampleRandom random(2004);
  const auto firms = Ids(db, "SELECT ID FROM firms WHERE GroupFlag = 0 ORDER BY ID");
  struct Good {
    int64_t id;
    double price;
    bool serial;
  };
  std::vector<Good> goods;
  {
    auto stmt = db.Prepare(
        "SELECT ID, Price, Code LIKE '04%' FROM goods WHERE GroupFlag = 0 AND GoodType = 0"
        " ORDER BY ID");
    while (stmt.Step()) {
      goods.push_back(Good{static_cast<int64_t>(stmt.Column(0).NumberValue()),
                           stmt.Column(1).NumberValue(), stmt.Column(2).NumberValue() != 0});
    }
  }
  const std::vector<std::string> stores(kSampleStores.begin(), kSampleStores.end());
  auto document = db.Prepare(
      "INSERT INTO documents (OType, DocName, Number, DocDate, FirmID, Account, Suma, Debt, Sign,"
      " GID) VALUES (?, ?, ?, ?, ?, ?, 0, 0, ?, ?)");
  auto line = db.Prepare(
      "INSERT INTO document_lines (DocumentID, GoodID, Amount, Price, Rest, Reserved, Store,"
      " Comment, SerialNo) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?)");
  auto totals = db.Prepare("UPDATE documents SET Suma = ?, Debt = ? WHERE ID = ?");
  const Date first = DateSerial(2025, 12, 1);
  int number = 0;
  int serial = 0;
  for (int64_t firm : firms) {
    const int count = random.Below(5);
    for (int n = 0; n < count; ++n) {
      const SampleDocumentKind& kind =
          kSampleDocumentKinds[random.Below(10) < 7 ? random.Below(2) : 2 + random.Below(2)];
      char text[16];
      std::snprintf(text, sizeof text, "%s%05d", kind.prefix, ++number);
      document.Reset();
      document
          .BindAll(kind.otype, kind.name, std::string(text), Date{first.serial + random.Below(350)},
                   firm, kind.account, kind.sign, kind.gid)
          .Run();
      const int64_t id = db.LastInsertRowId();
      double sum = 0;
      if (kind.lines) {
        for (int l = 1 + random.Below(3); l > 0; --l) {
          const Good& good =
              goods[static_cast<size_t>(random.Below(static_cast<int>(goods.size())))];
          const double amount = 1 + random.Below(20);
          const double price = std::round(good.price * (kind.sign > 0 ? 100.0 : 80.0)) / 100.0;
          const double rest = kind.sign < 0 ? random.Below(static_cast<int>(amount) + 1) : 0;
          const double reserved = rest >= 2 && random.Below(4) == 0 ? 1 : 0;
          Variant serialNo = Variant::Null();
          if (good.serial) {
            char sn[16];
            std::snprintf(sn, sizeof sn, "SN%06d", ++serial);
            serialNo = Variant(std::string(sn));
          }
          const Variant comment =
              random.Below(6) == 0 ? Variant("Skubus užsakymas") : Variant::Null();
          const auto& store = random.Pick(stores);
          line.Reset();
          line.BindAll(id, good.id, amount, price, rest, reserved, store, comment, serialNo)
              .Run();
          sum += amount * price;
        }
      } else {
        sum = 50.0 * (1 + random.Below(40));
      }
      sum = std::round(sum * 100.0) / 100.0;
      // What is still open: a whole or half unpaid sale or purchase, or an
      // advance not yet set off; Sign alone says who owes whom.
      const int open = random.Below(3);
      double debt = open == 0 ? 0 : (open == 1 ? sum : std::round(sum * 50.0) / 100.0);
      totals.Reset();
      totals.BindAll(sum, debt, id).Run();
    }
  }
}

// Notes and branches of some firms, and the price lists of some goods.
void SeedFirmDetails(Database& db) {
  SampleRandom random(1918);
  const auto firms = Ids(db, "SELECT ID FROM firms WHERE GroupFlag = 0 ORDER BY ID");
  const char* notes[] = {"Mokėjimai vėluoja", "Sutartis pratęsta",
                         "Reikalauti išankstinio apmokėjimo", "Pristatymas tik darbo dienomis",
                         "Naujas direktorius"};
  auto note = db.Prepare(
      "INSERT INTO firm_info (FirmID, Info, DateFrom, DateTo, UserName, Priority)"
      " VALUES (?, ?, ?, ?, ?, ?)");
  auto branch = db.Prepare(
      "INSERT INTO firm_branches (FirmID, Name, Code, Region, Street, Tel, Fax, EMail)"
      " VALUES (?, ?, ?, ?, ?, ?, NULL, ?)");
  const char* towns[] = {"Vilnius", "Kaunas", "Klaipėda", "Šiauliai"};
  for (size_t i = 0; i < firms.size(); ++i) {
    if (i % 7 == 0) {
      const int from = random.Below(300);
      const int priority = 1 + random.Below(3);
      const Variant to = random.Below(2) == 0
                             ? Variant::Null()
                             : Variant(Date{DateSerial(2026, 1, 1).serial + from + 400});
      const char* info = notes[random.Below(5)];
      note.Reset();
      note.BindAll(firms[i], info, Date{DateSerial(2026, 1, 1).serial + from}, to, "admin",
                   priority)
          .Run();
    }
    if (i % 15 == 0) {
      for (int b = 1 + random.Below(2); b > 0; --b) {
        const std::string town = towns[random.Below(4)];
        branch.Reset();
        const int tel = 2000000 + random.Below(999999);
        const int house = 1 + random.Below(80);
        const int code = 100 + random.Below(900);
        branch
            .BindAll(firms[i], town + " filialas", std::to_string(code), town,
                     "Vilniaus g. " + std::to_string(house), "+370 5 " + std::to_string(tel),
                     "info" + std::to_string(i) + "@pavyzdys.lt")
            .Run();
      }
    }
  }
  const auto goods = Ids(db, "SELECT ID FROM goods WHERE GroupFlag = 0 ORDER BY ID LIMIT 300");
  auto price = db.Prepare(
      "INSERT INTO goods_prices (GoodID, PriceType, Currency, Price, FirmID)"
      " SELECT ID, ?, ?, ROUND(Price * ?, 2), ? FROM goods WHERE ID = ?");
  for (int64_t good : goods) {
    price.Reset();
    price.BindAll("Mažmeninė", "EUR", 1.0, Variant::Null(), good).Run();
    price.Reset();
    price.BindAll("Didmeninė", "EUR", 0.9, Variant::Null(), good).Run();
    if (random.Below(5) == 0) {
      price.Reset();
      price
          .BindAll("Sutartinė", "EUR", 0.85,
                   firms[static_cast<size_t>(random.Below(static_cast<int>(firms.size())))], good)
          .Run();
    }
  }
}

// A file of the first version has the catalogues and their records but not
// what the catalogues' own calls read: the new columns are added, the two
// cards described again, and the new tables made and filled. The records
// already there stay as they are.
void UpgradeFromFirstVersion(Database& db) {
  db.Exec(
      "ALTER TABLE firms ADD COLUMN CreditDays INTEGER;"
      "ALTER TABLE goods ADD COLUMN WithRest BOOLEAN;"
      "ALTER TABLE goods ADD COLUMN Garanty REAL;"
      "DELETE FROM field_descriptions WHERE StructureName IN ('Firms', 'Goods');");
  for (const auto& catalogue : Catalogues()) {
    if (catalogue.name == "firms" || catalogue.name == "goods") DescribeCatalogue(db, catalogue);
  }
  CreateCallTables(db);
  SeedDocuments(db);
  SeedFirmDetails(db);
}

// The reference books and their sample records.
void SeedReferenceBooks(Database& db) {
  db.Exec(
      "INSERT INTO reference_books (BookOID, Name) VALUES ('O0001602', 'Įmonių tipai'),"
      " ('O0001603', 'Mokėjimo sąlygos'), ('O0001605', 'Sandėliai');"
      "INSERT INTO book_firm_types (Code, Name, ParentID, GroupFlag) VALUES"
      " ('T', 'Tiekėjai', 0, 1), ('P', 'Pirkėjai', 0, 1),"
      " ('T1', 'Žaliavų tiekėjas', 1, 0), ('T2', 'Paslaugų tiekėjas', 1, 0),"
      " ('P1', 'Didmeninis pirkėjas', 2, 0), ('P2', 'Mažmeninis pirkėjas', 2, 0),"
      " ('V', 'Valstybės įstaiga', 0, 0);"
      "INSERT INTO book_payment_terms (Code, Name, ParentID, GroupFlag, Days) VALUES"
      " ('IŠ', 'Išankstinis apmokėjimas', 0, 0, 0), ('14', 'Per 14 dienų', 0, 0, 14),"
      " ('30', 'Per 30 dienų', 0, 0, 30), ('60', 'Per 60 dienų', 0, 0, 60);"
      "INSERT INTO book_locations (Code, Name, ParentID, GroupFlag, Address) VALUES"
      " ('C', 'Centrinis sandėlis', 0, 0, 'Savanorių pr. 178, Vilnius'),"
      " ('K', 'Kauno sandėlis', 0, 0, 'Pramonės pr. 6, Kaunas'),"
      " ('PA', 'Parduotuvės', 0, 1, NULL),"
      " ('P1', 'Parduotuvė Gedimino pr.', 3, 0, 'Gedimino pr. 9, Vilnius');");
}

bool TableExists(Database& db, const std::string& table) {
  auto exists = db.Prepare(db.Kind() == Database::Engine::Postgres
                               ? PgTableExistsQuery()
                               : "SELECT COUNT(*) FROM sqlite_master WHERE type IN ('table', 'view')"
                                 " AND name = ?");
  exists.Bind(1, Variant(table));
  exists.Step();
  return exists.Column(0).NumberValue() != 0;
}

// Catalogues described after a file was made: their tables are made,
// described and filled; what is there already stays.
void CreateMissingCatalogues(Database& db) {
  bool books = false;
  for (const auto& catalogue : Catalogues()) {
    if (TableExists(db, catalogue.name)) continue;
    CreateCatalogueTable(db, catalogue);
    books = books || catalogue.name == "reference_books";
  }
  if (books) SeedReferenceBooks(db);
}

// The schema parts not yet made in this file, in their order.
std::vector<const SchemaPart*> MissingParts(Database& db) {
  std::vector<const SchemaPart*> missing;
  const bool kept = TableExists(db, "schema_parts");
  for (const auto& part : SchemaParts()) {
    if (kept) {
      auto made = db.Prepare("SELECT COUNT(*) FROM schema_parts WHERE Name = ?");
      made.Bind(1, Variant(part.name));
      made.Step();
      if (made.Column(0).NumberValue() != 0) continue;
    }
    missing.push_back(&part);
  }
  return missing;
}

bool SchemaIsComplete(Database& db) {
  for (const auto& catalogue : Catalogues()) {
    if (!TableExists(db, catalogue.name)) return false;
  }
  return TableExists(db, "schema_parts") && MissingParts(db).empty();
}

// Makes what a file of the current version lacks: catalogues described since
// and the schema parts not yet made. Runs inside the caller's transaction.
void CompleteSchema(Database& db) {
  CreateMissingCatalogues(db);
  db.Exec("CREATE TABLE IF NOT EXISTS schema_parts (Name TEXT PRIMARY KEY)");
  for (const SchemaPart* part : MissingParts(db)) {
    if (part->create) part->create(db);
    if (part->seed) part->seed(db);
    Insert(db, "INSERT INTO schema_parts (Name) VALUES (?)", {Variant(part->name)});
  }
}

}  // namespace

// The card's fields of a type in the table of field descriptions.
void DescribeCatalogue(Database& db, const CatalogueTable& catalogue) {
  auto describe = db.Prepare(
      "INSERT INTO field_descriptions (StructureName, Position, Name, Caption, Length, xType, "
      "Visible) VALUES (?, ?, ?, ?, ?, ?, ?)");
  describe.BindAll(catalogue.structureName, 0, "ID", "ID", 4, 56, 0).Run();
  int position = 0;
  for (const auto& field : catalogue.fields) {
    describe.Reset();
    describe
        .BindAll(catalogue.structureName, ++position, field.name, field.caption, field.length,
                 ServerTypeCode(field.type), field.visible ? 1 : 0)
        .Run();
  }
}

bool ReferenceDatabase::KeepsAnOffice(Database& db) {
  return TableExists(db, "schema_parts");
}

std::shared_ptr<Database> ReferenceDatabase::Open(const std::string& path) {
  if (PgDatabase::IsUrl(path)) {
    auto server = std::make_shared<PgDatabase>(path);
    // Two workstations started at once on a new server: one makes the office,
    // the other waits for it and finds it made.
    server->Exec("SELECT pg_advisory_lock(730101)");
    try {
      if (!KeepsAnOffice(*server)) {
        MakeOffice(*server);
        // The login that makes the office is its first bookkeeper, with every right.
        GrantEverything(*server, server->User());
      } else if (!SchemaIsComplete(*server)) {
        Transaction transaction(*server);
        CompleteSchema(*server);
        transaction.Commit();
      }
    } catch (...) {
      server->Exec("SELECT pg_advisory_unlock(730101)");
      throw;
    }
    server->Exec("SELECT pg_advisory_unlock(730101)");
    return server;
  }
  auto db = std::make_shared<SqliteDatabase>(path);
  // Read and let go: an open statement would keep the upgrade below from
  // dropping or remaking a table.
  const int found = [&db] {
    auto version = db->Prepare("PRAGMA user_version");
    version.Step();
    return static_cast<int>(version.Column(0).NumberValue());
  }();
  if (found == 0) {
    MakeOffice(*db);
  } else if (found < kSchemaVersion || !SchemaIsComplete(*db)) {
    Transaction transaction(*db);
    if (found == 1) UpgradeFromFirstVersion(*db);
    CompleteSchema(*db);
    db->Exec("PRAGMA user_version = " + std::to_string(kSchemaVersion));
    transaction.Commit();
  }
  return db;
}

namespace {

bool SameName(const std::string& a, const std::string& b) {
  return a.size() == b.size() &&
         std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) {
           return std::tolower(static_cast<unsigned char>(x)) ==
                  std::tolower(static_cast<unsigned char>(y));
         });
}

// The tables of a database in the order they were made, so that a table
// comes after those it names.
std::vector<std::string> TablesInOrder(Database& db) {
  auto tables = db.Prepare(
      db.Kind() == Database::Engine::Postgres
          ? "SELECT c.relname FROM pg_class c JOIN pg_namespace n ON n.oid = c.relnamespace"
            " WHERE n.nspname = current_schema() AND c.relkind = 'r' ORDER BY c.oid"
          : "SELECT name FROM sqlite_master WHERE type = 'table' AND name NOT LIKE 'sqlite_%'"
            " ORDER BY rowid");
  std::vector<std::string> made;
  while (tables.Step()) made.push_back(tables.Column(0).String());
  // What other records name comes first: the reference books (a good names
  // its unit, a firm its type), the stock templates and document groups, the
  // banks and currencies; the checks of the tables that name them ask for them.
  std::vector<std::string> out;
  for (const auto& catalogue : Catalogues()) {
    const bool named = catalogue.oid.rfind("O00016", 0) == 0 || catalogue.oid == "O0201600" ||
                       catalogue.oid == "O1000200" || catalogue.oid == "O0000300" ||
                       catalogue.oid == "O0002200";
    if (!named || !catalogue.view.empty()) continue;
    for (const auto& table : made) {
      if (SameName(table, catalogue.name)) out.push_back(table);
    }
  }
  for (const auto& table : made) {
    if (std::find(out.begin(), out.end(), table) == out.end()) out.push_back(table);
  }
  return out;
}

std::vector<std::string> ColumnNames(Database& db, const std::string& table) {
  auto columns = db.Prepare("SELECT * FROM " + table + " WHERE 1 = 0");
  std::vector<std::string> out;
  for (int c = 0; c < columns.ColumnCount(); ++c) out.push_back(columns.ColumnName(c));
  return out;
}


}  // namespace

int64_t ReferenceDatabase::CopyOffice(Database& from, Database& to) {
  if (KeepsAnOffice(to)) {
    throw DatabaseError(-1, "Į " + to.Path() + " kopijuoti negalima: ten jau yra duomenų bazė");
  }
  Transaction transaction(to);
  if (to.Kind() == Database::Engine::Postgres) to.Exec(PgPrelude());
  CreateSchema(to);
  to.Exec("CREATE TABLE IF NOT EXISTS schema_parts (Name TEXT PRIMARY KEY)");
  for (const auto& part : SchemaParts()) {
    if (part.create) part.create(to);
  }
  CreateMissingCatalogues(to);
  // The rows come in as they are, with no trigger of the tables firing
  // (names made from other fields, checks, versions moved on). A file's
  // triggers are made again after the copy, its references checked at the
  // commit; a server's rest while each table is filled.
  const bool server = to.Kind() == Database::Engine::Postgres;
  std::vector<std::string> triggers;
  if (!server) {
    to.Exec("PRAGMA defer_foreign_keys = ON");
    auto made = to.Prepare("SELECT name, sql FROM sqlite_master WHERE type = 'trigger'");
    std::vector<std::string> names;
    while (made.Step()) {
      names.push_back(made.Column(0).String());
      triggers.push_back(made.Column(1).String());
    }
    for (const auto& name : names) to.Exec("DROP TRIGGER " + name);
  }
  int64_t copied = 0;
  for (const std::string& table : TablesInOrder(from)) {
    if (!TableExists(to, table)) continue;
    std::vector<std::string> columns;
    const auto theirs = ColumnNames(to, table);
    for (const std::string& column : ColumnNames(from, table)) {
      if (std::any_of(theirs.begin(), theirs.end(),
                      [&](const std::string& c) { return SameName(c, column); })) {
        columns.push_back(column);
      }
    }
    if (columns.empty()) continue;
    std::string list;
    std::string marks;
    for (const auto& column : columns) {
      list += (list.empty() ? "" : ", ") + column;
      marks += marks.empty() ? "?" : ", ?";
    }
    to.Exec("DELETE FROM " + table);
    if (server) to.Exec("ALTER TABLE " + table + " DISABLE TRIGGER USER");
    auto read = from.Prepare("SELECT " + list + " FROM " + table);
    auto write = to.Prepare("INSERT INTO " + table + " (" + list + ") VALUES (" + marks + ")");
    while (read.Step()) {
      write.Reset();
      for (size_t c = 0; c < columns.size(); ++c) {
        write.Bind(static_cast<int>(c) + 1, read.Column(static_cast<int>(c)));
      }
      write.Run();
      ++copied;
    }
    const bool keyed = SameName(columns.front(), "ID");
    if (server) {
      to.Exec("ALTER TABLE " + table + " ENABLE TRIGGER USER");
      if (keyed) to.Prepare(PgFollowIds(table)).Run();
    }
  }
  for (const auto& trigger : triggers) to.Exec(trigger);
  if (!server) to.Exec("PRAGMA user_version = " + std::to_string(kSchemaVersion));
  transaction.Commit();
  return copied;
}

void ReferenceDatabase::MakeOffice(Database& db) {
  Transaction transaction(db);
  if (db.Kind() == Database::Engine::Postgres) db.Exec(PgPrelude());
  CreateSchema(db);
  SeedSampleData(db);
  CompleteSchema(db);
  if (db.Kind() == Database::Engine::Sqlite) {
    db.Exec("PRAGMA user_version = " + std::to_string(kSchemaVersion));
  }
  transaction.Commit();
}

void ReferenceDatabase::CreateSchema(Database& db) {
  db.Exec(
      "CREATE TABLE field_descriptions (StructureName TEXT NOT NULL, Position INTEGER NOT NULL,"
      " Name TEXT NOT NULL, Caption TEXT, Length INTEGER, xType INTEGER, Visible INTEGER,"
      " PRIMARY KEY (StructureName, Position));"
      "CREATE TABLE users (ID INTEGER PRIMARY KEY AUTOINCREMENT, Name TEXT UNIQUE NOT NULL,"
      " FullName TEXT);"
      "CREATE TABLE user_rights (UserID INTEGER NOT NULL REFERENCES users(ID), Component TEXT"
      " NOT NULL, CanRead BOOLEAN, CanInsert BOOLEAN, CanUpdate BOOLEAN, CanDelete BOOLEAN,"
      " Allowed BOOLEAN, PRIMARY KEY (UserID, Component));"
      "CREATE TABLE user_settings (UserID INTEGER NOT NULL REFERENCES users(ID), Name TEXT NOT"
      " NULL, Value TEXT, PRIMARY KEY (UserID, Name));");
  for (const auto& catalogue : Catalogues()) CreateCatalogueTable(db, catalogue);
  db.Exec(
      "CREATE TABLE currency_rates (CurrencyID INTEGER NOT NULL REFERENCES currencies(ID),"
      " RateDate DATE NOT NULL, Rate REAL NOT NULL, PRIMARY KEY (CurrencyID, RateDate));");
  CreateCallTables(db);
}

void ReferenceDatabase::GrantEverything(Database& db, const std::string& user) {
  auto add = db.Prepare(
      "INSERT INTO users (Name) SELECT ?1 WHERE NOT EXISTS (SELECT 1 FROM users WHERE Name = ?1)");
  add.BindAll(user).Run();
  auto grant = db.Prepare(
      "INSERT INTO user_rights (UserID, Component, CanRead, CanInsert, CanUpdate, CanDelete,"
      " Allowed) SELECT ID, '*', 1, 1, 1, 1, 1 FROM users u WHERE Name = ? AND NOT EXISTS"
      " (SELECT 1 FROM user_rights r WHERE r.UserID = u.ID AND r.Component = '*')");
  grant.BindAll(user).Run();
}

void ReferenceDatabase::SeedSampleData(Database& db) {
  db.Exec(
      "INSERT INTO users (Name, FullName) VALUES ('admin', 'Administratorius'),"
      " ('buhalteris', 'Rūta Buhalterė');"
      "INSERT INTO user_rights (UserID, Component, CanRead, CanInsert, CanUpdate, CanDelete,"
      " Allowed) SELECT ID, '*', 1, 1, 1, 1, 1 FROM users WHERE Name = 'admin';");
  SeedBanks(db);
  SeedMeasures(db);
  SeedFirms(db);
  SeedGoods(db);
  RetireSampleGoods(db);
  SeedCurrencies(db);
  SeedDocuments(db);
  SeedFirmDetails(db);
  SeedReferenceBooks(db);
}

}  // namespace orvel
