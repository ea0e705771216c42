#include <string>
#include <vector>

#include "bizlayer/SchemaParts.h"
#include "bizlayer/Database.h"

namespace orvel {

namespace {

// The accounting templates of the destinations: the template types, the
// stock templates and the document groups they name, and the rows that
// attach a template of a type (for one document group, or for all) to a
// destination record or group. A record without a row of a type inherits the
// rows of that type from the nearest group above that has them.
void CreateTemplateTables(Database& db) {
  db.Exec(
      "CREATE TABLE br_template_types (ID INTEGER PRIMARY KEY, Name TEXT NOT NULL);"
      "CREATE TABLE IF NOT EXISTS br_templates (ID INTEGER PRIMARY KEY AUTOINCREMENT,"
      " Name TEXT NOT NULL);"
      "CREATE TABLE IF NOT EXISTS document_groups (ID INTEGER PRIMARY KEY AUTOINCREMENT,"
      " Name TEXT NOT NULL);"
      "CREATE TABLE destination_templates (ID INTEGER PRIMARY KEY AUTOINCREMENT,"
      " DestinationID INTEGER NOT NULL REFERENCES book_destinations(ID) ON DELETE CASCADE,"
      " TemplateTypeID INTEGER NOT NULL REFERENCES br_template_types(ID),"
      " BRTemplateID INTEGER NOT NULL REFERENCES br_templates(ID),"
      " DocumentGroupID INTEGER REFERENCES document_groups(ID));"
      "CREATE INDEX destination_templates_destination ON destination_templates"
      " (DestinationID, TemplateTypeID);");
}

void SeedDepartmentsAndDestinations(Database& db) {
  db.Exec(
      "INSERT INTO reference_books (BookOID, Name) VALUES ('O0001604', 'Įmonės padaliniai'),"
      " ('O0001615', 'Tikslai');"
      "INSERT INTO book_departments (Code, Name, ParentID, GroupFlag, FirmBranchID) VALUES"
      " ('A', 'Administracija', 0, 1, NULL), ('G', 'Gamyba', 0, 1, NULL),"
      " ('A1', 'Buhalterija', 1, 0, NULL), ('A2', 'Personalo skyrius', 1, 0, NULL),"
      " ('G1', 'Surinkimo cechas', 2, 0, NULL), ('S', 'Sandėlis', 0, 0, NULL);");
  // The first departments are linked to the first branches of the sample firms.
  db.Exec(
      "UPDATE book_departments SET FirmBranchID = (SELECT ID FROM firm_branches ORDER BY ID"
      " LIMIT 1) WHERE Code = 'A1';"
      "UPDATE book_departments SET FirmBranchID = (SELECT ID FROM firm_branches ORDER BY ID"
      " LIMIT 1 OFFSET 1) WHERE Code = 'G1';");
  db.Exec(
      "INSERT INTO book_destinations (Code, Name, ParentID, GroupFlag) VALUES"
      " ('P', 'Pardavimai', 0, 1), ('P1', 'Didmeninė prekyba', 1, 0),"
      " ('P2', 'Mažmeninė prekyba', 1, 0), ('V', 'Vidaus sąnaudos', 0, 0);"
      "INSERT INTO br_template_types (ID, Name) VALUES (1, 'Pardavimo šablonas'),"
      " (2, 'Pirkimo šablonas'), (3, 'Nurašymo šablonas');"
      "INSERT INTO br_templates (Name) VALUES ('Prekių pardavimas'), ('Paslaugų pardavimas'),"
      " ('Prekių pirkimas'), ('Nurašymas į sąnaudas');"
      "INSERT INTO document_groups (Name) VALUES ('Sąskaitos faktūros'), ('Kasos čekiai'),"
      " ('Važtaraščiai');"
      // The group's templates, which its members inherit; the retail member
      // has its own sales template for cash receipts.
      "INSERT INTO destination_templates (DestinationID, TemplateTypeID, BRTemplateID,"
      " DocumentGroupID) VALUES (1, 1, 1, 1), (1, 2, 3, NULL), (3, 1, 2, 2), (4, 3, 4, NULL);");
}

}  // namespace

SchemaPart ReferenceBookSchema() {
  return {"departments-destinations", CreateTemplateTables, SeedDepartmentsAndDestinations};
}

}  // namespace orvel
