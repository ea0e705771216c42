#pragma once

#include <cstdint>
#include <string>

namespace orvel {

// The texts of the firm card's debt line, made from the balance figures the
// business layer sends ("GetFirmDebt" / "GetOurDebt"). Numbers shown to the
// user follow the locale in force; "Lt" is part of the text.
//
// The three number forms differ on purpose and users know them so: balances
// with two to six decimals, the limit in the warning as the plain number
// text, the overdue sum with two decimals and no leading zero, and the limit
// on the credit line with two decimals.
class FirmDebtLine {
 public:
  // Sum240: what the firm owes; Sum460: its advance (shown negated);
  // Sum450: what we owe (shown negated); Sum220: our advance.
  double Sum220 = 0;
  double Sum240 = 0;
  double Sum450 = 0;
  double Sum460 = 0;

  // The balance tested against the credit limit.
  double Debt() const { return Sum240 + Sum460; }

  // "Skola: 100,00 Lt (avansas 5,00 Lt); Mūsų skola: 20,00 Lt ", or
  // "Skola: 0,00 Lt " when every figure is 0. Never empty.
  std::string Text() const;

  // At least two decimals, at most six, no grouping: 1.5 -> "1,50".
  static std::string FormatSum(double value);
  // "(Viršytas kredito apribojimas !,<limit>)".
  static std::string LimitExceeded(double limit);
  // "(<sum>Lt.  Viršytas kredito terminas ! )", the sum as ",50" for 0.5.
  static std::string TermExceeded(double limitTerm);
  // "Kredito apribojimai: Maksimali suma:<limit>; Dienos:<days>".
  static std::string CreditLimits(double limit, int32_t days);
};

}  // namespace orvel
