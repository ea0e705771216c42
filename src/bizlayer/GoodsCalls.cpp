#include "bizlayer/CallArgs.h"
#include "bizlayer/CatalogueCalls.h"
#include "bizlayer/Database.h"
#include "bizlayer/TableBusinessObject.h"
#include "host/Convert.h"
#include "host/MemoryRecordset.h"
#include "host/ParamList.h"
#include "orvel/RuntimeError.h"

namespace orvel {

namespace {

using Args = TableBusinessObject::Args;
using callargs::At;
using callargs::IdOrNull;
using callargs::OptionalRecord;
using callargs::Record;
using callargs::Require;

// A record and every record under it, as the first CTE of a statement.
constexpr const char* kSubtree =
    "WITH RECURSIVE tree(ID) AS (SELECT ? UNION SELECT g.ID FROM goods g JOIN tree t"
    " ON g.ParentID = t.ID) ";

// What the group-wide changes act on, read from the one argument the module
// puts in the array: "<ID>,<with subgroups 0/1>,<value>", e.g. "15,1,-2.5".
struct GroupChange {
  int64_t id = 0;
  bool withSubGroups = false;
  double value = 0;
};

GroupChange ReadGroupChange(const Variant::Array& array) {
  if (array.empty()) {
    throw RuntimeError(TableBusinessObject::kBadCall,
                       "laukta masyvo [\"<ID>,<0|1>,<reikšmė>\"]");
  }
  const std::string text = ConcatText(array[0]);
  auto args = SplitParams(text);
  if (!args || args->size() != 3) {
    throw RuntimeError(TableBusinessObject::kBadCall,
                       "laukta <ID>,<0|1>,<reikšmė>, gauta [" + text + "]");
  }
  GroupChange change;
  change.id = callargs::Integer((*args)[0], "grupės ID");
  const int64_t chk = callargs::Integer((*args)[1], "pogrupių požymis");
  if (chk != 0 && chk != 1) {
    throw RuntimeError(TableBusinessObject::kBadCall,
                       "pogrupių požymis turi būti 0 arba 1: [" + (*args)[1] + "]");
  }
  change.withSubGroups = chk == 1;
  change.value = callargs::Number((*args)[2], "reikšmė");
  return change;
}

// Runs `set` (assignments of ?2, the value, and ?3, the user) over the goods that a
// group change reaches: the record itself when it is a good, its direct
// members, or with subgroups everything under it. Fails when the record does
// not exist; the caller's transaction then changes nothing.
void ApplyGroupChange(TableBusinessObject& goods, const GroupChange& change, const std::string& set, const Variant& value) {
  auto found = goods.Query("SELECT COUNT(*) FROM goods WHERE ID = ?", {Variant(change.id)});
  if (found->Fields().Item(0).Value().NumberValue() == 0) {
    throw RuntimeError(TableBusinessObject::kRecordNotFound,
                       "Įrašas nerastas: O0000200" + std::to_string(change.id));
  }
  // ?1 the record, ?2 the value, ?3 the user.
  const std::string reach =
      change.withSubGroups
          ? "WITH RECURSIVE tree(ID) AS (SELECT ?1 UNION SELECT g.ID FROM goods g JOIN tree t"
            " ON g.ParentID = t.ID) UPDATE goods SET " +
                set + " WHERE GroupFlag = 0 AND ID IN (SELECT ID FROM tree)"
          : "UPDATE goods SET " + set + " WHERE GroupFlag = 0 AND (ID = ?1 OR ParentID = ?1)";
  auto stmt = goods.Database().Prepare(reach);
  stmt.BindAll(change.id, value, goods.UserName());
  stmt.Run();
}

// Adds the rows of `more` (the same columns in the same order) behind those
// of `rs`, and goes back to the first row.
void Append(MemoryRecordset& rs, Recordset& more) {
  const int count = more.Fields().Count();
  if (count != rs.Fields().Count()) {
    throw RuntimeError(TableBusinessObject::kDatabaseError, "suvestinės eilutės stulpeliai nesutampa");
  }
  for (more.MoveFirst(); !more.IsEOF(); more.MoveNext()) {
    std::vector<Variant> row;
    row.reserve(static_cast<size_t>(count));
    for (int c = 0; c < count; ++c) row.push_back(more.Fields().Item(c).Value());
    rs.AddRow(std::move(row));
  }
  rs.MoveFirst();
}

}  // namespace

void AddGoodsCalls(TableBusinessObject& goods) {
  // <ParentID> ("", "0" for the top): the parent's code and the highest code
  // under it, as texts. The highest is the longest, then the greatest, so that
  // "0100" comes above "99". A good without a parent is asked for by its own
  // OIDR (an empty parameter is replaced by it on the way), which is the top.
  goods.OnRead("GetStructuredCode", [&goods](const Args& args) {
    const std::string& text = At(args, 0);
    const bool top = text.empty() || text.rfind(goods.Catalogue().oid, 0) == 0;
    const int64_t parent = top ? 0 : callargs::Integer(text, "grupės ID");
    if (parent != 0) {
      auto group = goods.Query("SELECT COUNT(*) FROM goods WHERE ID = ? AND GroupFlag = 1",
                               {Variant(parent)});
      if (group->Fields().Item(0).Value().NumberValue() == 0) {
        throw RuntimeError(TableBusinessObject::kRecordNotFound,
                           "Grupė nerasta: O0000200" + std::to_string(parent));
      }
    }
    return goods.Query(
        "SELECT (SELECT Code FROM goods WHERE ID = ?) AS PARENTCODE,"
        " (SELECT Code FROM goods WHERE COALESCE(ParentID, 0) = ? AND Code IS NOT NULL"
        " ORDER BY LENGTH(Code) DESC, Code DESC LIMIT 1) AS MAXCODE",
        {Variant(parent), Variant(parent)});
  });

  // The database's default VAT rate in percent, field "Value".
  goods.OnRead("GetVatFactor", [&goods](const Args&) {
    return goods.Query(
        "SELECT CAST(COALESCE((SELECT Value FROM settings WHERE Name = 'VatFactor'), '21')"
        " AS INTEGER) AS Value",
        {});
  });

  // OIDR: the document lines of the good, or of every good under a group.
  goods.OnRead("GetGoodIsUsedInDocuments", [&goods](const Args& args) {
    auto id = OptionalRecord(goods, At(args, 0));
    return goods.Query(std::string(kSubtree) +
                           "SELECT COUNT(*) AS Used FROM document_lines"
                           " WHERE GoodID IN (SELECT ID FROM tree)",
                       {IdOrNull(id)});
  });

  // ["<ID>,<0|1>,<percent>"]: prices change by the percent, up or down, to the
  // cent; a change below -100 % would make them negative and is refused.
  goods.OnAction("UpdateGoodsPrice", [&goods](const Args&, Variant::Array& array) {
    GroupChange change = ReadGroupChange(array);
    if (change.value < -100) {
      throw RuntimeError(TableBusinessObject::kBadCall,
                         "kaina negali tapti neigiama");
    }
    ApplyGroupChange(goods, change,
                     "Price = ROUND(COALESCE(Price, 0) * (1 + ?2 / 100.0), 2), UpdatedByUser = ?3,"
                     " UpdateDate = datetime('now', 'localtime')",
                     Variant(change.value));
  });

  // ["<ID>,<0|1>,<months>"]: the guarantee of the goods becomes the months.
  goods.OnAction("UpdateGaranty", [&goods](const Args&, Variant::Array& array) {
    GroupChange change = ReadGroupChange(array);
    if (change.value < 0) {
      throw RuntimeError(TableBusinessObject::kBadCall,
                         "garantija negali būti neigiama");
    }
    ApplyGroupChange(goods, change,
                     "Garanty = ?2, UpdatedByUser = ?3, UpdateDate = datetime('now', 'localtime')",
                     Variant(change.value));
  });

  // 'source OIDR','user ID': a new good with the source's fields and prices.
  // The code and bar code identify a good, so the copy starts without them.
  // Answers the new record's OIDR.
  goods.OnRead("CopyGood", [&goods](const Args& args) {
    Require(args, 2, "'<OIDR>','<vartotojo ID>'");
    const int64_t source = Record(goods, args[0]);
    auto kind = goods.Query("SELECT GroupFlag FROM goods WHERE ID = ?", {Variant(source)});
    if (kind->RecordCount() == 0) {
      throw RuntimeError(TableBusinessObject::kRecordNotFound, "Įrašas nerastas: " + args[0]);
    }
    if (kind->Fields().Item(0).Value().NumberValue() != 0) {
      throw RuntimeError(TableBusinessObject::kBadCall, "grupės kopijuoti negalima");
    }
    std::string columns;
    std::string values;
    for (const auto& field : goods.Catalogue().fields) {
      columns += (columns.empty() ? "" : ", ") + field.name;
      std::string value = field.name;
      if (field.name == "Code" || field.name == "BarCode" || field.name == "UpdatedByUser" ||
          field.name == "UpdateDate") {
        value = "NULL";
      } else if (field.name == "CreatedByUser") {
        value = "COALESCE((SELECT Name FROM users WHERE CAST(ID AS TEXT) = ?1 OR Name = ?1), ?1)";
      } else if (field.name == "CreationDate") {
        value = "datetime('now', 'localtime')";
      }
      values += (values.empty() ? "" : ", ") + value;
    }
    Transaction transaction(goods.Database());
    auto copy = goods.Database().Prepare("INSERT INTO goods (" + columns + ") SELECT " + values +
                                         " FROM goods WHERE ID = ?2");
    copy.BindAll(args[1], source).Run();
    const int64_t id = goods.Database().LastInsertRowId();
    auto prices = goods.Database().Prepare(
        "INSERT INTO goods_prices (GoodID, PriceType, Currency, Price, FirmID)"
        " SELECT ?, PriceType, Currency, Price, FirmID FROM goods_prices WHERE GoodID = ?"
        " ORDER BY ID");
    prices.BindAll(id, source).Run();
    transaction.Commit();
    return goods.Query("SELECT 'O0000200' || ID AS OIDR, ID, Name FROM goods WHERE ID = ?",
                       {Variant(id)});
  });

  // 'OIDR','serial': the lines whose serial number holds the text, for the
  // good or everything under a group (the whole catalogue for its root).
  goods.OnRead("GetFindGoods", [&goods](const Args& args) {
    Require(args, 1, "'<OIDR>','<serijos numeris>'");
    auto id = OptionalRecord(goods, args[0]);
    return goods.Query(
        std::string(kSubtree) +
            "SELECT d.OType || d.ID AS DocOIDR, l.ID AS PID, l.SerialNo AS SN, d.OType,"
            " g.Name AS GName, d.Number, d.DocDate AS \"Date\", f.Name AS FName, l.Price,"
            " l.Store AS LName, NULL AS CurrencyRate, 1 AS BaseCurrency, 'EUR' AS CODE,"
            " 'O0000200' || g.ID AS GOIDR FROM document_lines l"
            " JOIN documents d ON d.ID = l.DocumentID JOIN goods g ON g.ID = l.GoodID"
            " LEFT JOIN firms f ON f.ID = d.FirmID"
            " WHERE l.SerialNo IS NOT NULL AND orvel_contains(l.SerialNo, ?)"
            " AND (? IS NULL OR l.GoodID IN (SELECT ID FROM tree))"
            " ORDER BY l.SerialNo, d.DocDate, l.ID",
        {IdOrNull(id), Variant(At(args, 1)), IdOrNull(id)});
  });

  // '<OIDR>',<0|1>: the goods (no groups) of a group, and with 1 those of
  // its subgroups too; the goods' own OID stands for the top.
  goods.OnRead("GetGoods", [&goods](const Args& args) {
    Require(args, 2, "'<OIDR>',<0|1>");
    const auto group = OptionalRecord(goods, args[0]);
    const int64_t deep = callargs::Integer(args[1], "pogrupių požymis");
    return goods.Query(
        "WITH RECURSIVE tree(ID, Depth) AS (SELECT COALESCE(?1, 0), 0 UNION ALL"
        " SELECT g.ID, t.Depth + 1 FROM goods g JOIN tree t ON COALESCE(g.ParentID, 0) = t.ID"
        " WHERE g.GroupFlag = 1 AND ?2 <> 0)"
        " SELECT 'O0000200' || g.ID AS OIDR, g.Name AS Preview, g.ID, g.Code, g.Name, g.Price,"
        " g.MeasureID FROM goods g WHERE g.GroupFlag = 0"
        " AND COALESCE(g.ParentID, 0) IN (SELECT ID FROM tree) ORDER BY g.Name, g.ID",
        {callargs::IdOrNull(group), Variant(deep)});
  });

  // OIDR: the purchase lots of the good that still hold a rest, oldest
  // first, then the summary row "O0000000" with the whole rest.
  goods.OnRead("GetRests", [&goods](const Args& args) {
    const int64_t id = Record(goods, At(args, 0));
    auto rs = goods.Query(
        "SELECT d.OType || d.ID AS OIDR, l.ID, d.DocName, d.OType, d.Number,"
        " d.DocDate AS \"Date\", f.Name AS Addressee, l.Amount, m.Code AS Measure, l.Price,"
        " l.Rest, l.Reserved, l.Store AS LName, g.Price AS PriceSale"
        " FROM document_lines l JOIN documents d ON d.ID = l.DocumentID"
        " JOIN goods g ON g.ID = l.GoodID LEFT JOIN firms f ON f.ID = d.FirmID"
        " LEFT JOIN measures m ON m.ID = g.MeasureID"
        " WHERE l.GoodID = ? AND d.Sign < 0 AND l.Rest > 0 ORDER BY d.DocDate, l.ID",
        {Variant(id)});
    if (rs->RecordCount() > 0) {
      Append(*rs,
             *goods.Query("SELECT 'O0000000' AS OIDR, NULL AS ID, 'Iš viso' AS DocName,"
                          " NULL AS OType, NULL AS Number, NULL AS \"Date\", NULL AS Addressee,"
                          " SUM(l.Rest) AS Amount, MAX(m.Code) AS Measure, NULL AS Price,"
                          " SUM(l.Rest) AS Rest, SUM(l.Reserved) AS Reserved, NULL AS LName,"
                          " NULL AS PriceSale"
                          " FROM document_lines l JOIN documents d ON d.ID = l.DocumentID"
                          " JOIN goods g ON g.ID = l.GoodID"
                          " LEFT JOIN measures m ON m.ID = g.MeasureID"
                          " WHERE l.GoodID = ? AND d.Sign < 0 AND l.Rest > 0",
                          {Variant(id)}));
    }
    return rs;
  });

  // OIDR: the good's price list.
  goods.OnRead("GetPrices", [&goods](const Args& args) {
    const int64_t id = Record(goods, At(args, 0));
    return goods.Query(
        "SELECT 'O0000600' || p.ID AS OIDR, p.ID, p.PriceType AS Preview, p.PriceType,"
        " p.Currency AS Code, p.Currency, p.Price, f.Name AS FirmName"
        " FROM goods_prices p LEFT JOIN firms f ON f.ID = p.FirmID"
        " WHERE p.GoodID = ? ORDER BY p.PriceType, p.ID",
        {Variant(id)});
  });

  // 'OIDR','from','to': the good's document lines of the period, newest
  // first, then the summary row "O0000000" with what came in less what went
  // out. A purchase (Sign 0) is its own lot: PurchaseID is its line; a sale
  // carries the lot it was taken from (0 for none) and that lot's date, so
  // that sorted by PurchDate and PurchaseID it stands under its purchase.
  // Cost is what a line cost us: a sale at its lot's price, or at the good's
  // average purchase price when it names no lot.
  goods.OnRead("GetTraffic", [&goods](const Args& args) {
    Require(args, 3, "'<OIDR>','<nuo>','<iki>'");
    const int64_t id = Record(goods, args[0]);
    const Date from = callargs::Day(args[1], "pirma diena");
    const Date to = callargs::Day(args[2], "paskutinė diena");
    auto rs = goods.Query(
        "SELECT d.OType || d.ID AS OIDR, d.OType, l.ID AS SaleID, l.ID, d.DocName, d.Number,"
        " d.DocDate AS \"Date\", f.Name AS Addressee, l.Amount, m.Code AS Measure, l.Price,"
        " ROUND(l.Amount * l.Price, 2) AS Suma, l.Comment, l.Store AS LName, 'EUR' AS CODE,"
        " NULL AS CurrencyRate, CASE WHEN d.Sign < 0 THEN f.Name END AS SourcerName,"
        " ROUND(l.Amount * CASE WHEN d.Sign < 0 THEN l.Price WHEN lot.ID IS NOT NULL THEN"
        " lot.Price ELSE COALESCE((SELECT"
        " SUM(p.Amount * p.Price) / SUM(p.Amount) FROM document_lines p JOIN documents pd"
        " ON pd.ID = p.DocumentID WHERE p.GoodID = l.GoodID AND pd.Sign < 0), 0) END, 2)"
        " AS Cost, CASE WHEN d.Sign < 0 THEN 0 ELSE 1 END AS Sign,"
        " lotd.DocDate AS PurchDate,"
        " CASE WHEN d.Sign < 0 THEN l.ID ELSE COALESCE(lot.ID, 0) END AS PurchaseID"
        " FROM document_lines l JOIN documents d ON d.ID = l.DocumentID"
        " JOIN goods g ON g.ID = l.GoodID LEFT JOIN firms f ON f.ID = d.FirmID"
        " LEFT JOIN measures m ON m.ID = g.MeasureID"
        " LEFT JOIN document_lines lot ON lot.ID = l.PurchaseLineID AND d.Sign > 0"
        " LEFT JOIN documents lotd ON lotd.ID = CASE WHEN d.Sign < 0 THEN d.ID"
        " ELSE lot.DocumentID END"
        " WHERE l.GoodID = ?1 AND d.DocDate >= ?2 AND d.DocDate <= ?3"
        " ORDER BY d.DocDate DESC, l.ID",
        {Variant(id), Variant(from), Variant(to)});
    if (rs->RecordCount() > 0) {
      Append(*rs, *goods.Query(
                      "SELECT 'O0000000' AS OIDR, NULL AS OType, NULL AS SaleID, NULL AS ID,"
                      " 'Iš viso' AS DocName, NULL AS Number, NULL AS \"Date\", NULL AS Addressee,"
                      " SUM(CASE WHEN d.Sign < 0 THEN l.Amount ELSE -l.Amount END) AS Amount,"
                      " (SELECT m.Code FROM goods g JOIN measures m ON m.ID = g.MeasureID"
                      " WHERE g.ID = ?1) AS Measure, NULL AS Price, NULL AS Suma, NULL AS Comment,"
                      " NULL AS LName, NULL AS CODE, NULL AS CurrencyRate, NULL AS SourcerName,"
                      " NULL AS Cost, 2 AS Sign, NULL AS PurchDate, NULL AS PurchaseID"
                      " FROM document_lines l JOIN documents d ON d.ID = l.DocumentID"
                      " WHERE l.GoodID = ?1 AND d.DocDate >= ?2 AND d.DocDate <= ?3",
                      {Variant(id), Variant(from), Variant(to)}));
    }
    return rs;
  });

  // <line ID> as a bare number: every document line of its good, oldest
  // first (Sign 0 a purchase, 1 a sale), and a closing row (Sign 2) with what
  // is left.
  goods.OnRead("GetGoodHistory", [&goods](const Args& args) {
    // The goods card asks from a line of its traffic: the history is the
    // whole life of the good that line moved.
    const int64_t line = callargs::Integer(At(args, 0), "dokumento eilutės ID");
    auto good = goods.Query("SELECT GoodID FROM document_lines WHERE ID = ?", {Variant(line)});
    if (good->RecordCount() == 0) {
      throw RuntimeError(TableBusinessObject::kRecordNotFound,
                         "Įrašas nerastas: dokumento eilutė " + std::to_string(line));
    }
    good->MoveFirst();
    const int64_t id = CLng(good->Fields().Item(0).Value());
    auto rs = goods.Query(
        "SELECT d.DocName AS Name, d.OType || d.ID AS OIDR, d.OType,"
        " CASE WHEN d.Sign < 0 THEN 0 ELSE 1 END AS Sign, d.Number,"
        " d.DocDate AS \"Date\", f.Name AS Addressee, l.Amount, m.Code AS Measure,"
        " NULL AS CurrencyRate, 'EUR' AS CODE, l.Price, ROUND(l.Amount * l.Price, 2) AS Suma,"
        " l.Store AS LName FROM document_lines l JOIN documents d ON d.ID = l.DocumentID"
        " JOIN goods g ON g.ID = l.GoodID LEFT JOIN firms f ON f.ID = d.FirmID"
        " LEFT JOIN measures m ON m.ID = g.MeasureID WHERE l.GoodID = ?"
        " ORDER BY d.DocDate, l.ID",
        {Variant(id)});
    Append(*rs, *goods.Query(
                    "SELECT 'Likutis' AS Name, NULL AS OIDR, NULL AS OType, 2 AS Sign,"
                    " NULL AS Number, NULL AS \"Date\", NULL AS Addressee,"
                    " COALESCE((SELECT SUM(-d.Sign * l.Amount) FROM document_lines l"
                    " JOIN documents d ON d.ID = l.DocumentID WHERE l.GoodID = ?1), 0) AS Amount,"
                    " (SELECT m.Code FROM goods g JOIN measures m ON m.ID = g.MeasureID"
                    " WHERE g.ID = ?1) AS Measure, NULL AS CurrencyRate, NULL AS CODE,"
                    " NULL AS Price, NULL AS Suma, NULL AS LName",
                    {Variant(id)}));
    return rs;
  });

  AddGoodsListCall(goods);
}

}  // namespace orvel
