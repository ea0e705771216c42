#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "bizlayer/CatalogueTable.h"
#include "orvel/OrvelObjectBO.h"

namespace orvel {

class MemoryRecordset;
class Recordset;
class Database;

// The business object of one object type over its table in the reference
// database. It answers the module's standard object calls:
//   GetCall       Orvel_NewObject     '<OID>'       one row of defaults, ID Empty
//   GetCall       Orvel_ReadObject    '<OIDR>'      the record, with OIDR and Preview
//   GetCall       Orvel_GetObjectList '<OIDR>'[,'<text>'[,...]]
//                 the members of a group (the whole type, or its top level when
//                 the type has groups, for the OID; every record for an empty
//                 OIDR, as a search sends it), whose name holds <text>
//   ExecArrayCall Orvel_SaveObject    '<OID>','<OIDR>' [record, ...]
//                 inserts (OIDR "") or updates in one transaction and writes the
//                 new ID and OIDR back into the record
//   ExecCall      Orvel_DeleteObject  '<OIDR>'
//                 a record read with its Version is written or deleted only
//                 at that version; moved on since, the call answers
//                 kChangedMeanwhile and changes nothing
//   RecordsetCall Orvel_GetObjectStructure <structure name>
//                 the card's fields from the table of field descriptions
// and the type's own calls, added with OnRead and OnAction. Parameter
// strings are split into arguments and bound; nothing of them reaches SQL
// text. Nothing is thrown out: a failure is a non-zero Number with its text,
// and a failed write changes nothing.
class TableBusinessObject : public OrvelObjectBO {
 public:
  using Args = std::vector<std::string>;
  using ReadHandler = std::function<std::shared_ptr<Recordset>(const Args& args)>;
  using ActionHandler = std::function<void(const Args& args, Variant::Array& array)>;
  // Told of every call as it comes: "GetCall", its name and parameter string.
  using CallObserver =
      std::function<void(const char* op, const std::string& name, const std::string& param)>;

  // Record not found, and a call whose parameters cannot be read.
  static constexpr int32_t kRecordNotFound = 3021;
  static constexpr int32_t kBadCall = 5;
  // A failure of the database itself.
  static constexpr int32_t kDatabaseError = 3146;
  // The record was changed by someone else since it was read: the window
  // reads it again.
  static constexpr int32_t kChangedMeanwhile = 60000;
  // The user holds no right to the write, delete or method.
  static constexpr int32_t kNoRight = 70;

  TableBusinessObject(std::shared_ptr<orvel::Database> db, const CatalogueTable& catalogue);

  const CatalogueTable& Catalogue() const { return catalogue_; }
  // The user whose rights every write, delete and method of the type needs,
  // and whose name goes into CreatedByUser and UpdatedByUser. Without one
  // (the program's own work on its schema) nothing is checked.
  void SetUserName(std::string user) { user_ = std::move(user); }
  const std::string& UserName() const { return user_; }
  void SetCallObserver(CallObserver observer) { observer_ = std::move(observer); }
  // Told how far a list has been read: with 0 as it starts, every
  // kFillStep rows, and once more with `done` and the whole count.
  using FillObserver = std::function<void(int64_t rows, bool done)>;
  static constexpr int64_t kFillStep = 4096;
  void SetFillObserver(FillObserver observer) { fillObserver_ = std::move(observer); }

  // The type's own calls. A handler may throw DatabaseError or RuntimeError;
  // an action runs inside a transaction.
  void OnRead(const std::string& name, ReadHandler handler);
  void OnAction(const std::string& name, ActionHandler handler);

  // What a catalogue's list settings ask of the standard list call. Groups
  // are listed whatever their own Active says, so that the tree can always
  // be walked down to the members a setting shows.
  struct ListOptions {
    bool active = true;           // members in use
    bool inactive = true;         // members no longer in use
    bool byCode = false;          // sorted by Code, otherwise by Name
    bool searchCode = false;      // the text is looked for in Code, otherwise in Name
    bool searchFromStart = false; // the text begins it, otherwise stands anywhere in it
    // SQL over a member's row that it must meet besides, and the values it
    // binds: fixed text of the caller, never a value of the call.
    std::string memberCondition;
    std::vector<Variant> memberValues;
    // Columns added behind the fields, SQL over the row ("... AS Otype").
    std::string columns;
  };

  // The standard list call's answer for its arguments ('<OIDR>'[,'<text>']),
  // for a type whose own list call wraps it.
  std::shared_ptr<Recordset> GetObjectList(const Args& args);
  // The same for a group's OIDR (the type's OID for its top level, "" for
  // every record) and a text to look for, as the options ask.
  std::shared_ptr<Recordset> GetObjectList(const std::string& oidr, const std::string& text,
                                           const ListOptions& options);

  // The ID that an OIDR of this type names; nullopt for anything else.
  std::optional<int64_t> IdOf(const std::string& oidr) const;
  // The set of a query over this database (every column, in order).
  std::shared_ptr<MemoryRecordset> Query(const std::string& sql, const std::vector<Variant>& args);
  orvel::Database& Database() { return *db_; }

  // OrvelObjectBO
  OrvelBoResult GetCall(const std::string& name, const std::string& param, int32_t zero) override;
  OrvelStatus ExecCall(const std::string& name, const std::string& param, int32_t zero) override;
  OrvelStatus ExecArrayCall(const std::string& name, const std::string& param,
                            Variant::Array& args) override;
  OrvelBoResult RecordsetCall(const std::string& name, const std::string& param,
                              int32_t zero) override;

 private:
  // An action in one transaction, rolled back on any failure.
  OrvelStatus Act(const std::string& name, const std::string& param, Variant::Array& array);
  std::shared_ptr<Recordset> NewObject();
  std::shared_ptr<Recordset> ReadObject(const Args& args);
  std::shared_ptr<Recordset> Structure(const Args& args);
  void SaveObject(const Args& args, Variant::Array& array);
  void DeleteObject(const Args& args);

  std::string SelectList() const;  // "ID, Name, ..." of the table
  int64_t Insert(Recordset& rs);
  void Update(int64_t id, Recordset& rs);
  // The version a write of the record must find: the one the record set
  // carries, or the one this session last read; nullopt when neither is known.
  std::optional<int64_t> ExpectedVersion(int64_t id, Recordset* rs) const;
  // After a write that changed no row: the record is gone, or it moved on.
  [[noreturn]] void FailUnchanged(int64_t id);
  void RememberVersion(int64_t id, Recordset* rs);
  bool Versioned() const { return catalogue_.view.empty(); }
  // Refuses with kNoRight unless the user's row for the type's component (or
  // the row "*") grants `right`, one of the rights table's columns.
  void RequireRight(const char* right, const char* doing);

  std::shared_ptr<orvel::Database> db_;
  const CatalogueTable& catalogue_;
  std::string user_;
  std::map<std::string, ReadHandler> reads_;
  std::map<std::string, ActionHandler> actions_;
  CallObserver observer_;
  FillObserver fillObserver_;
  // Each record's version as this session last read or wrote it.
  std::map<int64_t, int64_t> versions_;
};

}  // namespace orvel
