#pragma once

#include <string>

#include "bizlayer/Database.h"
#include "host/Convert.h"

namespace orvel {

// The first column of a query's first row; Empty when there is no row.
inline Variant FirstValue(Database& db, const std::string& sql) {
  auto stmt = db.Prepare(sql);
  return stmt.Step() ? stmt.Column(0) : Variant();
}

// Every row of a query as text, each column followed by "|", a line a row:
// equal texts mean equal rows.
inline std::string RowsText(Database& db, const std::string& sql) {
  auto stmt = db.Prepare(sql);
  std::string out;
  while (stmt.Step()) {
    for (int c = 0; c < stmt.ColumnCount(); ++c) out += ConcatText(stmt.Column(c)) + "|";
    out += "\n";
  }
  return out;
}

}  // namespace orvel
