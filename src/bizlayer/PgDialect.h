#pragma once

#include <map>
#include <string>
#include <string_view>

namespace orvel {

// The one place where the layer's SQL, written as SQLite reads it, becomes
// PostgreSQL's. Parameters "?" and "?N" become "$N"; the column types of a
// CREATE TABLE take PostgreSQL's names (INTEGER PRIMARY KEY AUTOINCREMENT an
// identity, BOOLEAN a SMALLINT, DATE a TIMESTAMP, REAL a DOUBLE PRECISION);
// SQLite's "now" becomes LOCALTIMESTAMP. Text in quotes is left as it is.
struct PgStatementText {
  std::string sql;
  int parameters = 0;
  // PostgreSQL folds unquoted names to lower case: the spelling each name
  // has in the statement, by its lower-case form, so that a result's
  // columns keep the names the layer wrote.
  std::map<std::string, std::string> spellings;
};
PgStatementText ToPostgres(std::string_view sql);

// A script of several statements, as Exec takes it, in PostgreSQL's words.
// A SQLite trigger (CREATE TRIGGER ... [WHEN ...] BEGIN ...; END) becomes a
// PL/pgSQL function and the trigger that runs it; SELECT RAISE(ABORT, '...')
// in its body raises the text as the refusal.
std::string ScriptToPostgres(std::string_view script);

// The functions the layer's SQL calls that PostgreSQL lacks or spells
// otherwise (orvel_contains, orvel_starts, printf, round of a double, the
// two-value min and max), and
// those its triggers run, made once in each new database.
const char* PgPrelude();

// What SQLite says with its own triggers and tables of the schema:
// the trigger that moves a record's Version on each change of its row,
std::string PgVersionTrigger(const std::string& table);
// the triggers that refuse writes into a view,
std::string PgReadOnlyTriggers(const std::string& view);
// whether a table or view exists, and whether a table has a column: a
// query taking the name(s) as parameters that answers a count.
const char* PgTableExistsQuery();
// After rows were stored with IDs of their own (a copied database, a test's
// records): the table's next ID follows the highest one stored.
std::string PgFollowIds(const std::string& table);
const char* PgColumnExistsQuery();
// A table's columns in order (their names in lower case), given its name.
const char* PgColumnsQuery();

}  // namespace orvel
