// The calls behind a firm's detail lists and its notes, on the firms' business
// object. The lists take the firm's bare OIDR, as the firm's object sends a
// property without a parameter.
#include <cctype>

#include "bizlayer/CallArgs.h"
#include "bizlayer/CatalogueCalls.h"
#include "bizlayer/Database.h"
#include "bizlayer/TableBusinessObject.h"
#include "host/Convert.h"
#include "host/MemoryRecordset.h"
#include "orvel/RuntimeError.h"

namespace orvel {

namespace {

using Args = TableBusinessObject::Args;
using callargs::At;

// The firm a list is asked for; it must be a stored firm or group.
int64_t ListedFirm(TableBusinessObject& firms, const Args& args) {
  callargs::RequireExactly(args, 1, "<OIDR>");
  const int64_t id = callargs::Record(firms, args[0]);
  auto rs = firms.Query("SELECT COUNT(*) FROM firms WHERE ID = ?", {Variant(id)});
  if (rs->Fields().Item(0).Value().NumberValue() == 0) {
    throw RuntimeError(TableBusinessObject::kRecordNotFound, "Įrašas nerastas: " + args[0]);
  }
  return id;
}

// A list call over one firm: `sql` binds the firm's ID once, or its OIDR
// where `byOidr`.
void AddFirmList(TableBusinessObject& firms, const std::string& call, std::string sql,
                 bool byOidr = false) {
  firms.OnRead(call, [&firms, sql = std::move(sql), byOidr](const Args& args) {
    const int64_t id = ListedFirm(firms, args);
    return firms.Query(
        sql, {byOidr ? Variant(firms.Catalogue().oid + std::to_string(id)) : Variant(id)});
  });
}

// A day as the note's writer sends it: "20060101".
Date CompactDay(const std::string& text, const char* what) {
  bool digits = text.size() == 8;
  for (char c : text) digits = digits && std::isdigit(static_cast<unsigned char>(c));
  if (digits) {
    const int year = std::stoi(text.substr(0, 4));
    const int month = std::stoi(text.substr(4, 2));
    const int day = std::stoi(text.substr(6, 2));
    if (year >= 100 && month >= 1 && month <= 12 && day >= 1 && day <= 31) {
      const Date date = DateSerial(year, month, day);
      int y = 0, m = 0, d = 0;
      SplitDate(date, y, m, d);
      if (m == month && d == day) return date;
    }
  }
  throw RuntimeError(TableBusinessObject::kBadCall,
                     std::string("neteisinga diena (yyyymmdd): ") + what + " [" + text + "]");
}

// <ID>,'<text>','<from>',<'to' or Null>,<firm ID>,<user ID>,<priority>: writes
// a note, a new one for ID 0. The author is the user of that ID.
void AddUpdateFirmInfo(TableBusinessObject& firms, const Args& args) {
  callargs::RequireExactly(args, 7,
                           "<ID>,'<tekstas>','<yyyymmdd>',<'yyyymmdd' arba Null>,<įmonės ID>,<vartotojo ID>,"
                           "<prioritetas>");
  const int64_t note = callargs::Integer(args[0], "pastabos ID");
  const std::string& text = args[1];
  const Date from = CompactDay(args[2], "pirma diena");
  const Variant to = args[3] == "Null" ? Variant::Null() : Variant(CompactDay(args[3], "pabaiga"));
  const int64_t firm = callargs::Integer(args[4], "įmonės ID");
  const int64_t user = callargs::Integer(args[5], "vartotojo ID");
  const int64_t priority = callargs::Integer(args[6], "prioritetas");
  if (note < 0) {
    throw RuntimeError(TableBusinessObject::kBadCall, "pastabos ID negali būti neigiamas");
  }
  if (priority < 1 || priority > 3) {
    throw RuntimeError(TableBusinessObject::kBadCall,
                       "prioritetas turi būti 1, 2 arba 3: " + args[6]);
  }
  if (!to.IsNull() && to.DateValue() < from) {
    throw RuntimeError(TableBusinessObject::kBadCall,
                       "pastaba baigiasi anksčiau, nei prasideda");
  }
  auto found = firms.Query("SELECT COUNT(*) FROM firms WHERE ID = ?", {Variant(firm)});
  if (found->Fields().Item(0).Value().NumberValue() == 0) {
    throw RuntimeError(TableBusinessObject::kRecordNotFound,
                       "Įmonė nerasta: " + std::to_string(firm));
  }
  auto author = firms.Query("SELECT Name FROM users WHERE ID = ?", {Variant(user)});
  const Variant name = author->IsEOF() ? Variant(firms.UserName()) : author->Fields("Name").Value();
  auto& db = firms.Database();
  if (note == 0) {
    auto stmt = db.Prepare(
        "INSERT INTO firm_info (FirmID, Info, DateFrom, DateTo, UserName, Priority)"
        " VALUES (?, ?, ?, ?, ?, ?)");
    stmt.BindAll(firm, text, from, to, name, priority).Run();
    return;
  }
  auto stmt = db.Prepare(
      "UPDATE firm_info SET Info = ?, DateFrom = ?, DateTo = ?, UserName = ?, Priority = ?"
      " WHERE ID = ? AND FirmID = ?");
  stmt.BindAll(text, from, to, name, priority, note, firm).Run();
  if (db.Changes() == 0) {
    throw RuntimeError(TableBusinessObject::kRecordNotFound,
                       "Informacija nerasta: " + std::to_string(note));
  }
}

}  // namespace

void AddFirmDetailCalls(TableBusinessObject& firms) {
  // The settlement accounts, by the firm's OIDR that each account keeps.
  AddFirmList(firms, "GetAccounts",
              "SELECT 'O0000500' || a.ID AS OIDR, a.Name AS Number, b.Name AS BankName,"
              " a.Currency FROM firm_accounts a LEFT JOIN banks b ON b.ID = a.BankID"
              " WHERE a.FOIDR = ? ORDER BY a.Name, a.ID",
              true);
  // Main address first.
  AddFirmList(firms, "GetFirmADDRESSES",
              "SELECT 'O0002000' || ID AS OIDR, Name AS AddressType, Region, PostCode, Street,"
              " Phone, Fax, EMail, FlagMain FROM firm_addresses WHERE FirmID = ?"
              " ORDER BY FlagMain DESC, ID");
  AddFirmList(firms, "GetFirmCONTACTS",
              "SELECT 'O0002100' || ID AS OIDR, Name, LastName, Role, Phone, Fax, EMail, Note,"
              " FlagMain FROM firm_contacts WHERE FirmID = ? ORDER BY FlagMain DESC, ID");
  AddFirmList(firms, "GetFirmSERVERS",
              "SELECT 'O0002400' || ID AS OIDR, Name FROM firm_managers WHERE FirmID = ?"
              " ORDER BY Name, ID");
  AddFirmList(firms, "GetFirmActivity",
              "SELECT 'O0002500' || ID AS OIDR, Name AS Preview FROM firm_activities"
              " WHERE FirmID = ? ORDER BY Name, ID");
  // A firm's branches are records of the suite's own branch type, which no
  // window of this module opens (the departments' book "O0001604" only
  // links to them by ID).
  AddFirmList(firms, "GetFirmBranch",
              "SELECT 'O0001700' || ID AS OIDR, Name, Code, Region, Street, Tel, Fax, EMail"
              " FROM firm_branches WHERE FirmID = ? ORDER BY Name, ID");
  // The newest contract first.
  AddFirmList(firms, "GetContractsList",
              "SELECT OType || ID AS OIDR, OType, ContractNumber, DateFrom, DateTo, SumA, State,"
              " Responsible FROM firm_contracts WHERE FirmID = ?"
              " ORDER BY DateFrom DESC, ID DESC");
  // The firm's own discounts, then those it inherits from its groups, the
  // nearest group first; FirmName names the firm or group that holds each.
  AddFirmList(firms, "GetDiscounts",
              "WITH RECURSIVE chain(ID, Depth) AS (SELECT ?, 0 UNION ALL SELECT f.ParentID,"
              " c.Depth + 1 FROM firms f JOIN chain c ON f.ID = c.ID WHERE f.ParentID > 0"
              " AND c.Depth < 50)"
              " SELECT 'O1000600' || d.ID AS OIDR, d.DiscountTypeName, d.VariantName, d.SumFrom,"
              " d.SumTo, d.Percent, d.GoodName, d.Valid, f.Name AS FirmName"
              " FROM chain c JOIN firm_discounts d ON d.FirmID = c.ID JOIN firms f ON f.ID = c.ID"
              " ORDER BY c.Depth, d.DiscountTypeName, d.ID");

  firms.OnAction("AddUpdateFirmInfo",
                 [&firms](const Args& args, Variant::Array&) { AddUpdateFirmInfo(firms, args); });
}

}  // namespace orvel
