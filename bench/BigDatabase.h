#pragma once

#include <cstdint>
#include <functional>
#include <string>

// A large catalogue database for the speed checks: a fresh reference
// database (the layer's own schema and sample data) with many goods in
// groups three deep, firms in groups, documents and their lines added in bulk.
namespace orvel::bigdb {

struct Size {
  int64_t goods = 1000000;
  int64_t firms = 100000;
  int64_t documents = 300000;
  // Of the goods, this many sit in one group of their own ("Didmenos
  // sandėlis"), as a wholesaler's largest group.
  int64_t groupGoods = 200000;
  // Of the documents, this many belong to one firm; this many lines, spread
  // over the documents, name one good.
  int64_t firmDocuments = 100000;
  int64_t goodMovements = 100000;
  uint64_t seed = 28;
};

// Where the benchmarks find what they need in the made database.
struct Made {
  int64_t bigGroupId = 0;  // the group of Size::groupGoods goods
  int64_t busyFirmId = 0;  // the firm of Size::firmDocuments documents
  int64_t busyGoodId = 0;  // the good of Size::goodMovements lines
  int64_t goods = 0;       // rows added, groups included
  int64_t firms = 0;
  int64_t documents = 0;
  int64_t lines = 0;
};

// Called now and then with the part done, 0 to 1.
using Progress = std::function<void(double done)>;

// Makes the database at `path`: a SQLite file, which must not exist yet, or
// an office's PostgreSQL server by its URL, whose database must be empty. Throws
// std::runtime_error (DatabaseError) on failure, and std::invalid_argument for
// a size whose parts do not fit (more group goods than goods, ...) or a
// database that is there already; the texts are Lithuanian.
Made Make(const std::string& path, const Size& size, const Progress& progress = {});

}  // namespace orvel::bigdb
