#include "bizlayer/CallArgs.h"
#include "bizlayer/CatalogueCalls.h"
#include "bizlayer/Database.h"
#include "bizlayer/TableBusinessObject.h"
#include "host/MemoryRecordset.h"
#include "orvel/RuntimeError.h"

namespace orvel {

namespace {

using Args = TableBusinessObject::Args;
using callargs::At;
using callargs::IdOrNull;
using callargs::OptionalRecord;
using callargs::Record;
using callargs::Require;

// A firm or group that must exist for the call to mean anything.
int64_t ExistingFirm(TableBusinessObject& firms, const std::string& oidr) {
  const int64_t id = Record(firms, oidr);
  auto rs = firms.Query("SELECT COUNT(*) FROM firms WHERE ID = ?", {Variant(id)});
  if (rs->Fields().Item(0).Value().NumberValue() == 0) {
    throw RuntimeError(TableBusinessObject::kRecordNotFound, "Įrašas nerastas: " + oidr);
  }
  return id;
}

// The balance sums of a firm's open documents by account, each debt with its
// Sign: 240 what the firm owes us, 460 its advances (negative), 450 what we
// owe it (negative), 220 our advances to it. The documents tab adds up the
// same Debt * Sign, so its total is the balance these sums make.
constexpr const char* kDebtSums =
    "COALESCE(SUM(CASE WHEN d.Account = '220' THEN d.Debt * d.Sign END), 0.0) AS Sum220,"
    " COALESCE(SUM(CASE WHEN d.Account = '240' THEN d.Debt * d.Sign END), 0.0) AS Sum240,"
    " COALESCE(SUM(CASE WHEN d.Account = '450' THEN d.Debt * d.Sign END), 0.0) AS Sum450,"
    " COALESCE(SUM(CASE WHEN d.Account = '460' THEN d.Debt * d.Sign END), 0.0) AS Sum460";

// The limit a firm without one is given: the card reads a limit from
// 1000000 up as none, and no balance reaches this one. A limit of 0 would be
// a limit that every debt passes.
constexpr const char* kNoCreditLimit = "1000000000000.0";

}  // namespace

void AddFirmCalls(TableBusinessObject& firms) {
  // 'OIDR','code': how many other firms carry the code. Blanks around a code
  // do not make it another code. A group never counts, nor the firm itself.
  firms.OnRead("CheckCode", [&firms](const Args& args) {
    Require(args, 2, "'<OIDR>','<kodas>'");
    auto own = OptionalRecord(firms, args[0]);
    return firms.Query(
        "SELECT COUNT(*) AS Exist FROM firms WHERE GroupFlag = 0 AND TRIM(Code) = TRIM(?)"
        " AND ID IS NOT ?",
        {Variant(args[1]), IdOrNull(own)});
  });

  // 'OIDR': how many branches the firm has.
  firms.OnRead("CheckBranch", [&firms](const Args& args) {
    Require(args, 1, "'<OIDR>'");
    auto id = OptionalRecord(firms, args[0]);
    return firms.Query("SELECT COUNT(*) AS Exist FROM firm_branches WHERE FirmID = ?",
                       {IdOrNull(id)});
  });

  // '<account>': what is still open on the account over every firm's
  // documents, by the documents' sign; 0 when nothing is.
  firms.OnRead("GetSaldoByAccountCode", [&firms](const Args& args) {
    Require(args, 1, "'<sąskaita>'");
    if (args[0].empty()) {
      throw RuntimeError(TableBusinessObject::kBadCall, "nenurodyta sąskaita");
    }
    return firms.Query(
        "SELECT ROUND(COALESCE(SUM(Debt * Sign), 0), 2) AS Saldo FROM documents WHERE Account = ?",
        {Variant(args[0])});
  });

  // OIDR: the documents of the firm, or of every firm under a group; a new
  // record (no OIDR) is used by none.
  firms.OnRead("GetFirmIsUsedInDocuments", [&firms](const Args& args) {
    auto id = OptionalRecord(firms, At(args, 0));
    return firms.Query(
        "WITH RECURSIVE tree(ID) AS (SELECT ? UNION SELECT f.ID FROM firms f JOIN tree t"
        " ON f.ParentID = t.ID)"
        " SELECT COUNT(*) AS Used FROM documents WHERE FirmID IN (SELECT ID FROM tree)",
        {IdOrNull(id)});
  });

  // OIDR: the balance with the credit limits; a firm without a limit of its
  // own gets kNoCreditLimit. LimitTerm is what the firm owes on sales older
  // than its credit days.
  firms.OnRead("GetFirmDebt", [&firms](const Args& args) {
    const int64_t id = ExistingFirm(firms, At(args, 0));
    return firms.Query(std::string("SELECT ") + kDebtSums +
                           ", CASE WHEN f.CreditLimit > 0 THEN f.CreditLimit ELSE " +
                           kNoCreditLimit + " END AS \"Limit\","
                           " COALESCE((SELECT SUM(o.Debt * o.Sign) FROM documents o WHERE"
                           " o.FirmID = f.ID AND o.Account = '240' AND f.CreditDays > 0 AND"
                           " o.Debt * o.Sign > 0 AND"
                           " o.DocDate < date('now', 'localtime', '-' || f.CreditDays || ' days')),"
                           " 0.0) AS LimitTerm,"
                           " COALESCE(f.CreditDays, 0) AS LimitDays"
                           " FROM firms f LEFT JOIN documents d ON d.FirmID = f.ID WHERE f.ID = ?"
                           " GROUP BY f.ID",
                       {Variant(id)});
  });

  // OIDR of our own firm: the same sums, no limits.
  firms.OnRead("GetOurDebt", [&firms](const Args& args) {
    const int64_t id = ExistingFirm(firms, At(args, 0));
    return firms.Query(std::string("SELECT ") + kDebtSums +
                           " FROM firms f LEFT JOIN documents d ON d.FirmID = f.ID WHERE f.ID = ?"
                           " GROUP BY f.ID",
                       {Variant(id)});
  });

  // The group's ID as a bare number ("0" for the top): the type and region a
  // new firm in it starts with. No row for the top or a missing group.
  firms.OnRead("GetTypeAndRegion", [&firms](const Args& args) {
    const int64_t parent = callargs::Integer(At(args, 0), "grupės ID");
    return firms.Query("SELECT FirmTypeId, RegionID FROM firms WHERE ID = ? AND GroupFlag = 1",
                       {Variant(parent)});
  });

  // 'OIDR',<ID>: the firm's notes, 0 for all of them. Notes still in force
  // come first, then by priority and the newest; the window shows the first.
  firms.OnRead("GetFirmInfo", [&firms](const Args& args) {
    Require(args, 2, "'<OIDR>',<pastabos ID>");
    const int64_t id = Record(firms, args[0]);
    const int64_t note = callargs::Integer(args[1], "pastabos ID");
    return firms.Query(
        "SELECT ID, Info, DateFrom, DateTo, UserName, Priority FROM firm_info"
        " WHERE FirmID = ? AND (? = 0 OR ID = ?)"
        " ORDER BY (DateTo IS NULL OR DateTo >= date('now', 'localtime')) DESC,"
        " Priority DESC, DateFrom DESC, ID DESC",
        {Variant(id), Variant(note), Variant(note)});
  });

  // <ID>: removes one note.
  firms.OnAction("DeleteFirmInfo", [&firms](const Args& args, Variant::Array&) {
    const int64_t note = callargs::Integer(At(args, 0), "pastabos ID");
    auto stmt = firms.Database().Prepare("DELETE FROM firm_info WHERE ID = ?");
    stmt.Bind(1, Variant(note));
    stmt.Run();
    if (firms.Database().Changes() == 0) {
      throw RuntimeError(TableBusinessObject::kRecordNotFound,
                         "Informacija nerasta: " + std::to_string(note));
    }
  });

  // OIDR of a group (the type's OID for the top): its members, groups first.
  firms.OnRead("GetFirms", [&firms](const Args& args) {
    Require(args, 1, "<OIDR>");
    auto parent = OptionalRecord(firms, args[0]);
    return firms.Query(
        "SELECT 'O0000100' || f.ID AS OIDR, f.Name AS Preview, f.GroupFlag, f.Code,"
        " f.Address AS Street, r.Name AS RegionName, f.Phone AS Tel, NULL AS Fax,"
        " NULL AS Director FROM firms f LEFT JOIN regions r ON r.ID = f.RegionID"
        " WHERE (? IS NULL AND (f.ParentID IS NULL OR f.ParentID = 0)) OR f.ParentID = ?"
        " ORDER BY f.GroupFlag DESC, f.Name, f.ID",
        {IdOrNull(parent), IdOrNull(parent)});
  });

  // 'OIDR','from','to': the firm's documents of the period, oldest first.
  firms.OnRead("GetTraffic", [&firms](const Args& args) {
    Require(args, 3, "'<OIDR>','<nuo>','<iki>'");
    const int64_t id = Record(firms, args[0]);
    const Date from = callargs::Day(args[1], "pirma diena");
    const Date to = callargs::Day(args[2], "paskutinė diena");
    return firms.Query(
        "SELECT OType || ID AS OIDR, OType, DocName, Number, DocDate AS \"Date\", Suma, Debt,"
        " Sign, GID FROM documents WHERE FirmID = ? AND DocDate >= ? AND DocDate <= ?"
        " ORDER BY DocDate, ID",
        {Variant(id), Variant(from), Variant(to)});
  });

  // 'OIDR','text': the goods on the firm's documents whose name holds the
  // text, one row per document line.
  firms.OnRead("GetFindGoods", [&firms](const Args& args) {
    Require(args, 1, "'<OIDR>','<tekstas>'");
    const int64_t id = Record(firms, args[0]);
    return firms.Query(
        "SELECT d.OType || d.ID || '.' || l.ID AS GOIDR, d.OType || d.ID AS DocOIDR, d.OType,"
        " g.Name AS GoodName, l.Comment, d.Number, d.DocDate AS \"Date\", l.Amount,"
        " 'O0000200' || g.ID AS OIDR FROM document_lines l"
        " JOIN documents d ON d.ID = l.DocumentID JOIN goods g ON g.ID = l.GoodID"
        " WHERE d.FirmID = ? AND (? = '' OR orvel_contains(g.Name, ?))"
        " ORDER BY d.DocDate DESC, l.ID",
        {Variant(id), Variant(At(args, 1)), Variant(At(args, 1))});
  });

  AddFirmListCall(firms);
}

}  // namespace orvel
