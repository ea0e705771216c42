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
using callargs::Require;

// The currency the books are kept in; its rate is 1 on every day.
constexpr const char* kBaseCode =
    "COALESCE((SELECT Value FROM settings WHERE Name = 'BaseCurrency'), 'EUR')";

// The card's fields of a currency, with its OIDR and whether it is the base.
std::string CurrencyColumns() {
  return std::string(
             "'O0002200' || c.ID AS OIDR, c.ID, c.Code, c.Name, c.State, c.FixedRate,"
             " c.GenderCurr, c.OneCurr, c.TwoCurr, c.TenCurr, c.GenderSmall, c.OneSmall,"
             " c.TwoSmall, c.TenSmall, CASE WHEN c.Code = ") +
         kBaseCode + " THEN 1 ELSE 0 END AS BaseCurrency";
}

}  // namespace

void AddCurrencyCalls(TableBusinessObject& currencies) {
  // 'date': every currency with its rate on that day, that is the last day
  // rate stored on or before it; the base currency 1, a fixed one its fixed
  // rate, a floating one without any rate yet Null.
  currencies.OnRead("GetCurrencyList", [&currencies](const Args& args) {
    const Date day = callargs::Day(At(args, 0), "data");
    return currencies.Query(
        "SELECT " + CurrencyColumns() + ", CASE WHEN c.Code = " + kBaseCode +
            " THEN 1.0 WHEN c.FixedRate > 0 THEN c.FixedRate ELSE"
            " (SELECT r.Rate FROM currency_rates r WHERE r.CurrencyID = c.ID AND r.RateDate <= ?1"
            " ORDER BY r.RateDate DESC LIMIT 1) END AS Rate,"
            " (SELECT MAX(r.RateDate) FROM currency_rates r WHERE r.CurrencyID = c.ID"
            " AND r.RateDate <= ?1) AS RateDate FROM currencies c ORDER BY c.Code, c.ID",
        {Variant(day)});
  });

  // <code>, bare or in apostrophes, in any case: the currency, or no row.
  currencies.OnRead("GetCurrencyByCode", [&currencies](const Args& args) {
    return currencies.Query("SELECT " + CurrencyColumns() +
                                " FROM currencies c WHERE UPPER(c.Code) = UPPER(TRIM(?))"
                                " ORDER BY c.ID",
                            {Variant(At(args, 0))});
  });

  // 'from','to': the day rates of every currency in the period, by code and
  // day; the card keeps the rows of its own code.
  currencies.OnRead("GetCurrencyRates", [&currencies](const Args& args) {
    Require(args, 2, "'<nuo>','<iki>'");
    const Date from = callargs::Day(args[0], "pirma diena");
    const Date to = callargs::Day(args[1], "paskutinė diena");
    return currencies.Query(
        "SELECT c.Code, r.RateDate AS DateD, r.Rate, 'O0002200' || c.ID AS OIDR"
        " FROM currency_rates r JOIN currencies c ON c.ID = r.CurrencyID"
        " WHERE r.RateDate >= ? AND r.RateDate <= ? ORDER BY c.Code, r.RateDate",
        {Variant(from), Variant(to)});
  });

  // 'code','date',rate: the currency's rate of the day, for one unit. A rate
  // already stored for the day is overwritten. The base currency and a fixed
  // one have no day rates; a rate must be above zero.
  currencies.OnAction("SaveDayRate", [&currencies](const Args& args, Variant::Array&) {
    // Exactly three: a rate written with a decimal comma would split in two.
    callargs::RequireExactly(args, 3, "'<kodas>','<data>',<kursas>");
    const Date day = callargs::Day(args[1], "data");
    const double rate = callargs::Number(args[2], "kursas");
    if (!(rate > 0)) {
      throw RuntimeError(TableBusinessObject::kBadCall,
                         "kursas turi būti didesnis už nulį: " + args[2]);
    }
    auto found = currencies.Query(
        std::string("SELECT c.ID, c.FixedRate > 0 OR c.Code = ") + kBaseCode +
            " FROM currencies c WHERE UPPER(c.Code) = UPPER(TRIM(?)) ORDER BY c.ID LIMIT 1",
        {Variant(args[0])});
    if (found->RecordCount() == 0) {
      throw RuntimeError(TableBusinessObject::kRecordNotFound, "Valiuta nerasta: " + args[0]);
    }
    if (found->Fields().Item(1).Value().NumberValue() != 0) {
      throw RuntimeError(TableBusinessObject::kBadCall,
                         "valiutos " + args[0] + " kursas pastovus");
    }
    auto stmt = currencies.Database().Prepare(
        "INSERT INTO currency_rates (CurrencyID, RateDate, Rate) VALUES (?, ?, ?)"
        " ON CONFLICT (CurrencyID, RateDate) DO UPDATE SET Rate = excluded.Rate");
    stmt.BindAll(found->Fields().Item(0).Value(), day, rate).Run();
  });
}

}  // namespace orvel
