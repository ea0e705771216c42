#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "CatalogueCallsFixture.h"

namespace orvel {
namespace {

using ::testing::ElementsAre;

class ReferenceBookCallsTest : public CatalogueCallsFixture, public ::testing::Test {
 protected:
  ReferenceBookCallsTest() {
    db_->Exec(
        "INSERT INTO reference_books (BookOID, Name) VALUES ('O0001605', 'Sandėliai'),"
        " ('O0001602', 'Įmonių tipai');"
        "INSERT INTO book_locations (Code, Name, ParentID, GroupFlag) VALUES"
        " ('PA', 'Parduotuvės', 0, 1), ('C', 'Centrinis sandėlis', 0, 0),"
        " ('P1', 'Parduotuvė „Ąžuolas“', 1, 0);");
  }

  std::vector<std::string> Rows(const std::string& oid, const std::string& name,
                                const std::string& param) {
    auto reply = Type(oid).GetCall(name, param, 0);
    EXPECT_EQ(reply.Number, 0) << reply.Text;
    std::vector<std::string> rows;
    auto rs = std::dynamic_pointer_cast<Recordset>(reply.Object);
    if (!rs) return rows;
    for (rs->MoveFirst(); !rs->IsEOF(); rs->MoveNext()) {
      rows.push_back(ConcatText(rs->Fields().Item(0).Value()) + " " +
                     ConcatText(rs->Fields().Item(1).Value()));
    }
    return rows;
  }
};

TEST_F(ReferenceBookCallsTest, TheRootListsTheBooksByTheirOwnOid) {
  EXPECT_THAT(Rows("O0001600", "Orvel_GetObjectList", "'O0001600'"),
              ElementsAre("O0001605 Sandėliai", "O0001602 Įmonių tipai"));
}

TEST_F(ReferenceBookCallsTest, LocationsAreListedWithTheUserFirst) {
  EXPECT_THAT(Rows("O0001605", "Orvel_GetObjectList", "'3', 'O0001605'"),
              ElementsAre("O00016051 Parduotuvės", "O00016052 Centrinis sandėlis"));
  EXPECT_THAT(Rows("O0001605", "Orvel_GetObjectList", "'3', 'O00016051'"),
              ElementsAre("O00016053 Parduotuvė „Ąžuolas“"));
}

TEST_F(ReferenceBookCallsTest, TheCardsStructureIsAPropertyOfTheRecord) {
  EXPECT_THAT(Rows("O0001605", "GetStructure", ""),
              ElementsAre("ID ID", "Code Kodas", "Name Pavadinimas", "ParentID Grupė",
                          "GroupFlag Grupė", "Address Adresas"));
}

}  // namespace
}  // namespace orvel
