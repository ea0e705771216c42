#pragma once

#include <optional>
#include <string>
#include <vector>

namespace orvel {

class Dictionary;

// One column of a list window's configuration: "WZW<field>;<caption>;<align>;<width>;<order>".
struct ColumnEntry {
  std::string key;      // "WZW" and the record set's field name
  std::string caption;  // column caption, shown and printed
  int align = 0;        // 0 left, 1 right, 2 centre
  std::string width;    // centimetres with a decimal comma, "4,0"
  int order = 999;      // position from 0; 999 hides the column

  bool Shown() const { return order != kHidden; }
  static constexpr int kHidden = 999;
};

// The column configuration string of a list window: the print parameters,
// then one piece per column, pieces separated by "#", elements by ";".
// Nothing is escaped, so a caption or footer holding "#" or ";" cannot be
// written; Build replaces those characters by a blank so the result always
// parses back to the same columns.
class ColumnConfig {
 public:
  // Index of the print parameters.
  enum PrintParam : int {
    kJournalName = 0,
    kFontSize = 1,
    kHorizontalLines = 2,
    kVerticalLines = 3,
    kUserName = 4,
    kDateMode = 5,
    kExtraFlag = 6,
    kFooter = 7,
    kPrintParamCount = 8,
  };

  std::vector<std::string> printParams = std::vector<std::string>(kPrintParamCount);
  std::vector<ColumnEntry> columns;

  // Checks the whole string before the window trusts it: eight print
  // parameters with a numeric font size, and columns of five elements with a
  // "WZW" key, an alignment 0 to 2, a width in centimetres and a whole
  // position, keys not repeated. nullopt and `error` (when given) on the
  // first fault.
  static std::optional<ColumnConfig> Parse(const std::string& text, std::string* error = nullptr);
  std::string Build() const;

  // The configuration as two dictionaries hold it after ParseColumnConfig:
  // "JPrintParams" in `printDict`, one array per column in `columnDict`, in
  // the order of the pieces. Missing elements read as blank, an unreadable
  // number as 0 (alignment) or hidden (position), so a half-filled
  // dictionary gives a configuration rather than an error.
  static ColumnConfig FromDictionaries(const Dictionary& printDict, const Dictionary& columnDict);

  // The sum of the widths of the shown columns, in centimetres.
  double ShownWidth() const;
};

// A width written with a decimal comma (or point): "2,5" is 2.5. nullopt for
// anything else (blank, signs, letters, two separators).
std::optional<double> ParseWidth(const std::string& text);

// A width as the configuration writes it: one decimal, a comma: 2.5 is "2,5".
std::string WidthText(double centimetres);

}  // namespace orvel
