#include "bizlayer/TableBusinessObject.h"

#include <sqlite3.h>

#include <charconv>
#include <ctime>

#include "bizlayer/SqliteDatabase.h"
#include "bizlayer/Database.h"
#include "host/Convert.h"
#include "host/MemoryRecordset.h"
#include "host/ParamList.h"
#include "orvel/RuntimeError.h"

namespace orvel {

namespace {

constexpr const char* kNewObject = "Orvel_NewObject";
constexpr const char* kReadObject = "Orvel_ReadObject";
constexpr const char* kGetObjectList = "Orvel_GetObjectList";
constexpr const char* kSaveObject = "Orvel_SaveObject";
constexpr const char* kDeleteObject = "Orvel_DeleteObject";
constexpr const char* kStructure = "Orvel_GetObjectStructure";
// What a bookkeeper reads when a group to delete still holds records.
constexpr const char* kGroupNotEmpty = "Grupėje yra įrašų: jos panaikinti negalima";

// A call that cannot go on, with the Number and text its caller gets.
struct CallFailure {
  int32_t number;
  std::string text;
};

std::string BadParams(const std::string& name, const std::string& param, const char* expected) {
  return name + ": neteisingi parametrai [" + param + "], laukta " + expected;
}

TableBusinessObject::Args SplitOrFail(const std::string& name, const std::string& param,
                                      const char* expected) {
  auto args = SplitParams(param);
  if (!args) throw CallFailure{TableBusinessObject::kBadCall, BadParams(name, param, expected)};
  return *args;
}

// Runs a call body and turns every failure into its Number and text.
template <class Result, class Body>
Result Answer(const std::string& name, Body&& body) noexcept {
  try {
    return body();
  } catch (const CallFailure& f) {
    return Result{f.number, f.text};
  } catch (const DatabaseError& e) {
    return Result{TableBusinessObject::kDatabaseError, name + ": " + e.what()};
  } catch (const RuntimeError& e) {
    return Result{e.Number(), name + ": " + e.Text()};
  } catch (const std::exception& e) {
    return Result{TableBusinessObject::kDatabaseError, name + ": " + e.what()};
  } catch (...) {
    return Result{TableBusinessObject::kDatabaseError, name + ": nežinoma klaida"};
  }
}

Date Now() {
  std::time_t t = std::time(nullptr);
  std::tm local{};
  localtime_r(&t, &local);
  Date d = DateSerial(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday);
  d.serial += (local.tm_hour * 3600 + local.tm_min * 60 + local.tm_sec) / 86400.0;
  return d;
}

bool IsAudit(const std::string& name) {
  return name == "CreatedByUser" || name == "CreationDate" || name == "UpdatedByUser" ||
         name == "UpdateDate";
}

}  // namespace

TableBusinessObject::TableBusinessObject(std::shared_ptr<orvel::Database> db,
                                         const CatalogueTable& catalogue)
    : db_(std::move(db)), catalogue_(catalogue) {}

void TableBusinessObject::OnRead(const std::string& name, ReadHandler handler) {
  reads_[name] = std::move(handler);
}

void TableBusinessObject::OnAction(const std::string& name, ActionHandler handler) {
  actions_[name] = std::move(handler);
}

std::optional<int64_t> TableBusinessObject::IdOf(const std::string& oidr) const {
  if (oidr.size() <= catalogue_.oid.size() ||
      oidr.compare(0, catalogue_.oid.size(), catalogue_.oid) != 0) {
    return std::nullopt;
  }
  const char* first = oidr.data() + catalogue_.oid.size();
  const char* last = oidr.data() + oidr.size();
  if (*first == '0') return std::nullopt;
  int64_t id = 0;
  auto [end, ec] = std::from_chars(first, last, id);
  if (ec != std::errc() || end != last || id <= 0) return std::nullopt;
  return id;
}

std::shared_ptr<MemoryRecordset> TableBusinessObject::Query(const std::string& sql,
                                                            const std::vector<Variant>& args) {
  auto stmt = db_->Prepare(sql);
  for (size_t i = 0; i < args.size(); ++i) stmt.Bind(static_cast<int>(i) + 1, args[i]);
  std::vector<std::string> names;
  for (int c = 0; c < stmt.ColumnCount(); ++c) names.push_back(stmt.ColumnName(c));
  auto rs = std::make_shared<MemoryRecordset>(std::move(names));
  std::vector<Variant> row(static_cast<size_t>(stmt.ColumnCount()));
  int64_t rows = 0;
  if (fillObserver_) fillObserver_(0, false);
  while (stmt.Step()) {
    for (int c = 0; c < stmt.ColumnCount(); ++c) row[static_cast<size_t>(c)] = stmt.Column(c);
    rs->AddRow(row);
    if (++rows % kFillStep == 0 && fillObserver_) fillObserver_(rows, false);
  }
  rs->ShrinkToFit();
  rs->MoveFirst();
  if (fillObserver_) fillObserver_(rows, true);
  return rs;
}

std::string TableBusinessObject::SelectList() const {
  std::string list = "ID";
  for (const auto& field : catalogue_.fields) list += ", " + field.name;
  for (const auto& column : catalogue_.derived) list += ", " + column;
  return list;
}

// --- the calls --------------------------------------------------------------

OrvelBoResult TableBusinessObject::GetCall(const std::string& name, const std::string& param,
                                           int32_t) {
  if (observer_) observer_("GetCall", name, param);
  return Answer<OrvelBoResult>(name, [&] {
    std::shared_ptr<Recordset> rs;
    if (auto handler = reads_.find(name); handler != reads_.end()) {
      rs = handler->second(SplitOrFail(name, param, "its parameters"));
    } else if (name == "GetStructure") {
      // The card's structure asked as a property of the record.
      rs = Structure({});
    } else if (name == kNewObject) {
      if (SplitOrFail(name, param, "'<OID>'").empty()) {
        throw CallFailure{kBadCall, BadParams(name, param, "'<OID>'")};
      }
      rs = NewObject();
    } else if (name == kReadObject) {
      auto args = SplitOrFail(name, param, "'<OIDR>'");
      if (args.empty() || args[0].empty()) {
        throw CallFailure{kBadCall, BadParams(name, param, "'<OIDR>'")};
      }
      rs = ReadObject(args);
    } else if (name == kGetObjectList) {
      rs = GetObjectList(SplitOrFail(name, param, "'<OIDR>'[,'<text>']"));
    } else {
      throw CallFailure{kBadCall, catalogue_.oid + " neturi skaitymo kvietimo " + name};
    }
    return OrvelBoResult(0, "", rs);
  });
}

OrvelBoResult TableBusinessObject::RecordsetCall(const std::string& name, const std::string& param,
                                                 int32_t) {
  if (observer_) observer_("RecordsetCall", name, param);
  return Answer<OrvelBoResult>(name, [&] {
    if (name == kStructure) {
      return OrvelBoResult(0, "", Structure(SplitOrFail(name, param, "<structure name>")));
    }
    if (auto handler = reads_.find(name); handler != reads_.end()) {
      return OrvelBoResult(0, "", handler->second(SplitOrFail(name, param, "its parameters")));
    }
    throw CallFailure{kBadCall, catalogue_.oid + " neturi procedūros " + name};
  });
}

OrvelStatus TableBusinessObject::ExecCall(const std::string& name, const std::string& param,
                                          int32_t) {
  if (observer_) observer_("ExecCall", name, param);
  Variant::Array none;
  if (name == kSaveObject) {
    return OrvelStatus{kBadCall, std::string(kSaveObject) + " kviečiamas per ExecArrayCall"};
  }
  return Act(name, param, none);
}

OrvelStatus TableBusinessObject::ExecArrayCall(const std::string& name, const std::string& param,
                                               Variant::Array& array) {
  if (observer_) observer_("ExecArrayCall", name, param);
  return Act(name, param, array);
}

OrvelStatus TableBusinessObject::Act(const std::string& name, const std::string& param,
                                     Variant::Array& array) {
  return Answer<OrvelStatus>(name, [&] {
    Transaction transaction(*db_);
    if (auto handler = actions_.find(name); handler != actions_.end()) {
      RequireRight("CanUpdate", "keisti");
      handler->second(SplitOrFail(name, param, "its parameters"), array);
    } else if (name == kSaveObject) {
      SaveObject(SplitOrFail(name, param, "'<OID>','<OIDR>'"), array);
    } else if (name == kDeleteObject) {
      RequireRight("CanDelete", "naikinti");
      DeleteObject(SplitOrFail(name, param, "'<OIDR>'"));
    } else {
      throw CallFailure{kBadCall, catalogue_.oid + " neturi veiksmo " + name};
    }
    transaction.Commit();
    return OrvelStatus{};
  });
}

std::shared_ptr<Recordset> TableBusinessObject::NewObject() {
  std::vector<std::string> names{"ID"};
  std::vector<Variant> row{Variant()};
  for (const auto& field : catalogue_.fields) {
    names.push_back(field.name);
    row.push_back(field.defaultValue.IsEmpty() ? Variant::Null() : field.defaultValue);
  }
  auto rs = std::make_shared<MemoryRecordset>(std::move(names));
  rs->AddRow(std::move(row));
  rs->MoveFirst();
  return rs;
}

std::shared_ptr<Recordset> TableBusinessObject::ReadObject(const Args& args) {
  const std::string oidr = args.empty() ? "" : args[0];
  auto id = IdOf(oidr);
  if (id) {
    std::string sql = "SELECT " + SelectList() + (Versioned() ? ", Version" : "") +
                      ", ? || ID AS OIDR, Name AS Preview";
    std::vector<Variant> values{Variant(catalogue_.oid)};
    if (catalogue_.grouped) {
      // A grouped record carries the names of the groups above it, each
      // followed by "\", top first: the line a card shows for its group.
      sql = "WITH RECURSIVE up(pid, path, depth) AS (SELECT ParentID, '', 0 FROM " +
            catalogue_.name +
            " WHERE ID = ? UNION ALL SELECT g.ParentID, g.Name || '\\' || up.path, up.depth + 1"
            " FROM " + catalogue_.name + " g JOIN up ON g.ID = up.pid WHERE up.depth < 64) " + sql +
            ", (SELECT path FROM up ORDER BY depth DESC LIMIT 1) AS PreviewPath";
      values.insert(values.begin(), Variant(*id));
    }
    values.emplace_back(*id);
    auto rs = Query(sql + " FROM " + catalogue_.name + " WHERE ID = ?", values);
    if (rs->RecordCount() == 1) {
      if (Versioned()) versions_[*id] = CLng(rs->Fields("Version").Value());
      return rs;
    }
  }
  throw CallFailure{kRecordNotFound, "Įrašas nerastas: " + oidr};
}

std::shared_ptr<Recordset> TableBusinessObject::GetObjectList(const Args& args) {
  return GetObjectList(args.empty() ? catalogue_.oid : args[0], args.size() > 1 ? args[1] : "",
                       ListOptions{});
}

std::shared_ptr<Recordset> TableBusinessObject::GetObjectList(const std::string& oidr,
                                                              const std::string& text,
                                                              const ListOptions& options) {
  std::string sql = "SELECT ? || ID AS OIDR, Name AS Preview, " + SelectList() +
                    (options.columns.empty() ? "" : ", " + options.columns) + " FROM " +
                    catalogue_.name + " WHERE 1 = 1";
  std::vector<Variant> values{Variant(catalogue_.oid)};
  // A search (no OIDR) looks through the whole type; the type's own OID
  // lists its top level; a group's OIDR its members.
  if (catalogue_.grouped && !oidr.empty()) {
    if (auto parent = IdOf(oidr)) {
      sql += " AND ParentID = ?";
      values.emplace_back(*parent);
    } else {
      sql += " AND (ParentID IS NULL OR ParentID = 0)";
    }
  }
  if (!text.empty()) {
    const std::string column = options.searchCode ? "Code" : "Name";
    sql += std::string(" AND ") + (options.searchFromStart ? "orvel_starts" : "orvel_contains") +
           "(" + column + ", ?)";
    values.emplace_back(text);
    if (options.searchFromStart) {
      // The folded texts that start with the folded text lie between it and
      // it followed by the last character there is: the range the search
      // key's index reads (the test above keeps the answer exact).
      const std::string key = "orvel_fold(" + column + ") COLLATE BINARY";
      sql += " AND " + key + " >= orvel_fold(?) AND " + key + " < orvel_fold(?) || ?";
      values.insert(values.end(), {Variant(text), Variant(text), Variant("\xF4\x8F\xBF\xBF")});
    }
  }
  // A record without Active counts as in use; neither choice shows those in use.
  std::string member;
  if (catalogue_.Field("Active") && options.active != options.inactive) {
    member = options.inactive ? "COALESCE(Active, 1) = 0" : "COALESCE(Active, 1) <> 0";
  }
  if (!options.memberCondition.empty()) {
    member += (member.empty() ? "" : " AND ") + options.memberCondition;
  }
  if (!member.empty()) {
    sql += catalogue_.grouped ? " AND (GroupFlag = 1 OR (" + member + "))" : " AND (" + member + ")";
    values.insert(values.end(), options.memberValues.begin(), options.memberValues.end());
  }
  const std::string order = options.byCode ? "Code IS NULL, Code, Name, ID" : "Name, ID";
  sql += catalogue_.grouped ? " ORDER BY GroupFlag DESC, " + order : " ORDER BY " + order;
  return Query(sql, values);
}

std::shared_ptr<Recordset> TableBusinessObject::Structure(const Args& args) {
  const std::string name = args.empty() || args[0].empty() ? catalogue_.structureName : args[0];
  return Query(
      "SELECT Name, Caption, Length, xType, Visible FROM field_descriptions"
      " WHERE StructureName = ? ORDER BY Position",
      {Variant(name)});
}

void TableBusinessObject::SaveObject(const Args& args, Variant::Array& array) {
  if (args.empty() || args[0] != catalogue_.oid) {
    throw CallFailure{kBadCall, std::string(kSaveObject) + ": tipas ne " + catalogue_.oid};
  }
  std::shared_ptr<Recordset> rs = array.empty() ? nullptr : array[0].ObjectAs<Recordset>();
  if (!rs || rs->IsEOF()) {
    throw CallFailure{RuntimeError::kTypeMismatch,
                      std::string(kSaveObject) + ": masyvo pradžioje turi būti įrašo rinkinys"};
  }
  const std::string oidr = args.size() > 1 ? args[1] : "";
  if (oidr.empty()) RequireRight("CanInsert", "kurti");
  else RequireRight("CanUpdate", "keisti");
  if (oidr.empty()) {
    int64_t id = Insert(*rs);
    RememberVersion(id, rs.get());
    if (rs->Fields().Exists("ID")) rs->Fields("ID").SetValue(Variant(id));
    if (rs->Fields().Exists("OIDR")) {
      rs->Fields("OIDR").SetValue(Variant(catalogue_.oid + std::to_string(id)));
    }
    return;
  }
  auto id = IdOf(oidr);
  if (!id) throw CallFailure{kRecordNotFound, "Įrašas nerastas: " + oidr};
  Update(*id, *rs);
  RememberVersion(*id, rs.get());
}

std::optional<int64_t> TableBusinessObject::ExpectedVersion(int64_t id, Recordset* rs) const {
  if (!Versioned()) return std::nullopt;
  if (rs && rs->Fields().Exists("Version")) {
    const Variant& version = rs->Fields("Version").Value();
    if (version.Type() == VarType::Integer || version.Type() == VarType::Double) {
      return static_cast<int64_t>(version.NumberValue());
    }
  }
  auto known = versions_.find(id);
  if (known == versions_.end()) return std::nullopt;
  return known->second;
}

void TableBusinessObject::FailUnchanged(int64_t id) {
  const std::string oidr = catalogue_.oid + std::to_string(id);
  auto found = Query("SELECT COUNT(*) FROM " + catalogue_.name + " WHERE ID = ?", {Variant(id)});
  if (found->Fields().Item(0).Value().NumberValue() == 0) {
    throw CallFailure{kRecordNotFound, "Įrašas nerastas: " + oidr};
  }
  // Told once: the window reads the record again, and a write or delete
  // after that goes by what it reads.
  versions_.erase(id);
  throw CallFailure{kChangedMeanwhile,
                    "Įrašą pakeitė kitas vartotojas po to, kai jį perskaitėte: " + oidr};
}

void TableBusinessObject::RequireRight(const char* right, const char* doing) {
  if (user_.empty()) return;
  const std::string key = RightKeyOf(catalogue_.oid);
  // `right` is one of the rights table's five columns, never a caller's text.
  auto granted = Query(std::string("SELECT r.") + right +
                           " FROM user_rights r JOIN users u ON u.ID = r.UserID"
                           " WHERE u.Name = ? AND r.Component IN (?, '*')"
                           " ORDER BY r.Component = '*' LIMIT 1",
                       {Variant(user_), Variant(key)});
  if (granted->RecordCount() > 0) {
    granted->MoveFirst();
    const Variant& value = granted->Fields().Item(0).Value();
    if (!value.IsNull() && value.NumberValue() != 0) return;
  }
  throw CallFailure{kNoRight, "Vartotojas " + user_ + " neturi teisės " + doing + " šių įrašų (" +
                                  key + ")"};
}

void TableBusinessObject::RememberVersion(int64_t id, Recordset* rs) {
  if (!Versioned()) return;
  auto now = Query("SELECT Version FROM " + catalogue_.name + " WHERE ID = ?", {Variant(id)});
  if (now->RecordCount() == 0) return;
  const Variant version = now->Fields().Item(0).Value();
  versions_[id] = CLng(version);
  if (rs && rs->Fields().Exists("Version")) rs->Fields("Version").SetValue(version);
}

int64_t TableBusinessObject::Insert(Recordset& rs) {
  std::string columns;
  std::string marks;
  std::vector<Variant> values;
  Date now = Now();
  for (const auto& field : catalogue_.fields) {
    Variant value;
    if (field.name == "CreatedByUser" || field.name == "UpdatedByUser") {
      value = Variant(user_);
    } else if (field.name == "CreationDate" || field.name == "UpdateDate") {
      value = Variant(now);
    } else if (rs.Fields().Exists(field.name)) {
      value = rs.Fields(field.name).Value();
    } else {
      value = field.defaultValue;
    }
    columns += (columns.empty() ? "" : ", ") + field.name;
    marks += marks.empty() ? "?" : ", ?";
    values.push_back(std::move(value));
  }
  // The new ID as the INSERT itself answers it: what a trigger inserts
  // elsewhere does not come between.
  auto stmt = db_->Prepare("INSERT INTO " + catalogue_.name + " (" + columns + ") VALUES (" +
                           marks + ") RETURNING ID");
  for (size_t i = 0; i < values.size(); ++i) stmt.Bind(static_cast<int>(i) + 1, values[i]);
  if (!stmt.Step()) throw CallFailure{kDatabaseError, "Naujo įrašo ID negautas"};
  const int64_t id = static_cast<int64_t>(stmt.Column(0).NumberValue());
  stmt.Run();
  return id;
}

void TableBusinessObject::Update(int64_t id, Recordset& rs) {
  std::string sets;
  std::vector<Variant> values;
  for (const auto& field : catalogue_.fields) {
    Variant value;
    if (field.name == "UpdatedByUser") {
      value = Variant(user_);
    } else if (field.name == "UpdateDate") {
      value = Variant(Now());
    } else if (!IsAudit(field.name) && rs.Fields().Exists(field.name)) {
      value = rs.Fields(field.name).Value();
    } else {
      continue;
    }
    sets += (sets.empty() ? "" : ", ") + field.name + " = ?";
    values.push_back(std::move(value));
  }
  if (sets.empty()) return;
  const auto expected = ExpectedVersion(id, &rs);
  auto stmt = db_->Prepare("UPDATE " + catalogue_.name + " SET " + sets + " WHERE ID = ?" +
                           (expected ? " AND Version = ?" : ""));
  for (size_t i = 0; i < values.size(); ++i) stmt.Bind(static_cast<int>(i) + 1, values[i]);
  stmt.Bind(static_cast<int>(values.size()) + 1, Variant(id));
  if (expected) stmt.Bind(static_cast<int>(values.size()) + 2, Variant(*expected));
  stmt.Run();
  if (db_->Changes() == 0) FailUnchanged(id);
}

void TableBusinessObject::DeleteObject(const Args& args) {
  const std::string oidr = args.empty() ? "" : args[0];
  auto id = IdOf(oidr);
  if (!id) throw CallFailure{kRecordNotFound, "Įrašas nerastas: " + oidr};
  if (catalogue_.grouped) {
    auto children =
        Query("SELECT COUNT(*) FROM " + catalogue_.name + " WHERE ParentID = ?", {Variant(*id)});
    if (children->Fields().Item(0).Value().NumberValue() > 0) {
      throw CallFailure{kBadCall, kGroupNotEmpty};
    }
  }
  const auto expected = ExpectedVersion(*id, nullptr);
  auto stmt = db_->Prepare("DELETE FROM " + catalogue_.name + " WHERE ID = ?" +
                           (expected ? " AND Version = ?" : ""));
  stmt.Bind(1, Variant(*id));
  if (expected) stmt.Bind(2, Variant(*expected));
  try {
    stmt.Run();
  } catch (const DatabaseError& e) {
    // Only a reference can stop a delete: documents or prices that name it.
    if (!e.IsConstraint()) throw;
    throw CallFailure{kBadCall, "Įrašas naudojamas dokumentuose: jo panaikinti negalima"};
  }
  if (db_->Changes() == 0) FailUnchanged(*id);
  versions_.erase(*id);
}

}  // namespace orvel
