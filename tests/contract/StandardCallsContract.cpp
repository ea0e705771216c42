// The standard object calls as the catalogues' windows send them, answered alike by every layer.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <tuple>

#include "ContractFixture.h"
#include "bizlayer/CatalogueTable.h"

namespace orvel::contract {
namespace {

using ::testing::IsEmpty;
using ::testing::StartsWith;

// A type's records by their names: in a grouped type 1 is a group holding 2 and 3, 4 stands at
// the top and 5 is an empty group; the others' 1 to 3 carry their codes.
struct TypeCase {
  const char* oid;
  std::vector<const char*> names;
  const char* search;  // a piece of record 3's name, in other letters' case
  Row more = {};       // what every record but a group holds
  std::vector<const char*> codes = {};
};

std::vector<Row> Records(const TypeCase& type) {
  std::vector<Row> rows;
  for (int id = 1; id <= static_cast<int>(type.names.size()); ++id) {
    Row row{{"ID", Variant(id)}, {"Name", Variant(type.names[id - 1])}};
    const bool grouped = CatalogueOf(type.oid)->grouped;
    if (grouped) {
      row.push_back({"ParentID", Variant(id == 2 || id == 3 ? 1 : 0)});
      row.push_back({"GroupFlag", Variant(id == 1 || id == 5 ? 1 : 0)});
    }
    if (!grouped || (id != 1 && id != 5)) row.insert(row.end(), type.more.begin(), type.more.end());
    if (!type.codes.empty()) row.push_back({"Code", Variant(type.codes[id - 1])});
    rows.push_back(row);
  }
  return rows;
}

const std::vector<TypeCase>& Types() {
  const char* empty = "Tuščia grupė";
  static const std::vector<TypeCase> types{
      {"O0000300", {"AB SEB bankas", "Swedbank, AB", "Šiaulių bankas"}, "ŠIAUL", {},
       {"70440", "73000", "71800"}},
      {"O0000100", {"Pirkėjai", "UAB Alfa", "O'Brien ir Ko", "AB Gama", empty}, "brien",
       {{"Active", Variant(true)}}},
      {"O0000200", {"Maistas", "Duona balta", "Pienas 2,5 %", "Cukrus", empty}, "PIENAS",
       {{"Price", Variant(1.2)}, {"VatRate", Variant(21.0)}}},
      {"O0002200", {"Euras", "JAV doleris", "Švedijos krona"}, "švedijos", {},
       {"EUR", "USD", "SEK"}},
      {"O0001602", {"Bankiniai", "Pavedimas", "Įskaitymas", "Grynaisiais", empty}, "ĮSKAIT"},
      {"O0001615", {"Sandėliai", "Vilniaus sandėlis", "Kauno sandėlis", "Parduotuvė", empty},
       "kauno"},
  };
  return types;
}

void PrintTo(const TypeCase& type, std::ostream* out) { *out << type.oid; }

bool Grouped(const TypeCase& type) { return CatalogueOf(type.oid)->grouped; }

std::string Oidr(const TypeCase& type, int id) { return type.oid + std::to_string(id); }

class StandardCallsContract
    : public ContractFixture,
      public ::testing::TestWithParam<std::tuple<const EngineKind*, TypeCase>> {
 protected:
  StandardCallsContract() : ContractFixture(*std::get<0>(GetParam())) {
    Engine().Given(Type().oid, Records(Type()));
  }
  const TypeCase& Type() const { return std::get<1>(GetParam()); }
  std::string Quoted(int id) const { return "'" + Oidr(Type(), id) + "'"; }
  // The OIDR of every row the list answers, sorted.
  std::vector<std::string> Listed(const std::string& param) {
    std::vector<std::string> out;
    auto rs = Read(Type().oid, "Orvel_GetObjectList", param);
    for (; !rs->IsEOF(); rs->MoveNext()) out.push_back(ConcatText(rs->Fields("OIDR").Value()));
    std::sort(out.begin(), out.end());
    return out;
  }
  // A search as the type's windows send it: a reference book names the text
  // first and the node it searches from, its own OID for the whole book; the
  // others the node ('' for the whole type) and then the text.
  std::vector<std::string> Found(const std::string& text, int group = 0) {
    const std::string node = group ? Oidr(Type(), group) : "";
    if (std::string(Type().oid).rfind("O00016", 0) == 0) {
      return Listed("'" + text + "','" + (group ? node : Type().oid) + "'");
    }
    return Listed("'" + node + "','" + text + "'");
  }
  std::vector<std::string> Of(std::initializer_list<int> ids) const {
    std::vector<std::string> out;
    for (int id : ids) out.push_back(Oidr(Type(), id));  // one digit each: in Listed's order
    return out;
  }
};

// A new record is one row of every field without an ID; saved, it gets its ID back in the caller's
// own set and reads back. A record reads with its OIDR, its Preview and its fields typed.
TEST_P(StandardCallsContract, NewObjectIsSavedWithItsNewId_ReadObjectAnswersTypedFields) {
  auto rs = Read(Type().oid, "Orvel_NewObject", std::string("'") + Type().oid + "'");
  ASSERT_EQ(rs->RecordCount(), 1);
  EXPECT_TRUE(rs->Fields("ID").Value().IsEmpty());
  for (const auto& field : CatalogueOf(Type().oid)->fields) {
    ASSERT_TRUE(rs->Fields().Exists(field.name)) << field.name;
    if (!field.defaultValue.IsEmpty()) {
      EXPECT_EQ(rs->Fields(field.name).Value(), field.defaultValue) << field.name;
    }
  }
  rs->Fields("Name").SetValue(Variant("Naujas 'įrašas', Nr. 1"));
  ASSERT_EQ(Save(std::string("'") + Type().oid + "',''", rs).Number, 0);
  const std::string oidr = Type().oid + ConcatText(rs->Fields("ID").Value());
  EXPECT_GT(oidr.size(), 8u);
  EXPECT_EQ(Read(Type().oid, "Orvel_ReadObject", "'" + oidr + "'")->Fields("Name").Value(),
            Variant("Naujas 'įrašas', Nr. 1"));
  rs = Read(Type().oid, "Orvel_ReadObject", Quoted(3));
  ASSERT_EQ(rs->RecordCount(), 1);
  EXPECT_EQ(rs->Fields("OIDR").Value(), Variant(Oidr(Type(), 3)));
  EXPECT_EQ(rs->Fields("Preview").Value(), rs->Fields("Name").Value());
  const Row third = Records(Type())[2];
  for (const auto& [name, value] : third) {
    EXPECT_EQ(ConcatText(rs->Fields(name).Value()), ConcatText(value)) << name;
  }
  for (const auto& field : CatalogueOf(Type().oid)->fields) {
    const Kind kind = field.type == SqlType::Text      ? Kind::Text
                      : field.type == SqlType::Date    ? Kind::Date
                      : field.type == SqlType::Boolean ? Kind::Boolean
                                                       : Kind::Number;
    EXPECT_TRUE(IsKind(rs->Fields(field.name).Value(), kind)) << field.name;
  }
}

TEST_P(StandardCallsContract, GetObjectList_TheTypeListsItsTopAGroupItsMembersASearchEverything) {
  const bool grouped = Grouped(Type());
  EXPECT_EQ(Listed(std::string("'") + Type().oid + "'"), grouped ? Of({1, 4, 5}) : Of({1, 2, 3}));
  EXPECT_EQ(Listed("''"), grouped ? Of({1, 2, 3, 4, 5}) : Of({1, 2, 3}));
  if (grouped) {
    EXPECT_EQ(Listed(Quoted(1)), Of({2, 3}));
    EXPECT_THAT(Listed(Quoted(5)), IsEmpty());
    EXPECT_EQ(Found(Type().search, 1), Of({3}));
  }
  EXPECT_EQ(Found(Type().search), Of({3}));
  EXPECT_THAT(Found("nėra tokio"), IsEmpty());
  auto rs = Read(Type().oid, "Orvel_GetObjectList", "''");
  for (rs->MoveFirst(); !rs->IsEOF(); rs->MoveNext()) {
    EXPECT_EQ(rs->Fields("Preview").Value(), rs->Fields("Name").Value());
    EXPECT_EQ(ConcatText(rs->Fields("OIDR").Value()),
              Type().oid + ConcatText(rs->Fields("ID").Value()));
  }
}

// Two bookkeepers on one record: what the other wrote since this one read
// the record is never overwritten or deleted unseen. The refusal says why;
// read again, the record is written as usual, its new name found.
TEST_P(StandardCallsContract, AWriteOrDeleteOfARecordChangedSinceItWasRead_Answers60000) {
  const std::string oid = Type().oid;
  const std::string changed = "60000 Įrašą pakeitė kitas vartotojas po to, kai jį perskaitėte: ";
  auto mine = Read(oid, "Orvel_ReadObject", Quoted(2));
  auto doomed = Read(oid, "Orvel_ReadObject", Quoted(3));
  for (int id : {2, 3}) {
    auto& theirs = Engine().OtherSession(oid);
    auto rs = std::dynamic_pointer_cast<Recordset>(
        theirs.GetCall("Orvel_ReadObject", Quoted(id), 0).Object);
    ASSERT_NE(rs, nullptr);
    rs->Fields("Name").SetValue(Variant("Kito vartotojo " + std::to_string(id)));
    Variant::Array array{Variant(rs)};
    const std::string param = "'" + oid + "'," + Quoted(id);
    ASSERT_EQ(theirs.ExecArrayCall("Orvel_SaveObject", param, array).Number, 0);
  }
  const std::string before = Engine().Digest();
  mine->Fields("Name").SetValue(Variant("Mano"));
  EXPECT_EQ(Told(Save("'" + oid + "'," + Quoted(2), mine)), changed + Oidr(Type(), 2));
  EXPECT_EQ(Told(Engine().Object(oid).ExecCall("Orvel_DeleteObject", Quoted(3), 0)),
            changed + Oidr(Type(), 3));
  EXPECT_TRUE(Engine().Digest() == before) << "a refused write changed what is stored";

  auto again = Read(oid, "Orvel_ReadObject", Quoted(2));
  EXPECT_EQ(again->Fields("Name").Value(), Variant("Kito vartotojo 2"));
  again->Fields("Name").SetValue(Variant("Pakeistas, su ' ir ąčęėįšųūž"));
  EXPECT_EQ(Save("'" + oid + "'," + Quoted(2), again).Number, 0);
  EXPECT_EQ(ConcatText(Read(oid, "Orvel_ReadObject", Quoted(2))->Fields("Name").Value()),
            "Pakeistas, su ' ir ąčęėįšųūž");
  EXPECT_EQ(Found("ąčęėįšųūž"), Of({2}));
}

TEST_P(StandardCallsContract, AStringNotReadOrARecordNotThere_IsRefusedAndChangesNothing) {
  const std::string oid = Type().oid;
  for (const auto& [name, param] : std::vector<std::pair<std::string, std::string>>{
           {"Orvel_ReadObject", Quoted(1).substr(0, 9)},
           {"Orvel_ReadObject", ""},
           {"Orvel_NewObject", ""},
           {"Orvel_GetObjectList", "'" + oid + "','x"}}) {
    EXPECT_THAT(Told(Get(oid, name, param)),
                StartsWith("5 " + name + ": neteisingi parametrai [" + param + "], laukta "));
  }
  // What names no record of the type is not found.
  for (const std::string& oidr :
       {oid, oid + "0" + "1", "O0009900" + std::string("1"), oid + "1x"}) {
    EXPECT_EQ(Told(Get(oid, "Orvel_ReadObject", "'" + oidr + "'")),
              "3021 Įrašas nerastas: " + oidr);
  }
  auto rs = Read(oid, "Orvel_ReadObject", Quoted(2));
  rs->Fields("Name").SetValue(Variant("Niekur"));
  Variant::Array array{Variant(rs)};
  EXPECT_THAT(Told(Engine().Object(oid).ExecArrayCall("Orvel_SaveObject", "'" + oid, array)),
              StartsWith("5 Orvel_SaveObject: neteisingi parametrai ['" + oid + "], laukta "));
  // A record not stored is not found, and nothing is stored for it.
  EXPECT_EQ(Told(Save("'" + oid + "'," + Quoted(99), rs)),
            "3021 Įrašas nerastas: " + Oidr(Type(), 99));
  EXPECT_THAT(Found("Niekur"), IsEmpty());
  // Deleted once, a record is not found again; a group that still holds records stays.
  auto& object = Engine().Object(oid);
  if (Grouped(Type())) {
    EXPECT_EQ(Told(object.ExecCall("Orvel_DeleteObject", Quoted(1), 0)),
              "5 Grupėje yra įrašų: jos panaikinti negalima");
    EXPECT_EQ(Listed(std::string("'") + Type().oid + "'"), Of({1, 4, 5}));
  }
  ASSERT_EQ(object.ExecCall("Orvel_DeleteObject", Quoted(3), 0).Number, 0);
  const std::string notFound = "3021 Įrašas nerastas: " + Oidr(Type(), 3);
  EXPECT_EQ(Told(object.ExecCall("Orvel_DeleteObject", Quoted(3), 0)), notFound);
  EXPECT_EQ(Told(Get(Type().oid, "Orvel_ReadObject", Quoted(3))), notFound);
}

std::string CaseName(
    const ::testing::TestParamInfo<std::tuple<const EngineKind*, TypeCase>>& info) {
  return std::string(std::get<0>(info.param)->name) + "_" + std::get<1>(info.param).oid;
}

INSTANTIATE_TEST_SUITE_P(EveryEngine, StandardCallsContract,
                         ::testing::Combine(::testing::ValuesIn(EngineParams()),
                                            ::testing::ValuesIn(Types())),
                         CaseName);

}  // namespace
}  // namespace orvel::contract
