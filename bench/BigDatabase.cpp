#include "BigDatabase.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <random>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "bizlayer/PgDatabase.h"
#include "bizlayer/ReferenceDatabase.h"
#include "bizlayer/SqliteDatabase.h"
#include "bizlayer/Database.h"

namespace orvel::bigdb {

namespace {

// Words the names are made of, in the sample data's manner: "Makaronai,
// Kauno, ekonominė pakuotė".
constexpr std::array<std::string_view, 40> kGoods{
    "Ryžiai",      "Makaronai",   "Duona ruginė", "Pienas",       "Sūris",       "Sviestas",
    "Kava malta",  "Arbata",      "Cukrus",       "Miltai",       "Aliejus",     "Sultys",
    "Vanduo",      "Varžtai",     "Vinys",        "Dažai",        "Glaistas",    "Cementas",
    "Plytos",      "Lentos",      "Gipso plokštė", "Klijai",      "Popierius",   "Sąsiuviniai",
    "Tušinukai",   "Segtuvai",    "Aplankai",     "Rašalas",      "Šaldytuvas",  "Skalbyklė",
    "Viryklė",     "Mikrobangė",  "Dulkių siurblys", "Virdulys",  "Lygintuvas",  "Šviestuvas",
    "Kabelis",     "Jungiklis",   "Lemputė",      "Čiaupas"};
constexpr std::array<std::string_view, 16> kMakers{
    "Baltijos",  "Kauno",     "Žalgirio",   "Vilniaus",  "Dzūkijos", "Aukštaitijos",
    "Žemaitijos", "Nemuno",   "Šiaulių",    "Panevėžio", "Utenos",   "Alytaus",
    "Klaipėdos", "Suvalkijos", "Neringos",  "Rasos"};
constexpr std::array<std::string_view, 12> kPacks{
    "vnt.",          "didelė pakuotė", "ekonominė pakuotė", "šeimos pakuotė", "1 kg",   "0,5 kg",
    "1 l",           "0,5 l",          "10 vnt.",           "25 kg",          "5 l",    "dėžė"};
constexpr std::array<std::string_view, 10> kGroupWords{
    "Maisto prekės", "Statybinės medžiagos", "Biuro prekės", "Buitinė technika", "Elektros prekės",
    "Santechnika",   "Įrankiai",             "Chemija",      "Tekstilė",          "Sodo prekės"};
constexpr std::array<std::string_view, 8> kFirmForms{"UAB", "AB", "MB", "ŽŪB", "IĮ", "UAB", "UAB", "VšĮ"};
constexpr std::array<std::string_view, 12> kFirmWords{
    "prekyba", "servisas", "duona",   "pienas", "technika", "statyba",
    "logistika", "baldai", "sistemos", "prekės", "energija", "agro"};
constexpr std::array<std::string_view, 10> kTowns{"Vilnius",  "Kaunas",   "Klaipėda", "Šiauliai",
                                                  "Panevėžys", "Alytus",  "Marijampolė", "Utena",
                                                  "Telšiai",  "Tauragė"};
constexpr std::array<std::string_view, 8> kStreets{"Vilniaus g.", "Taikos pr.", "Žalgirio g.",
                                                   "Laisvės al.", "Gedimino pr.", "Sodų g.",
                                                   "Pramonės g.", "Ateities g."};
constexpr int64_t kTopGroups = 10;
constexpr int64_t kSubGroups = 10;  // under each top group, and again under each of those
constexpr int64_t kFirmGroups = 20;
constexpr int64_t kBatch = 20000;  // rows a transaction

template <class Array>
std::string_view Pick(const Array& words, uint64_t r) {
  return words[r % words.size()];
}

std::string Digits(uint64_t value, int width) {
  char text[32];
  std::snprintf(text, sizeof text, "%0*llu", width, static_cast<unsigned long long>(value));
  return text;
}

std::string Date(uint64_t r) {
  // Two years of days, 2025-01-01 on; every month taken as 28 days keeps it simple.
  const int day = static_cast<int>(r % (24 * 28));
  char text[16];
  std::snprintf(text, sizeof text, "%04d-%02d-%02d", 2025 + day / (12 * 28), day / 28 % 12 + 1,
                day % 28 + 1);
  return text;
}

double Money(uint64_t cents) { return static_cast<double>(cents) / 100.0; }

// Rows in transactions of kBatch, the progress told after each.
class Filler {
 public:
  Filler(Database& db, int64_t total, const Progress& progress)
      : db_(db), total_(std::max<int64_t>(total, 1)), progress_(progress) {}
  void Row() {
    if (!transaction_) transaction_ = std::make_unique<Transaction>(db_);
    if (++done_ % kBatch == 0) Commit();
  }

