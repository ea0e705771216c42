#include "lists/ColumnConfig.h"

#include <charconv>
#include <cmath>
#include <cstdio>
#include <set>

#include "host/Convert.h"
#include "host/Dictionary.h"
#include "host/Text.h"
#include "orvel/Variant.h"

namespace orvel {

namespace {

bool Fail(std::string* error, std::string text) {
  if (error) *error = std::move(text);
  return false;
}

std::optional<int> WholeNumber(const std::string& text) {
  int value = 0;
  const char* first = text.data();
  const char* last = first + text.size();
  if (text.empty()) return std::nullopt;
  auto [end, ec] = std::from_chars(first, last, value);
  if (ec != std::errc() || end != last) return std::nullopt;
  return value;
}

// "#" and ";" would split a piece when read back; nothing else is touched.
std::string Element(const std::string& text) {
  std::string out = text;
  for (char& c : out) {
    if (c == '#' || c == ';') c = ' ';
  }
  return out;
}

bool ParseColumn(const std::string& piece, ColumnEntry& column, std::string* error) {
  auto parts = Split(piece, ";");
  if (parts.size() != 5) return Fail(error, "column \"" + piece + "\" does not have five elements");
  column.key = parts[0];
  if (column.key.size() <= 3 || column.key.compare(0, 3, "WZW") != 0) {
    return Fail(error, "column key \"" + column.key + "\" is not WZW and a field name");
  }
  column.caption = parts[1];
  auto align = WholeNumber(parts[2]);
  if (!align || *align < 0 || *align > 2) {
    return Fail(error, "column " + column.key + ": alignment \"" + parts[2] + "\"");
  }
  column.align = *align;
  if (!ParseWidth(parts[3]))
    return Fail(error, "column " + column.key + ": width \"" + parts[3] + "\"");
  column.width = parts[3];
  auto order = WholeNumber(parts[4]);
  if (!order || *order < 0 || *order > ColumnEntry::kHidden) {
    return Fail(error, "column " + column.key + ": position \"" + parts[4] + "\"");
  }
  column.order = *order;
  return true;
}

}  // namespace

std::optional<double> ParseWidth(const std::string& text) {
  if (text.empty() || text.size() > 12) return std::nullopt;
  double whole = 0;
  double fraction = 0;
  double scale = 1;
  bool separator = false;
  int digits = 0;
  for (char c : text) {
    if (c == ',' || c == '.') {
      if (separator) return std::nullopt;
      separator = true;
    } else if (c >= '0' && c <= '9') {
      ++digits;
      if (separator) {
        scale /= 10;
        fraction += (c - '0') * scale;
      } else {
        whole = whole * 10 + (c - '0');
      }
    } else {
      return std::nullopt;
    }
  }
  if (digits == 0) return std::nullopt;
  return whole + fraction;
}

std::string WidthText(double centimetres) {
  char buffer[32];
  std::snprintf(buffer, sizeof buffer, "%.1f", centimetres);
  std::string text = buffer;
  for (char& c : text) {
    if (c == '.') c = ',';
  }
  return text;
}

std::optional<ColumnConfig> ColumnConfig::Parse(const std::string& text, std::string* error) {
  ColumnConfig config;
  auto pieces = Split(text, "#");
  if (pieces.empty()) {
    Fail(error, "the configuration is empty");
    return std::nullopt;
  }
  auto params = Split(pieces[0], ";");
  if (params.size() != kPrintParamCount) {
    Fail(error, "the print parameters have " + std::to_string(params.size()) + " elements, not " +
                    std::to_string(kPrintParamCount));
    return std::nullopt;
  }
  if (!WholeNumber(params[kFontSize])) {
    Fail(error, "font size \"" + params[kFontSize] + "\" is not a number");
    return std::nullopt;
  }
  config.printParams = std::move(params);
  std::set<std::string> keys;
  for (size_t i = 1; i < pieces.size(); ++i) {
    ColumnEntry column;
    if (!ParseColumn(pieces[i], column, error)) return std::nullopt;
    if (!keys.insert(column.key).second) {
      Fail(error, "column key " + column.key + " is repeated");
      return std::nullopt;
    }
    config.columns.push_back(std::move(column));
  }
  return config;
}

std::string ColumnConfig::Build() const {
  std::string text;
  for (size_t i = 0; i < printParams.size(); ++i) {
    if (i) text += ';';
    text += Element(printParams[i]);
  }
  for (const auto& c : columns) {
    text += '#';
    text += Element(c.key);
    text += ';';
    text += Element(c.caption);
    text += ';';
    text += std::to_string(c.align);
    text += ';';
    text += Element(c.width);
    text += ';';
    text += std::to_string(c.order);
  }
  return text;
}

namespace {
std::string ElementOf(const Variant& array, size_t index) {
  if (!array.IsArray() || index >= array.ArrayValue().size()) return {};
  const Variant& v = array.ArrayValue()[index];
  if (v.IsEmpty() || v.IsNull()) return {};
  return v.IsString() ? v.String() : CStr(v);
}
}  // namespace

ColumnConfig ColumnConfig::FromDictionaries(const Dictionary& printDict,
                                            const Dictionary& columnDict) {
  ColumnConfig config;
  if (printDict.Exists("JPrintParams")) {
    const Variant& params = printDict.Item("JPrintParams");
    for (size_t i = 0; i < config.printParams.size(); ++i) {
      config.printParams[i] = ElementOf(params, i);
    }
  }
  for (const Variant& item : columnDict.Items()) {
    ColumnEntry column;
    column.key = ElementOf(item, 0);
    column.caption = ElementOf(item, 1);
    column.align = WholeNumber(ElementOf(item, 2)).value_or(0);
    column.width = ElementOf(item, 3);
    auto order = WholeNumber(ElementOf(item, 4));
    column.order = order && *order >= 0 ? *order : ColumnEntry::kHidden;
    config.columns.push_back(std::move(column));
  }
  return config;
}

double ColumnConfig::ShownWidth() const {
  double total = 0;
  for (const auto& c : columns) {
    if (c.Shown()) total += ParseWidth(c.width).value_or(0);
  }
  return total;
}

}  // namespace orvel
