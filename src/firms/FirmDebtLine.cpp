#include "firms/FirmDebtLine.h"

#include "host/Convert.h"
#include "orvel/Variant.h"

namespace orvel {

namespace {
// The shown negation of a figure; a zero stays "0,00", never "-0,00".
double Negated(double value) { return value == 0 ? 0.0 : -value; }
}  // namespace

std::string FirmDebtLine::FormatSum(double value) { return Format(Variant(value), "#0.00####"); }

std::string FirmDebtLine::Text() const {
  std::string debtText;
  if (Sum240 != 0 || Sum460 != 0) {
    debtText = "Skola: " + FormatSum(Sum240) + " Lt ";
    if (Sum460 != 0) debtText += "(avansas " + FormatSum(Negated(Sum460)) + " Lt)";
  }
  std::string ourText;
  if (Sum450 != 0 || Sum220 != 0) {
    ourText = "Mūsų skola: " + FormatSum(Negated(Sum450)) + " Lt ";
    if (Sum220 != 0) ourText += "(avansas " + FormatSum(Sum220) + " Lt)";
  }
  if (debtText.empty() && ourText.empty()) return "Skola: " + FormatSum(0) + " Lt ";
  if (ourText.empty()) return debtText;
  return debtText.empty() ? ourText : debtText + "; " + ourText;
}

std::string FirmDebtLine::LimitExceeded(double limit) {
  return "(Viršytas kredito apribojimas !," + CStr(Variant(limit)) + ")";
}

std::string FirmDebtLine::TermExceeded(double limitTerm) {
  return "(" + Format(Variant(limitTerm), "#.00") + "Lt.  Viršytas kredito terminas ! )";
}

std::string FirmDebtLine::CreditLimits(double limit, int32_t days) {
  return "Kredito apribojimai: Maksimali suma:" + FormatNumber(limit, 2) +
         "; Dienos:" + std::to_string(days);
}

}  // namespace orvel
