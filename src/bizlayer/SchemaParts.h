#pragma once

#include "bizlayer/SchemaPart.h"

namespace orvel {

struct CatalogueTable;

// The parts of the reference schema, each defined beside the calls that read
// it. Declarations are only ever appended.

// Firms' contracts and discounts, and the sample details of the firms.
SchemaPart FirmDetailSchema();
// Departments and destinations with their accounting templates.
SchemaPart ReferenceBookSchema();
// A good's measures, minimum amounts, templates and discounts.
SchemaPart GoodsDetailSchema();
// A good's prices, minimum amounts and template rows as records of their own.
SchemaPart GoodsRecordSchema();
// A good's detail records go with the good, whatever made their tables.
SchemaPart GoodsRecordCascadeSchema();
// Whether a good is kept by serial numbers, which the goods lists carry.
SchemaPart GoodsWithItemsSchema();
// Document debts that are never negative, their direction in Sign.
SchemaPart DocumentDebtSignSchema();
// The units of measure as a reference book, a good's measure rows as records
// of their own, and the good's rate of VAT as the card writes it.
SchemaPart GoodsMeasureSchema();
// A sale line names the purchase line it was taken from.
SchemaPart GoodsSaleLotSchema();

// The suite's other types that the module opens: stock templates, document
// groups, discounts, documents and contracts.
SchemaPart OtherTypesSchema();
// Every catalogue record's Version, moved on by each change of its row.
SchemaPart RecordVersionSchema();
// The catalogues' names and codes folded as text compares them, indexed, so
// that a search by the start of a name or code reads a range of an index.
SchemaPart SearchKeySchema();

// For parts over tables made before their catalogue: the catalogue's columns
// a table lacks are added (a missing table is made), and its card is
// described again.
void AddMissingColumns(Database& db, const CatalogueTable& catalogue);
void DescribeAgain(Database& db, const CatalogueTable& catalogue);
// Whether `table` has the column, on either engine.
bool HasColumn(Database& db, const std::string& table, const std::string& column);
// The Version column of a catalogue's table and the trigger that moves it.
void KeepRecordVersions(Database& db, const CatalogueTable& catalogue);

}  // namespace orvel
