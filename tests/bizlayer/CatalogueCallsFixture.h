#pragma once

#include <gtest/gtest.h>

#include <cstdio>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "bizlayer/BusinessLayer.h"
#include "bizlayer/ReferenceDatabase.h"
#include "bizlayer/SqliteDatabase.h"
#include "bizlayer/TableBusinessObject.h"
#include "host/Convert.h"
#include "host/MemoryRecordset.h"
#include "orvel/Recordset.h"
#include "support/Sql.h"

namespace orvel {

// A read call and each named field's value on every row, as text ("" for Null); `setup` runs first.
struct ReadCase {
  const char* call;
  const char* param;
  std::vector<std::pair<const char*, std::vector<std::string>>> columns;
  const char* setup = nullptr;
};
inline void PrintTo(const ReadCase& c, std::ostream* os) { *os << c.call << " " << c.param; }

using FieldValues = std::vector<std::pair<std::string, Variant>>;

// An empty reference schema in memory with its layer; each test puts in the few rows it reads.
class CatalogueCallsFixture {
 protected:
  CatalogueCallsFixture() {
    ReferenceDatabase::CreateSchema(*db_);
    // Far above the IDs the tests give their own users.
    db_->Exec("INSERT INTO users (ID, Name) VALUES (900, 'rūta')");
    ReferenceDatabase::GrantEverything(*db_, "rūta");
    layer_.SetUserName("rūta");
  }

  TableBusinessObject& Type(const std::string& oid) { return *layer_.BusinessObject(oid); }

  Variant One(const std::string& sql) { return FirstValue(*db_, sql); }

  // A read call (GetCall, or RecordsetCall when `records`) that must succeed; its record set, an
  // empty one when it answered none (the case goes on to fail rather than crash).
  std::shared_ptr<Recordset> Read(const std::string& oid, const std::string& name,
                                  const std::string& param, bool records = false) {
    auto reply = records ? Type(oid).RecordsetCall(name, param, 0)
                         : Type(oid).GetCall(name, param, 0);
    EXPECT_EQ(reply.Number, 0) << name << " [" << param << "]: " << reply.Text;
    auto rs = std::dynamic_pointer_cast<Recordset>(reply.Object);
    EXPECT_NE(rs, nullptr) << name;
    return rs ? rs : std::make_shared<MemoryRecordset>();
  }

  // Orvel_SaveObject as the adapter sends it: '<OID>','<OIDR or "">' and the record, of three sets.
  OrvelStatus Save(const std::string& oid, const std::string& oidr,
                   const std::shared_ptr<Recordset>& record) {
    Variant::Array array{Variant(record), Variant(std::shared_ptr<Recordset>()),
                         Variant(std::shared_ptr<Recordset>())};
    return Type(oid).ExecArrayCall("Orvel_SaveObject", "'" + oid + "','" + oidr + "'", array);
  }

  // A new record with `fields` set, saved; its OIDR ("" when refused).
  std::string Create(const std::string& oid, const FieldValues& fields, OrvelStatus* status) {
    auto record = Read(oid, "Orvel_NewObject", "'" + oid + "'");
    for (const auto& [name, value] : fields) record->Fields(name).SetValue(value);
    *status = Save(oid, "", record);
    if (status->Number != 0) return "";
    return oid + ConcatText(record->Fields("ID").Value());
  }

  // A record that must be made; its OIDR.
  std::string Made(const std::string& oid, const FieldValues& fields) {
    OrvelStatus status;
    const std::string oidr = Create(oid, fields, &status);
    EXPECT_FALSE(oidr.empty()) << oid << ": " << status.Text;
    return oidr;
  }

  // A value as text with "." for decimals, whatever the locale; Null is "".
  static std::string Text(const Variant& value) {
    if (value.Type() == VarType::Integer || value.Type() == VarType::Double) {
      char buffer[32];
      std::snprintf(buffer, sizeof buffer, "%.10g", value.NumberValue());
      return buffer;
    }
    return ConcatText(value);
  }

  // One field of every row, as text.
  static std::vector<std::string> Column(Recordset& rs, const std::string& field) {
    return Lines(rs, {field.c_str()});
  }

  // Each row's fields as text joined by "|".
  static std::vector<std::string> Lines(Recordset& rs, std::initializer_list<const char*> fields) {
    std::vector<std::string> out;
    for (rs.MoveFirst(); !rs.IsEOF(); rs.MoveNext()) {
      std::string line;
      for (const char* field : fields) {
        line += (line.empty() ? "" : "|") + Text(rs.Fields(field).Value());
      }
      out.push_back(line);
    }
    return out;
  }

  void ExpectRead(const std::string& oid, const ReadCase& c) {
    if (c.setup) db_->Exec(c.setup);
    auto rs = Read(oid, c.call, c.param);
    for (const auto& [field, values] : c.columns) {
      EXPECT_EQ(Column(*rs, field), values) << c.call << " [" << c.param << "] " << field;
    }
  }

  // The tables the catalogues' calls write, as text: equal snapshots mean a call changed nothing.
  std::string Snapshot() {
    std::string out;
    for (const char* table : {"firms", "goods", "goods_prices", "currency_rates", "firm_info",
                              "documents", "document_lines", "settings", "firm_branches"}) {
      out += std::string(table) + ":\n" +
             RowsText(*db_, std::string("SELECT * FROM ") + table + " ORDER BY rowid");
    }
    return out;
  }

  std::shared_ptr<Database> db_ = std::make_shared<SqliteDatabase>(":memory:");
  BusinessLayer layer_{db_};
};

}  // namespace orvel
