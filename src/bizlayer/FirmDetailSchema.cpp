// The tables of a firm's contracts and discounts, and the sample details of
// the firms: accounts, addresses, contacts, managers, activities, contracts
// and discounts. The detail catalogues' own tables are made with the
// catalogues; this part fills them.
#include <string>

#include "bizlayer/SchemaParts.h"
#include "bizlayer/Database.h"

namespace orvel {

namespace {

void CreateFirmDetailTables(Database& db) {
  db.Exec(
      "CREATE TABLE IF NOT EXISTS firm_contracts (ID INTEGER PRIMARY KEY AUTOINCREMENT,"
      " FirmID INTEGER NOT NULL REFERENCES firms(ID) ON DELETE CASCADE,"
      " OType TEXT NOT NULL DEFAULT 'O1001000', ContractNumber TEXT NOT NULL, DateFrom DATE,"
      " DateTo DATE, SumA REAL NOT NULL DEFAULT 0, State TEXT, Responsible TEXT);"
      "CREATE INDEX IF NOT EXISTS firm_contracts_firm ON firm_contracts (FirmID);"
      "CREATE TABLE IF NOT EXISTS firm_discounts (ID INTEGER PRIMARY KEY AUTOINCREMENT,"
      " FirmID INTEGER NOT NULL REFERENCES firms(ID) ON DELETE CASCADE,"
      " DiscountTypeName TEXT NOT NULL, VariantName TEXT, SumFrom REAL, SumTo REAL,"
      " Percent REAL NOT NULL, GoodName TEXT, Valid BOOLEAN NOT NULL DEFAULT 1);"
      "CREATE INDEX IF NOT EXISTS firm_discounts_firm ON firm_discounts (FirmID);"
      "CREATE INDEX IF NOT EXISTS firm_accounts_firm ON firm_accounts (FOIDR);"
      "CREATE INDEX IF NOT EXISTS firm_addresses_firm ON firm_addresses (FirmID);"
      "CREATE INDEX IF NOT EXISTS firm_contacts_firm ON firm_contacts (FirmID);"
      "CREATE INDEX IF NOT EXISTS firm_managers_firm ON firm_managers (FirmID);"
      "CREATE INDEX IF NOT EXISTS firm_activities_firm ON firm_activities (FirmID);");
}

// Every third firm, counted by ID, has details; so has the first firm, which
// the walk-through opens. The rows follow from the firm's ID alone.
void SeedFirmDetailRows(Database& db) {
  // Made again over a file that has them (its record of parts lost): the
  // rows there stay as they are.
  {
    auto made = db.Prepare("SELECT COUNT(*) FROM firm_contracts");
    if (made.Step() && made.Column(0).NumberValue() != 0) return;
  }
  // The firms with details, numbered by ID: every statement reads them anew,
  // so the part leaves no table of its own behind.
  const std::string detailed =
      "(SELECT ID, Name, Address, N FROM (SELECT ID, Name, Address, ROW_NUMBER() OVER"
      " (ORDER BY ID) AS N FROM firms WHERE GroupFlag = 0) numbered WHERE N % 3 = 1)";
  std::string sql =
      "INSERT INTO firm_accounts (Name, BankID, Currency, FOIDR)"
      " SELECT 'LT' || printf('%02d', 10 + d.ID % 89) || ' 7300 0100 ' || printf('%04d', d.ID)"
      " || ' ' || printf('%04d', 1000 + d.N), (SELECT MIN(ID) FROM banks), 'LTL', 'O0000100' || "
      "d.ID"
      " FROM firm_detail_seed d;"
      "INSERT INTO firm_accounts (Name, BankID, Currency, FOIDR)"
      " SELECT 'LT' || printf('%02d', 11 + d.ID % 83) || ' 4010 0510 ' || printf('%04d', d.ID)"
      " || ' 0001', (SELECT MAX(ID) FROM banks),"
      " 'EUR', 'O0000100' || d.ID FROM firm_detail_seed d WHERE d.N % 2 = 1;"
      "INSERT INTO firm_addresses (Name, Region, PostCode, Street, Phone, Fax, EMail, FlagMain,"
      " FirmID) SELECT 'Buveinės', CASE d.ID % 3 WHEN 0 THEN 'Vilnius' WHEN 1 THEN 'Kaunas'"
      " ELSE 'Klaipėda' END, 'LT-' || printf('%05d', 1000 + d.ID * 37 % 9000),"
      " COALESCE(d.Address, 'Gedimino pr. ' || d.N), '+370 5 ' || (2100000 + d.ID), NULL,"
      " 'info' || d.ID || '@pavyzdys.lt', 1, d.ID FROM firm_detail_seed d;"
      "INSERT INTO firm_addresses (Name, Region, PostCode, Street, Phone, Fax, EMail, FlagMain,"
      " FirmID) SELECT 'Pristatymo', 'Vilnius', 'LT-02244', 'Savanorių pr. ' || d.N,"
      " NULL, '+370 5 ' || (2200000 + d.ID), NULL, 0, d.ID FROM firm_detail_seed d WHERE d.N % 2 = "
      "1;"
      "INSERT INTO firm_contacts (Name, LastName, Role, Phone, Fax, EMail, Note, FlagMain,"
      " FirmID) SELECT CASE d.ID % 4 WHEN 0 THEN 'Jonas' WHEN 1 THEN 'Asta' WHEN 2 THEN"
      " 'Mindaugas' ELSE 'Rasa' END, CASE d.ID % 4 WHEN 0 THEN 'Petraitis' WHEN 1 THEN"
      " 'Kazlauskienė' WHEN 2 THEN 'Jankauskas' ELSE 'Stankevičienė' END, 'Direktorius',"
      " '+370 6' || (1000000 + d.ID * 7919 % 8999999), NULL, 'vadovas' || d.ID || '@pavyzdys.lt',"
      " NULL, 1, d.ID FROM firm_detail_seed d;"
      "INSERT INTO firm_contacts (Name, LastName, Role, Phone, Fax, EMail, Note, FlagMain,"
      " FirmID) SELECT 'Ona', 'Vaitkienė', 'Buhalterė', '+370 5 ' || (2300000 + d.ID), NULL,"
      " NULL, 'Skambinti po 10 val.', 0, d.ID FROM firm_detail_seed d WHERE d.N % 2 = 1;"
      "INSERT INTO firm_managers (Name, FirmID) SELECT CASE d.ID % 2 WHEN 0 THEN"
      " 'Rūta Buhalterė' ELSE 'Administratorius' END, d.ID FROM firm_detail_seed d;"
      "INSERT INTO firm_activities (Name, FirmID) SELECT CASE d.ID % 3 WHEN 0 THEN"
      " 'Didmeninė prekyba' WHEN 1 THEN 'Statybos darbai' ELSE 'Transporto paslaugos' END,"
      " d.ID FROM firm_detail_seed d;"
      "INSERT INTO firm_activities (Name, FirmID) SELECT 'Mažmeninė prekyba', d.ID"
      " FROM firm_detail_seed d WHERE d.N % 2 = 1;"
      "INSERT INTO firm_contracts (FirmID, ContractNumber, DateFrom, DateTo, SumA, State,"
      " Responsible) SELECT d.ID, 'S-2026/' || printf('%03d', d.N), '2026-01-01', '2026-12-31',"
      " 1000.0 * (1 + d.ID % 9), 'Galioja', 'Rūta Buhalterė' FROM firm_detail_seed d;"
      "INSERT INTO firm_contracts (FirmID, ContractNumber, DateFrom, DateTo, SumA, State,"
      " Responsible) SELECT d.ID, 'S-2025/' || printf('%03d', d.N), '2025-01-01', '2025-12-31',"
      " 550.5, 'Pasibaigusi', 'Administratorius' FROM firm_detail_seed d WHERE d.N % 2 = 1;"
      "INSERT INTO firm_discounts (FirmID, DiscountTypeName, VariantName, SumFrom, SumTo,"
      " Percent, GoodName, Valid) SELECT d.ID, 'Nuolatinio kliento', 'Didmena', 100, 0, 5,"
      " NULL, 1 FROM firm_detail_seed d;"
      "INSERT INTO firm_discounts (FirmID, DiscountTypeName, VariantName, SumFrom, SumTo,"
      " Percent, GoodName, Valid) SELECT d.ID, 'Sezoninė', 'Vasara', 50, 500, 2.5,"
      " 'Statybinės medžiagos', 0 FROM firm_detail_seed d WHERE d.N % 2 = 1;"
      "INSERT INTO firm_discounts (FirmID, DiscountTypeName, VariantName, SumFrom, SumTo,"
      " Percent, GoodName, Valid) SELECT ID, 'Grupės nuolaida', NULL, NULL, NULL, 3, NULL, 1"
      " FROM firms WHERE GroupFlag = 1 AND (ParentID IS NULL OR ParentID = 0)"
      " ORDER BY ID LIMIT 1;";
  for (size_t at = sql.find("firm_detail_seed"); at != std::string::npos;
       at = sql.find("firm_detail_seed", at + detailed.size())) {
    sql.replace(at, std::string("firm_detail_seed").size(), detailed);
  }
  db.Exec(sql);
}

}  // namespace

SchemaPart FirmDetailSchema() {
  return {"firm-details", CreateFirmDetailTables, SeedFirmDetailRows};
}

}  // namespace orvel
