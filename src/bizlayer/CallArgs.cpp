#include "bizlayer/CallArgs.h"

#include <charconv>
#include <cmath>

#include "bizlayer/TableBusinessObject.h"
#include "host/Convert.h"
#include "orvel/RuntimeError.h"

namespace orvel::callargs {

namespace {

// The business object puts the call's name before these texts.
[[noreturn]] void Fail(const char* what, const std::string& text) {
  throw RuntimeError(TableBusinessObject::kBadCall,
                     std::string("neteisinga reikšmė: ") + what + " [" + text + "]");
}

std::string_view Trimmed(const std::string& text) {
  std::string_view view(text);
  while (!view.empty() && (view.front() == ' ' || view.front() == '\t')) view.remove_prefix(1);
  while (!view.empty() && (view.back() == ' ' || view.back() == '\t')) view.remove_suffix(1);
  return view;
}

}  // namespace

const std::string& At(const std::vector<std::string>& args, size_t index) {
  static const std::string none;
  return index < args.size() ? args[index] : none;
}

void Require(const std::vector<std::string>& args, size_t count, const char* expected) {
  if (args.size() < count) {
    throw RuntimeError(TableBusinessObject::kBadCall,
                       std::string("per mažai parametrų, laukta ") + expected);
  }
}

void RequireExactly(const std::vector<std::string>& args, size_t count, const char* expected) {
  if (args.size() != count) {
    throw RuntimeError(TableBusinessObject::kBadCall,
                       std::string("neteisingas parametrų skaičius, laukta ") + expected);
  }
}

int64_t Integer(const std::string& text, const char* what) {
  std::string_view view = Trimmed(text);
  int64_t value = 0;
  auto [end, ec] = std::from_chars(view.data(), view.data() + view.size(), value);
  if (view.empty() || ec != std::errc() || end != view.data() + view.size()) {
    Fail(what, text);
  }
  return value;
}

double Number(const std::string& text, const char* what) {
  std::string_view view = Trimmed(text);
  if (!view.empty() && view.front() == '+') view.remove_prefix(1);
  double value = 0;
  auto [end, ec] =
      std::from_chars(view.data(), view.data() + view.size(), value, std::chars_format::general);
  if (view.empty() || ec != std::errc() || end != view.data() + view.size() ||
      !std::isfinite(value)) {
    Fail(what, text);
  }
  return value;
}

Date Day(const std::string& text, const char* what) {
  std::string_view view = Trimmed(text);
  if (auto day = ParseDate(view)) return Date{std::floor(day->serial)};
  // A date with its time ("2026-11-23 14:05:00"): the day part counts.
  if (auto blank = view.find(' '); blank != std::string_view::npos) {
    if (auto day = ParseDate(view.substr(0, blank))) return Date{std::floor(day->serial)};
  }
  Fail(what, text);
}

Variant IdOrNull(const std::optional<int64_t>& id) { return id ? Variant(*id) : Variant::Null(); }

std::optional<int64_t> OptionalRecord(const TableBusinessObject& object, const std::string& oidr) {
  if (oidr.empty() || oidr == object.Catalogue().oid) return std::nullopt;
  if (auto id = object.IdOf(oidr)) return id;
  throw RuntimeError(TableBusinessObject::kBadCall,
                     "[" + oidr + "] nėra " + object.Catalogue().oid + " įrašas");
}

int64_t Record(const TableBusinessObject& object, const std::string& oidr) {
  if (auto id = OptionalRecord(object, oidr)) return *id;
  throw RuntimeError(TableBusinessObject::kBadCall,
                     "laukta " + object.Catalogue().oid + " įrašo OIDR, gauta [" + oidr + "]");
}

}  // namespace orvel::callargs