  void Commit() {
    if (!transaction_) return;
    transaction_->Commit();
    transaction_.reset();
    if (progress_) progress_(std::min(1.0, static_cast<double>(done_) / static_cast<double>(total_)));
  }

 private:
  Database& db_;
  int64_t total_;
  int64_t done_ = 0;
  const Progress& progress_;
  std::unique_ptr<Transaction> transaction_;
};

// Whether the server's database already keeps an office: the bulk fill
// starts only on an empty one.
bool HoldsAnOffice(const std::string& url) {
  PgDatabase server(url);
  return ReferenceDatabase::KeepsAnOffice(server);
}

}  // namespace

Made Make(const std::string& path, const Size& size, const Progress& progress) {
  const int64_t leafGroups = kTopGroups * kSubGroups * kSubGroups;
  if (size.goods < 1 || size.firms < 1 || size.documents < 1 || size.groupGoods < 0 ||
      size.groupGoods >= size.goods || size.firmDocuments < 0 ||
      size.firmDocuments > size.documents || size.goodMovements < 0 ||
      size.goods - size.groupGoods < 1) {
    throw std::invalid_argument(
        "dydžiai netinka: prekių turi būti daugiau nei grupės prekių, dokumentų ne mažiau nei "
        "firmos dokumentų, ir kiekvieno bent po vieną");
  }
  const bool server = PgDatabase::IsUrl(path);
  if (server ? HoldsAnOffice(path) : std::filesystem::exists(path)) {
    throw std::invalid_argument((server ? "serveryje " + path + " jau yra apskaita"
                                        : "failas " + path + " jau yra") +
                                ": duomenų bazė daroma iš naujo");
  }

  auto db = ReferenceDatabase::Open(path);
  // The bulk fill is written once and checked by the rows it holds; a crash
  // half way leaves a database to throw away, so the log need not reach the
  // disk at every commit.
  if (server) {
    db->Exec("SET synchronous_commit = off");
  } else {
    db->Exec("PRAGMA synchronous = OFF");
    // The goods' index by group and name grows in random order: a cache
    // that holds it saves reading its pages back again and again.
    db->Exec("PRAGMA cache_size = -262144");
  }
  std::mt19937_64 gen(size.seed);
  Made made;

  const int64_t groups = kTopGroups + kTopGroups * kSubGroups + leafGroups + 1;
  const int64_t lines = size.documents * 5 / 4 + size.goodMovements;  // about
  Filler fill(*db, groups + size.goods + size.firms + size.documents + lines, progress);

  // Goods groups three deep, and the large group under the first top group.
  auto group = db->Prepare(
      "INSERT INTO goods (Name, Code, ParentID, GroupFlag, GoodType, AmountPrecision, Price,"
      " VatRate, PriceWithVAT, Active, WithRest, WithItems, Garanty, CreatedByUser, CreationDate)"
      " VALUES (?, ?, ?, 1, 0, 2, 0.0, 21.0, 0, 1, 0, 0, 0.0, 'admin', '2025-01-02')");
  auto addGroup = [&](const std::string& name, const std::string& code, int64_t parent) {
    group.Reset();
    group.BindAll(name, code);
    group.Bind(3, parent > 0 ? Variant(parent) : Variant::Null());
    group.Run();
    fill.Row();
    ++made.goods;
    return db->LastInsertRowId();
  };
  std::vector<int64_t> leaves;
  std::vector<std::string> leafCodes;
  for (int64_t t = 0; t < kTopGroups; ++t) {
    const std::string topCode = "9" + Digits(static_cast<uint64_t>(t), 1);
    const int64_t top = addGroup(std::string(kGroupWords[static_cast<size_t>(t)]) + " (didmena)",
                                 topCode, 0);
    if (t == 0) made.bigGroupId = addGroup("Didmenos sandėlis", topCode + "99", top);
    for (int64_t s = 0; s < kSubGroups; ++s) {
      const std::string subCode = topCode + Digits(static_cast<uint64_t>(s), 2);
      const int64_t sub = addGroup(std::string(Pick(kGoods, gen())) + " ir kt. " +
                                       std::to_string(t * kSubGroups + s + 1),
                                   subCode, top);
      for (int64_t l = 0; l < kSubGroups; ++l) {
        const std::string leafCode = subCode + Digits(static_cast<uint64_t>(l), 2);
        leaves.push_back(addGroup(std::string(Pick(kMakers, gen())) + " gaminiai " +
                                      std::to_string((t * kSubGroups + s) * kSubGroups + l + 1),
                                  leafCode, sub));
        leafCodes.push_back(leafCode);
      }
    }
  }

  // Goods: the large group's first, then the rest over the leaf groups. One
  // good in ten has a reduced VAT rate, given as VAT (the layer keeps VatRate
  // after it) and a wholesale price besides its own.
  auto good = db->Prepare(
      "INSERT INTO goods (Name, Code, BarCode, ParentID, GroupFlag, GoodType, MeasureID,"
      " AmountPrecision, Price, VatRate, VAT, PriceWithVAT, Active, WithRest, WithItems, Garanty,"
      " CreatedByUser, CreationDate) VALUES (?, ?, ?, ?, 0, 0, ?, 2, ?, 21.0, ?, 0, ?, 1, 0, 0.0,"
      " 'admin', ?)");
  auto wholesale = db->Prepare(
      "INSERT INTO goods_prices (GoodID, GoodPriceTypeID, Price, Currency, PriceType, Name)"
      " VALUES (?, 2, ?, 'EUR', 'Didmeninė', 'Didmeninė')");
  std::vector<int64_t> goodIds;
  goodIds.reserve(static_cast<size_t>(size.goods));
  std::vector<double> prices;
  prices.reserve(static_cast<size_t>(size.goods));
  for (int64_t i = 0; i < size.goods; ++i) {
    const uint64_t r = gen();
    const bool big = i < size.groupGoods;
    const size_t leaf = static_cast<size_t>((r >> 20) % static_cast<uint64_t>(leafGroups));
    const std::string name = std::string(Pick(kGoods, r)) + ", " +
                             std::string(Pick(kMakers, r >> 8)) + ", " +
                             std::string(Pick(kPacks, r >> 12)) + " " +
                             Digits((r >> 32) % 100000, 5);
    const std::string code = (big ? "9099" : leafCodes[leaf]) + Digits(static_cast<uint64_t>(i), 7);
    const double price = Money(50 + (r >> 40) % 50000);
    const bool reduced = (r >> 16) % 10 == 0;
    good.Reset();
    good.BindAll(name, code, "477" + Digits(static_cast<uint64_t>(i), 10),
                 big ? made.bigGroupId : leaves[leaf], static_cast<int>(1 + (r >> 24) % 4), price);
    good.Bind(7, reduced ? Variant(static_cast<int>((r >> 28) % 2 == 0 ? 9 : 5)) : Variant::Null());
    good.Bind(8, Variant((r >> 30) % 50 != 0));
    good.Bind(9, Variant(Date(r >> 36)));
    good.Run();
    const int64_t id = db->LastInsertRowId();
    if (reduced) {
      wholesale.Reset();
      wholesale.BindAll(id, Money(static_cast<uint64_t>(price * 90)));
      wholesale.Run();
    }
    goodIds.push_back(id);
    prices.push_back(price);
    fill.Row();
    ++made.goods;
  }
  // The busy good sits among the ordinary ones.
  made.busyGoodId = goodIds[static_cast<size_t>(size.groupGoods + (size.goods - size.groupGoods) / 2)];

  // Firms in groups two deep under a group of their own.
  auto firm = db->Prepare(
      "INSERT INTO firms (Name, Code, VATCode, Address, Phone, ParentID, GroupFlag, Active,"
      " FirmTypeId, RegionID, BankID, Account, CreditLimit, CreditDays, CreatedByUser,"
      " CreationDate) VALUES (?, ?, ?, ?, ?, ?, ?, 1, ?, ?, ?, ?, ?, ?, 'admin', '2025-01-02')");
  auto addFirmGroup = [&](const std::string& name, int64_t parent) {
    firm.Reset();
    firm.BindAll(name, "", "", "", "");
    for (int column = 6; column <= 13; ++column) firm.Bind(column, Variant::Null());
    if (parent > 0) firm.Bind(6, Variant(parent));
    firm.Bind(7, Variant(1));
    firm.Run();
    fill.Row();
    return db->LastInsertRowId();
  };
  const int64_t firmRoot = addFirmGroup("Didmenos klientai", 0);
  std::vector<int64_t> firmGroups;
  for (int64_t g = 0; g < kFirmGroups; ++g) {
    firmGroups.push_back(addFirmGroup(std::string(kTowns[static_cast<size_t>(g) % kTowns.size()]) +
                                          " " + std::to_string(g / 10 + 1),
                                      firmRoot));
  }
  std::vector<int64_t> firmIds;
  firmIds.reserve(static_cast<size_t>(size.firms));
  for (int64_t i = 0; i < size.firms; ++i) {
    const uint64_t r = gen();
    const std::string code = "3" + Digits(static_cast<uint64_t>(i), 8);
    const std::string name = std::string(Pick(kFirmForms, r)) + " „" +
                             std::string(Pick(kMakers, r >> 4)) + " " +
                             std::string(Pick(kFirmWords, r >> 8)) + " " +
                             std::to_string(i + 1) + "“";
    const std::string address = std::string(Pick(kStreets, r >> 12)) + " " +
                                std::to_string(1 + (r >> 16) % 150) + ", " +
                                std::string(Pick(kTowns, r >> 24));
    firm.Reset();
    firm.BindAll(name, code, "LT" + code, address,
                 "+370 6" + Digits((r >> 28) % 100, 2) + " " + Digits((r >> 36) % 100000, 5),
                 firmGroups[static_cast<size_t>((r >> 44) % kFirmGroups)], 0, 1,
                 static_cast<int>(1 + (r >> 48) % 6), static_cast<int>(1 + (r >> 52) % 6),
                 "LT" + Digits(70440000000000000 + static_cast<uint64_t>(i), 18),
                 Money(100000 * (1 + (r >> 56) % 20)), 30);
    firm.Run();
    firmIds.push_back(db->LastInsertRowId());
    fill.Row();
    ++made.firms;
  }
  made.busyFirmId = firmIds[firmIds.size() / 2];

  // Documents, the busy firm's spread among the others, and their lines:
  // invoices carry one to four goods, and the busy good rides along until it
  // has its movements.
  auto document = db->Prepare(
      "INSERT INTO documents (OType, DocName, Number, DocDate, FirmID, Account, Suma, Debt, Sign,"
      " GID) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?)");
  auto line = db->Prepare(
      "INSERT INTO document_lines (DocumentID, GoodID, Amount, Price, Rest, Reserved, Store,"
      " PurchaseLineID) VALUES (?, ?, ?, ?, ?, 0, ?, ?)");
  // A sale takes its good from the good's latest purchase lot, as a lot-kept
  // warehouse records it; a sale before any purchase names none.
  std::vector<int64_t> latestLot(static_cast<size_t>(size.goods), 0);
  auto total = db->Prepare("UPDATE documents SET Suma = ?, Debt = ? WHERE ID = ?");
  int64_t busyLeft = size.goodMovements;
  const int64_t invoices = (size.documents + 1) / 2;  // every other document is an invoice
  const int64_t busyPerInvoice = invoices > 0 ? (busyLeft + invoices - 1) / invoices : 0;
  for (int64_t i = 0; i < size.documents; ++i) {
    const uint64_t r = gen();
    // The busy firm's documents come evenly spaced among the others'.
    const bool busyFirm = (i * size.firmDocuments) / size.documents !=
                          ((i + 1) * size.firmDocuments) / size.documents;
    const SampleDocumentKind& kind = kSampleDocumentKinds[i % 2 == 0 ? (r % 2) : 2 + (r >> 2) % 2];
    const int64_t firmId = busyFirm ? made.busyFirmId : firmIds[(r >> 8) % firmIds.size()];
    const double advance = Money(10000 + (r >> 24) % 500000);
    document.Reset();
    document.BindAll(kind.otype, kind.name,
                     std::string(kind.prefix) + Digits(static_cast<uint64_t>(i + 1), 7),
                     Date(r >> 40), firmId, kind.account, advance, (r >> 60) % 2 ? 0.0 : advance,
                     kind.sign, kind.gid);
    document.Run();
    const int64_t documentId = db->LastInsertRowId();
    fill.Row();
    ++made.documents;
    if (!kind.lines) continue;
    double sum = 0;
    auto addLine = [&](int64_t goodIndex, uint64_t lr) {
      const double amount = static_cast<double>(1 + lr % 20);
      const double price = prices[static_cast<size_t>(goodIndex)];
      const double rest = kind.sign < 0 ? static_cast<double>((lr >> 8) % (1 + lr % 20)) : 0.0;
      line.Reset();
      int64_t& lot = latestLot[static_cast<size_t>(goodIndex)];
      line.BindAll(documentId, goodIds[static_cast<size_t>(goodIndex)], amount, price, rest,
                   std::string(Pick(kSampleStores, lr >> 16)));
      line.Bind(7, kind.sign > 0 && lot > 0 ? Variant(lot) : Variant::Null());
      line.Run();
      if (kind.sign < 0) lot = db->LastInsertRowId();
      sum += amount * price;
      fill.Row();
      ++made.lines;
    };
    const int count = 1 + static_cast<int>((r >> 4) % 4);
    for (int k = 0; k < count; ++k) {
      const uint64_t lr = gen();
      addLine(static_cast<int64_t>(lr % static_cast<uint64_t>(size.goods)), lr >> 20);
    }
    const int64_t busyGoodIndex = size.groupGoods + (size.goods - size.groupGoods) / 2;
    for (int64_t k = 0; k < busyPerInvoice && busyLeft > 0; ++k, --busyLeft) {
      addLine(busyGoodIndex, gen());
    }
    sum = static_cast<double>(static_cast<int64_t>(sum * 100 + 0.5)) / 100;
    total.Reset();
    total.BindAll(sum, (r >> 60) % 2 ? 0.0 : sum, documentId);
    total.Run();
  }
  fill.Commit();
  if (progress) progress(1.0);
  return made;
}

}  // namespace orvel::bigdb
