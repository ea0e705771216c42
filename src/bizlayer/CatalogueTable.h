#pragma once

#include <string>
#include <vector>

#include "orvel/Variant.h"

namespace orvel {

// The SQL type of a field, which also fixes how it reads back as a Variant.
enum class SqlType { Integer, Real, Text, Date, Boolean };

// "INTEGER", "REAL", "TEXT", "DATE", "BOOLEAN".
const char* SqlTypeName(SqlType type);
// The server type code that the module's structure records carry in xType:
// 56 (int), 108 (numeric), 231 (text), 61 (date and time), 104 (bit).
int ServerTypeCode(SqlType type);

// One field of an object type's table, with what its structure record tells.
struct CatalogueField {
  std::string name;
  SqlType type = SqlType::Text;
  std::string caption;
  int length = 0;        // characters of a text, bytes of a number
  bool visible = true;   // shown in the card and the default list
  Variant defaultValue;  // what a new record starts with (Empty: NULL)
};

// How one object type lives in the database. Table and field names are ours,
// fixed here, and the only names ever written into SQL text; every value
// travels as a bound parameter.
struct CatalogueTable {
  std::string oid;   // "O0000300"
  std::string name;  // the SQL table: "banks"
  // The structure name that "Orvel_GetObjectStructure" is asked with ("Banks").
  std::string structureName;
  // The fields after ID, in card order.
  std::vector<CatalogueField> fields;
  // Groups and members in one table: ParentID and GroupFlag among the fields.
  bool grouped = false;
  // Columns a record and a list carry besides the fields, as SQL over the
  // row ("VatRate AS VAT"): what the module reads under another name. They
  // are never written.
  std::vector<std::string> derived = {};
  // A catalogue over records that other tables keep (a document, a
  // contract): the SELECT of its view, which the schema part of the suite's
  // other types makes; its records are read, never written. Empty for a
  // catalogue with a table of its own.
  std::string view = {};

  const CatalogueField* Field(const std::string& name) const;  // case-insensitive
};

// Every object type of the reference business layer.
const std::vector<CatalogueTable>& Catalogues();
const CatalogueTable* CatalogueOf(const std::string& oid);
// The component of the rights table that writing a type's records needs:
// "CFirms" for firms and their detail records, "CGoods" for goods, a
// price's "CGoodsPT" and so on, "CReference" for the reference books.
std::string RightKeyOf(const std::string& oid);

class Database;
// Writes the card's fields of a type (ID first, hidden) into the table of
// field descriptions, from which the structure calls answer.
void DescribeCatalogue(Database& db, const CatalogueTable& catalogue);

}  // namespace orvel
