#pragma once

#include <array>
#include <memory>
#include <string>

namespace orvel {

class Database;

// The kinds of document the sample data holds, as the lists read them: an
// invoice and a purchase with lines, an advance received and one paid.
struct SampleDocumentKind {
  const char* otype;
  const char* name;
  const char* prefix;  // of the document's number
  const char* account;
  int sign;  // +1 the firm owes, -1 it is owed
  int gid;   // the document group
  bool lines;
};
inline constexpr std::array<SampleDocumentKind, 4> kSampleDocumentKinds{{
    {"O1000100", "PVM sąskaita faktūra", "PSF", "240", 1, 1, true},
    {"O1000100", "Pirkimo sąskaita", "PIR", "450", -1, 2, true},
    {"O1000300", "Gautas avansas", "AVG", "460", -1, 3, false},
    {"O1000400", "Sumokėtas avansas", "AVS", "220", 1, 4, false},
}};
// The warehouses the sample lines name.
inline constexpr std::array<const char*, 3> kSampleStores{"Centrinis sandėlis", "Kauno sandėlis",
                                                          "Klaipėdos sandėlis"};

// The reference database: its schema, made from the catalogue descriptions,
// and its sample data. Opening a file that has no schema yet creates it and
// fills it with the sample data in one transaction; opening it again changes
// nothing.
class ReferenceDatabase {
 public:
  // Opens or creates the database at `path`: a SQLite file, or an office's
  // PostgreSQL server by its URL ("postgresql://user@host:port/db"), where
  // the first start makes the office and its login the first bookkeeper.
  // DatabaseError on failure.
  static std::shared_ptr<Database> Open(const std::string& path);

  // The schema's version, kept in PRAGMA user_version. A file of version 1
  // or 2 is brought up to date when opened. What came after version 3 comes
  // as schema parts (SchemaPart.h) and as catalogues added to Catalogues():
  // both are made in an older file when it is opened.
  static constexpr int kSchemaVersion = 3;

  // Whether the database keeps an office already (its record of schema parts).
  static bool KeepsAnOffice(Database& db);

  // Makes an empty database a new office's: the whole schema and the sample
  // data, in one transaction.
  static void MakeOffice(Database& db);

  // Copies a whole office into an empty database, a file into a server or
  // back: the schema is made in `to`, then every table's rows are copied
  // with their IDs and versions, parents before the tables that name them.
  // Answers the number of rows copied. `to` that holds an office already is
  // refused (DatabaseError), and a failure leaves `to` as it was.
  static int64_t CopyOffice(Database& from, Database& to);

  static void CreateSchema(Database& db);
  static void SeedSampleData(Database& db);
  // Makes `user` a user (when not one yet) holding every right: the row "*".
  static void GrantEverything(Database& db, const std::string& user);
};

}  // namespace orvel
