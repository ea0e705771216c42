#pragma once

#include <memory>
#include <regex>
#include <string>
#include <utility>
#include <vector>

#include "host/Convert.h"
#include "host/MemoryRecordset.h"
#include "host/Text.h"

namespace orvel {

// One value written as text: "~" Null, "true"/"false" a Boolean, "@2026-03-01"
// a date, digits a whole number, digits with a point a Double, "#..." the text
// after the "#", anything else text.
inline Variant ValueOf(const std::string& text) {
  static const std::regex whole("-?[0-9]+");
  static const std::regex real("-?[0-9]*\\.[0-9]+");
  if (text == "~") return Variant::Null();
  if (text == "true" || text == "false") return Variant(text == "true");
  if (!text.empty() && text[0] == '@') return Variant(*ParseDate(text.substr(1)));
  if (!text.empty() && text[0] == '#') return Variant(text.substr(1));
  if (std::regex_match(text, whole)) return Variant(static_cast<int32_t>(std::stol(text)));
  if (std::regex_match(text, real)) return Variant(std::stod(text));
  return Variant(text);
}

// A record set of the fields named by blanks, a row a text of values by "|".
inline std::shared_ptr<MemoryRecordset> TextRecords(const std::string& fields,
                                                    const std::vector<std::string>& rows) {
  auto rs = std::make_shared<MemoryRecordset>(Split(fields, " "));
  for (const auto& row : rows) {
    std::vector<Variant> values;
    for (const auto& text : Split(row, "|")) values.push_back(ValueOf(text));
    rs->AddRow(std::move(values));
  }
  rs->MoveFirst();
  return rs;
}

// "name=value" pairs by ";", each value as ValueOf reads it.
inline std::vector<std::pair<std::string, Variant>> Assignments(const std::string& text) {
  std::vector<std::pair<std::string, Variant>> out;
  if (text.empty()) return out;
  for (const auto& part : Split(text, ";")) {
    const size_t eq = part.find('=');
    out.emplace_back(part.substr(0, eq), ValueOf(part.substr(eq + 1)));
  }
  return out;
}

// Rows for a MemoryTable's Seed: the fields named by blanks, a row a text of
// values by "|"; a field left out of a row, or left empty, takes the table's
// default ("#" seeds an empty text).
inline std::vector<std::vector<std::pair<std::string, Variant>>> SeedRows(
    const std::string& fields, const std::vector<std::string>& rows) {
  const auto names = Split(fields, " ");
  std::vector<std::vector<std::pair<std::string, Variant>>> out;
  for (const auto& row : rows) {
    const auto values = Split(row, "|");
    auto& seeded = out.emplace_back();
    for (size_t i = 0; i < names.size() && i < values.size(); ++i) {
      if (!values[i].empty()) seeded.emplace_back(names[i], ValueOf(values[i]));
    }
  }
  return out;
}

// The same with the rows in one text, a line a row.
inline std::shared_ptr<MemoryRecordset> TextRecords(const std::string& fields, const char* rows) {
  return TextRecords(fields, *rows ? Split(rows, "\n") : std::vector<std::string>{});
}

}  // namespace orvel
