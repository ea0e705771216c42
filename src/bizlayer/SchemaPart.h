#pragma once

#include <string>
#include <vector>

namespace orvel {

class Database;

// A piece of the reference schema that came after version 3: the tables that
// one group of calls reads and their sample rows. Each part is made once per
// file, new or old: the names of the parts made are kept in the table
// schema_parts, so opening a file made before a part existed adds that part
// and leaves everything else as it is. A part must make its tables and rows
// in a way that can run on top of any earlier file (it may rely on the
// catalogue tables, which are made first).
struct SchemaPart {
  std::string name;  // unique, kept in schema_parts: never rename a part
  void (*create)(Database& db) = nullptr;  // tables and indexes; may be null
  void (*seed)(Database& db) = nullptr;    // sample rows; may be null
};

// Every part, in the order they are made. Parts are only ever appended.
const std::vector<SchemaPart>& SchemaParts();

}  // namespace orvel
