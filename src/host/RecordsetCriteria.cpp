#include "host/RecordsetCriteria.h"

#include <charconv>
#include <cmath>
#include <optional>
#include <utility>

#include "host/Convert.h"
#include "host/RecordsetCollation.h"
#include "orvel/RuntimeError.h"
#include "host/Text.h"

namespace orvel {

namespace {

enum class Op : uint8_t { Eq, Ne, Lt, Gt, Le, Ge, Like };
enum class ValueKind : uint8_t { Text, Number, Date };
enum class LikeForm : uint8_t { Exact, Prefix, Contains };

// Deeper nesting than this is refused rather than risking the stack.
constexpr int kMaxDepth = 64;
// The criteria shown in an error message are cut to this many bytes.
constexpr size_t kShownLength = 200;
// A comparison whose two sides have no order (a NaN): matches nothing.
constexpr int kUnordered = 2;

bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }
bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
// Field names unbracketed: ASCII letters, digits, '_' and any non-ASCII
// character (Lithuanian names).
bool IsNameChar(char c) {
  return IsLetter(c) || IsDigit(c) || c == '_' || static_cast<unsigned char>(c) >= 0x80;
}
bool IsWildcard(char c) { return c == '*' || c == '%'; }

std::string_view TrimBlanks(std::string_view s) {
  while (!s.empty() && IsBlank(s.front())) s.remove_prefix(1);
  while (!s.empty() && IsBlank(s.back())) s.remove_suffix(1);
  return s;
}

bool KeywordEquals(std::string_view word, std::string_view keyword) {
  if (word.size() != keyword.size()) return false;
  for (size_t i = 0; i < word.size(); ++i) {
    char c = word[i];
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    if (c != keyword[i]) return false;
  }
  return true;
}

// A decimal number with "." as the point, an optional sign and exponent,
// nothing else: the form numbers take in criteria.
std::optional<double> ReadDecimal(std::string_view s) {
  size_t i = 0;
  bool plus = false;
  if (i < s.size() && (s[i] == '+' || s[i] == '-')) {
    plus = s[i] == '+';
    ++i;
  }
  size_t digits = 0;
  while (i < s.size() && IsDigit(s[i])) ++i, ++digits;
  if (i < s.size() && s[i] == '.') {
    ++i;
    while (i < s.size() && IsDigit(s[i])) ++i, ++digits;
  }
  if (digits == 0) return std::nullopt;
  if (i < s.size() && (s[i] == 'e' || s[i] == 'E')) {
    ++i;
    if (i < s.size() && (s[i] == '+' || s[i] == '-')) ++i;
    size_t exponentDigits = 0;
    while (i < s.size() && IsDigit(s[i])) ++i, ++exponentDigits;
    if (exponentDigits == 0) return std::nullopt;
  }
  if (i != s.size()) return std::nullopt;
  std::string_view body = plus ? s.substr(1) : s;
  double value = 0;
  auto [end, ec] = std::from_chars(body.data(), body.data() + body.size(), value);
  if (ec != std::errc() || end != body.data() + body.size() || !std::isfinite(value)) {
    return std::nullopt;
  }
  return value;
}

std::optional<int> ReadSmallNumber(std::string_view s, size_t minDigits, size_t maxDigits) {
  if (s.size() < minDigits || s.size() > maxDigits) return std::nullopt;
  int n = 0;
  for (char c : s) {
    if (!IsDigit(c)) return std::nullopt;
    n = n * 10 + (c - '0');
  }
  return n;
}

// M/d/yyyy, the form the data-access layer always understood.
std::optional<double> ReadMonthDayYear(std::string_view s) {
  size_t a = s.find('/');
  if (a == std::string_view::npos) return std::nullopt;
  size_t b = s.find('/', a + 1);
  if (b == std::string_view::npos) return std::nullopt;
  auto month = ReadSmallNumber(s.substr(0, a), 1, 2);
  auto day = ReadSmallNumber(s.substr(a + 1, b - a - 1), 1, 2);
  auto year = ReadSmallNumber(s.substr(b + 1), 4, 4);
  if (!month || !day || !year || *year < 100 || *month < 1 || *month > 12 || *day < 1) {
    return std::nullopt;
  }
  Date d = DateSerial(*year, *month, *day);
  // DateSerial rolls 2/30 over into March; a literal must name a real day.
  int y = 0, m = 0, dd = 0;
  SplitDate(d, y, m, dd);
  if (y != *year || m != *month || dd != *day) return std::nullopt;
  return d.serial;
}

std::optional<double> ReadDate(std::string_view text) {
  text = TrimBlanks(text);
  if (text.empty()) return std::nullopt;
  if (auto d = ParseDate(text)) return d->serial;
  return ReadMonthDayYear(text);
}

int CompareNumbers(double a, double b) {
  if (a < b) return -1;
  if (a > b) return 1;
  if (a == b) return 0;
  return kUnordered;
}

bool Holds(Op op, int order) {
  if (order == kUnordered) return false;
  switch (op) {
    case Op::Eq:
      return order == 0;
    case Op::Ne:
      return order != 0;
    case Op::Lt:
      return order < 0;
    case Op::Gt:
      return order > 0;
    case Op::Le:
      return order <= 0;
    case Op::Ge:
      return order >= 0;
    case Op::Like:
      break;
  }
  return false;
}

// A number or date as the text LIKE and text comparisons see (CStr); none
// for a value that has no text form (NaN, an infinity, a date serial out of
// range), which then matches nothing rather than failing the whole filter.
std::optional<std::string> TextForm(const Variant& v) {
  if (v.Type() == VarType::Double && !std::isfinite(v.Double())) return std::nullopt;
  try {
    return CStr(v);
  } catch (const RuntimeError&) {
    return std::nullopt;
  }
}

// Folds `s` for a LIKE match into `out`, as the text compare folds it.
void FoldInto(std::string_view s, std::string& out) {
  if (NeedsCollationKey(s)) {
    out = CollationKey(s);
    return;
  }
  out.assign(s);
  for (char& c : out) c = static_cast<char>(collation_detail::kFold[static_cast<unsigned char>(c)]);
}

}  // namespace

struct RecordsetCriteria::Node {
  // A group: children joined left to right; join[i] tells how child i + 1 is
  // joined to what precedes it (true: OR, false: AND).
  bool isGroup = false;
  std::vector<uint32_t> children;
  std::vector<bool> join;

  // A comparison.
  uint32_t column = 0;
  Op op = Op::Eq;
  ValueKind kind = ValueKind::Text;
  std::string text;                  // the value as written (text unquoted)
  std::optional<double> textNumber;  // Text: read as a number, when it is one
  std::optional<double> textDate;    // Text: read as a date, when it is one
  double number = 0;                 // Number, or Date serial
  LikeForm like = LikeForm::Exact;
  std::string likeKey;  // LIKE: the folded text between the wildcards

  bool Like(std::string_view s) const {
    if (like == LikeForm::Exact) return TextEquals(s, text);
    thread_local std::string folded;
    FoldInto(s, folded);
    if (like == LikeForm::Prefix) return std::string_view(folded).starts_with(likeKey);
    return folded.find(likeKey) != std::string::npos;
  }

  static int CompareText(std::string_view s, std::string_view value) {
    return StrComp(s, value, Compare::Text);
  }

  bool MatchText(std::string_view s) const {
    if (op == Op::Like) return Like(s);
    switch (kind) {
      case ValueKind::Text:
        if (op == Op::Eq) return TextEquals(s, text);
        if (op == Op::Ne) return !TextEquals(s, text);
        return Holds(op, CompareText(s, text));
      case ValueKind::Number:
        if (auto n = ReadDecimal(TrimBlanks(s))) return Holds(op, CompareNumbers(*n, number));
        return Holds(op, CompareText(s, text));
      case ValueKind::Date:
        if (auto d = ReadDate(s)) return Holds(op, CompareNumbers(*d, number));
        return Holds(op, CompareText(s, text));
    }
    return false;
  }

  bool MatchNumber(const Variant& v) const {
    if (op == Op::Like) {
      auto form = TextForm(v);
      return form && Like(*form);
    }
    double x = v.NumberValue();
    if (kind != ValueKind::Text) return Holds(op, CompareNumbers(x, number));
    if (v.Type() == VarType::Date && textDate) return Holds(op, CompareNumbers(x, *textDate));
    if (textNumber) return Holds(op, CompareNumbers(x, *textNumber));
    auto form = TextForm(v);
    return form && Holds(op, CompareText(*form, text));
  }

  bool Match(const Variant& v) const {
    switch (v.Type()) {
      case VarType::String:
        return MatchText(v.String());
      case VarType::Boolean:
      case VarType::Integer:
      case VarType::Double:
      case VarType::Date:
        return MatchNumber(v);
      default:
        // Null matches nothing, like a missing value in SQL; so do Empty
        // (a new row's unset field) and objects.
        return false;
    }
  }
};

namespace {

using Node = RecordsetCriteria::Node;

// Recursive descent over the criteria text, building nodes as it goes.
class Parser {
 public:
  Parser(std::string_view source, const std::vector<std::string>& fieldNames,
         std::vector<Node>& nodes)
      : source_(source), fieldNames_(fieldNames), nodes_(nodes) {}

  // Returns the index of the root node.
  uint32_t ParseAll() {
    SkipBlanks();
    uint32_t root = ParseSequence(0);
    SkipBlanks();
    if (!AtEnd()) {
      if (Peek() == ')') Fail(pos_, "')' be atitinkamo '('");
      Fail(pos_, "laukta AND arba OR");
    }
    return root;
  }

 private:
  bool AtEnd() const { return pos_ >= source_.size(); }
  char Peek() const { return source_[pos_]; }
  void SkipBlanks() {
    while (!AtEnd() && IsBlank(Peek())) ++pos_;
  }

  [[noreturn]] void Fail(size_t at, const std::string& problem) const {
    // Positions count characters, not bytes, as the user reads them.
    size_t position = 1;
    for (size_t i = 0; i < at && i < source_.size(); ++i) {
      if ((static_cast<unsigned char>(source_[i]) & 0xC0) != 0x80) ++position;
    }
    std::string shown(source_.substr(0, kShownLength));
    if (source_.size() > kShownLength) shown += "...";
    throw RuntimeError(RuntimeError::kBadFilter, "Netinkamas filtras \"" + shown + "\": " + problem +
                                                     ", pozicija " + std::to_string(position));
  }

  bool TakeChar(char c) {
    if (AtEnd() || Peek() != c) return false;
    ++pos_;
    return true;
  }

  // Consumes `keyword` (any case) when it stands here as a whole word.
  bool TakeKeyword(std::string_view keyword) {
    if (source_.size() - pos_ < keyword.size()) return false;
    if (!KeywordEquals(source_.substr(pos_, keyword.size()), keyword)) return false;
    size_t after = pos_ + keyword.size();
    if (after < source_.size() && IsNameChar(source_[after])) return false;
    pos_ = after;
    return true;
  }

  bool IsOrGroup(uint32_t node) const {
    const Node& n = nodes_[node];
    if (!n.isGroup) return false;
    for (bool isOr : n.join) {
      if (isOr) return true;
    }
    return false;
  }

  uint32_t ParseSequence(int depth) {
    std::vector<uint32_t> children{ParseTerm(depth)};
    std::vector<bool> join;
    bool hasOr = IsOrGroup(children[0]);
    for (;;) {
      SkipBlanks();
      size_t at = pos_;
      bool isOr;
      if (TakeKeyword("AND")) {
        isOr = false;
      } else if (TakeKeyword("OR")) {
        isOr = true;
      } else {
        break;
      }
      uint32_t next = ParseTerm(depth);
      if (!isOr && (hasOr || IsOrGroup(next))) {
        Fail(at, "OR sujungtų sąlygų negalima AND jungti su kita sąlyga");
      }
      hasOr = hasOr || isOr;
      children.push_back(next);
      join.push_back(isOr);
    }
    if (children.size() == 1) return children[0];
    Node group;
    group.isGroup = true;
    group.children = std::move(children);
    group.join = std::move(join);
    nodes_.push_back(std::move(group));
    return static_cast<uint32_t>(nodes_.size() - 1);
  }

  uint32_t ParseTerm(int depth) {
    SkipBlanks();
    if (AtEnd()) Fail(pos_, "laukta lauko vardo");
    if (Peek() != '(') return ParseComparison();
    size_t open = pos_;
    if (depth >= kMaxDepth) Fail(open, "per daug įdėtų skliaustų");
    ++pos_;
    SkipBlanks();
    if (!AtEnd() && Peek() == ')') Fail(open, "tušti skliaustai");
    uint32_t inner = ParseSequence(depth + 1);
    SkipBlanks();
    if (AtEnd()) Fail(open, "'(' be atitinkamo ')'");
    if (Peek() != ')') Fail(pos_, "laukta AND, OR arba ')'");
    ++pos_;
    return inner;
  }

  uint32_t ResolveField(std::string_view name, size_t at) const {
    for (size_t i = 0; i < fieldNames_.size(); ++i) {
      if (TextEquals(fieldNames_[i], name)) return static_cast<uint32_t>(i);
    }
    Fail(at, "nežinomas laukas '" + std::string(name) + "'");
  }

  uint32_t ParseComparison() {
    Node leaf;
    size_t fieldAt = pos_;
    std::string_view name;
    if (Peek() == '[') {
      size_t close = source_.find(']', pos_ + 1);
      if (close == std::string_view::npos) Fail(fieldAt, "'[' be atitinkamo ']'");
      name = source_.substr(pos_ + 1, close - pos_ - 1);
      if (TrimBlanks(name).empty()) Fail(fieldAt, "tuščias lauko vardas [ ]");
      pos_ = close + 1;
    } else if (IsNameChar(Peek())) {
      size_t start = pos_;
      while (!AtEnd() && IsNameChar(Peek())) ++pos_;
      name = source_.substr(start, pos_ - start);
    } else {
      Fail(pos_, "laukta lauko vardo");
    }
    leaf.column = ResolveField(name, fieldAt);
    SkipBlanks();
    leaf.op = ParseOperator();
    SkipBlanks();
    size_t valueAt = pos_;
    ParseValue(leaf);
    if (leaf.op == Op::Like) ShapeLike(leaf, valueAt);
    nodes_.push_back(std::move(leaf));
    return static_cast<uint32_t>(nodes_.size() - 1);
  }

  Op ParseOperator() {
    static const char* const kExpected = "laukta operatoriaus (= <> < > <= >= LIKE)";
    if (AtEnd()) Fail(pos_, kExpected);
    switch (Peek()) {
      case '=':
        ++pos_;
        return Op::Eq;
      case '<':
        ++pos_;
        if (TakeChar('>')) return Op::Ne;
        if (TakeChar('=')) return Op::Le;
        return Op::Lt;
      case '>':
        ++pos_;
        if (TakeChar('=')) return Op::Ge;
        return Op::Gt;
      default:
        if (TakeKeyword("LIKE")) return Op::Like;
        Fail(pos_, kExpected);
    }
  }

  void ParseValue(Node& leaf) {
    static const char* const kExpected = "laukta reikšmės ('tekstas', #data# arba skaičius)";
    if (AtEnd()) Fail(pos_, kExpected);
    size_t start = pos_;
    char c = Peek();
    if (c == '\'') {
      leaf.kind = ValueKind::Text;
      ++pos_;
      for (;;) {
        size_t quote = source_.find('\'', pos_);
        if (quote == std::string_view::npos) Fail(start, "tekstinė reikšmė be uždarančios kabutės");
        leaf.text.append(source_.substr(pos_, quote - pos_));
        pos_ = quote + 1;
        if (AtEnd() || Peek() != '\'') break;
        leaf.text.push_back('\'');  // '' stands for one quote
        ++pos_;
      }
      leaf.textNumber = ReadDecimal(TrimBlanks(leaf.text));
      leaf.textDate = ReadDate(leaf.text);
      return;
    }
    if (c == '#') {
      size_t close = source_.find('#', pos_ + 1);
      if (close == std::string_view::npos) Fail(start, "datos reikšmė be uždarančio #");
      std::string_view body = source_.substr(pos_ + 1, close - pos_ - 1);
      auto serial = ReadDate(body);
      if (!serial) {
        Fail(start,
             "'" + std::string(body) + "' nėra data (yyyy-MM-dd, yyyy.MM.dd arba M/d/yyyy)");
      }
      leaf.kind = ValueKind::Date;
      leaf.text.assign(body);
      leaf.number = *serial;
      pos_ = close + 1;
      return;
    }
    if (IsDigit(c) || c == '.' || c == '+' || c == '-') {
      // A number runs to a blank, a ')' or the end, so "5abc" or "1,5" is
      // one bad number rather than a number followed by junk.
      while (!AtEnd() && !IsBlank(Peek()) && Peek() != ')') ++pos_;
      std::string_view token = source_.substr(start, pos_ - start);
      auto value = ReadDecimal(token);
      if (!value) Fail(start, "'" + std::string(token) + "' nėra skaičius");
      leaf.kind = ValueKind::Number;
      leaf.text.assign(token);
      leaf.number = *value;
      return;
    }
    if (IsNameChar(c)) {
      while (!AtEnd() && IsNameChar(Peek())) ++pos_;
      std::string_view word = source_.substr(start, pos_ - start);
      if (KeywordEquals(word, "NULL")) Fail(start, "reikšmė negali būti Null");
      Fail(start, std::string(kExpected) + ", rasta '" + std::string(word) + "'");
    }
    Fail(start, kExpected);
  }

  void ShapeLike(Node& leaf, size_t valueAt) const {
    if (leaf.kind != ValueKind::Text) Fail(valueAt, "LIKE reikia tekstinės reikšmės kabutėse");
    std::string_view pattern = leaf.text;
    bool atEnd = !pattern.empty() && IsWildcard(pattern.back());
    // A lone wildcard counts as the one at the end.
    bool atStart = pattern.size() >= 2 && IsWildcard(pattern.front());
    std::string_view core = pattern;
    if (atEnd) core.remove_suffix(1);
    if (atStart) core.remove_prefix(1);
    bool inside = false;
    for (char c : core) inside = inside || IsWildcard(c);
    if (inside || (atStart && !atEnd)) {
      Fail(valueAt, "LIKE šablone * arba % gali būti tik gale arba abiejuose galuose");
    }
    leaf.like = atStart ? LikeForm::Contains : atEnd ? LikeForm::Prefix : LikeForm::Exact;
    std::string key;
    FoldInto(core, key);
    leaf.likeKey = std::move(key);
  }

  std::string_view source_;
  const std::vector<std::string>& fieldNames_;
  std::vector<Node>& nodes_;
  size_t pos_ = 0;
};

enum class Combine { Set, And, Or };

// Runs one comparison down its column, combining with what `mask` holds.
void RunLeaf(const Node& leaf, const RecordsetColumn& column, size_t rowCount, Combine how,
             std::vector<uint8_t>& mask) {
  for (size_t r = 0; r < rowCount; ++r) {
    if (how == Combine::And && !mask[r]) continue;
    if (how == Combine::Or && mask[r]) continue;
    mask[r] = leaf.Match(column[r]);
  }
}

void Run(const std::vector<Node>& nodes, uint32_t index,
         const std::vector<RecordsetColumn>& columns, size_t rowCount, Combine how,
         std::vector<uint8_t>& mask) {
  const Node& node = nodes[index];
  if (!node.isGroup) {
    RunLeaf(node, columns[node.column], rowCount, how, mask);
    return;
  }
  if (how != Combine::Set) {
    std::vector<uint8_t> group(rowCount);
    Run(nodes, index, columns, rowCount, Combine::Set, group);
    for (size_t r = 0; r < rowCount; ++r) {
      mask[r] = how == Combine::And ? (mask[r] && group[r]) : (mask[r] || group[r]);
    }
    return;
  }
  Run(nodes, node.children[0], columns, rowCount, Combine::Set, mask);
  for (size_t i = 1; i < node.children.size(); ++i) {
    Run(nodes, node.children[i], columns, rowCount, node.join[i - 1] ? Combine::Or : Combine::And,
        mask);
  }
}

bool MatchRow(const std::vector<Node>& nodes, uint32_t index,
              const std::vector<RecordsetColumn>& columns, size_t row) {
  const Node& node = nodes[index];
  if (!node.isGroup) return node.Match(columns[node.column][row]);
  bool result = MatchRow(nodes, node.children[0], columns, row);
  for (size_t i = 1; i < node.children.size(); ++i) {
    if (node.join[i - 1] ? result : !result) continue;  // settled either way
    result = MatchRow(nodes, node.children[i], columns, row);
  }
  return result;
}

// The commonest criterion, "Field = 'text'", in one tight loop: text that
// differs in an ASCII character, or runs out, is settled without a call.
// Values other than text take the general path.
void SelectTextEquals(const Node& leaf, const RecordsetColumn& column, size_t rowCount, bool wanted,
                      std::vector<uint32_t>& rows) {
  const std::string& value = leaf.text;
  const size_t length = value.size();
  for (size_t r = 0; r < rowCount; ++r) {
    if (column.TypeAt(r) != VarType::String) {
      if (leaf.Match(column[r])) rows.push_back(static_cast<uint32_t>(r));
      continue;
    }
    const std::string_view s = column.TextAt(r);
    const char* p = s.data();
    const size_t size = s.size();
    const size_t common = size < length ? size : length;
    bool equal = true;
    bool full = false;  // the full case mapping must decide
    for (size_t i = 0; i < common; ++i) {
      const char a = p[i];
      const char b = value[i];
      if (a == b) continue;
      const char lower = static_cast<char>(a | 0x20);
      if (lower == (b | 0x20) && lower >= 'a' && lower <= 'z') continue;
      // Two ASCII characters that differ settle it; a letter outside ASCII
      // may still fold to what the other side holds.
      equal = false;
      full = ((a | b) & 0x80) != 0;
      break;
    }
    if (full) {
      equal = TextEquals(s, value);
    } else if (equal) {
      // One text ran out with every byte so far the same: characters fold one
      // to one, so the longer one has characters more.
      equal = size == length;
    }
    if (equal == wanted) rows.push_back(static_cast<uint32_t>(r));
  }
}

}  // namespace

RecordsetCriteria::RecordsetCriteria() = default;
RecordsetCriteria::RecordsetCriteria(RecordsetCriteria&&) noexcept = default;
RecordsetCriteria& RecordsetCriteria::operator=(RecordsetCriteria&&) noexcept = default;
RecordsetCriteria::~RecordsetCriteria() = default;

RecordsetCriteria RecordsetCriteria::Compile(std::string_view criteria,
                                             const std::vector<std::string>& fieldNames) {
  RecordsetCriteria compiled;
  compiled.root_ = Parser(criteria, fieldNames, compiled.nodes_).ParseAll();
  return compiled;
}

void RecordsetCriteria::Select(const std::vector<RecordsetColumn>& columns, size_t rowCount,
                               std::vector<uint32_t>& rows) const {
  const Node& root = nodes_[root_];
  if (!root.isGroup) {
    const RecordsetColumn& column = columns[root.column];
    if (root.kind == ValueKind::Text && (root.op == Op::Eq || root.op == Op::Ne)) {
      SelectTextEquals(root, column, rowCount, root.op == Op::Eq, rows);
      return;
    }
    for (size_t r = 0; r < rowCount; ++r) {
      if (root.Match(column[r])) rows.push_back(static_cast<uint32_t>(r));
    }
    return;
  }
  std::vector<uint8_t> mask(rowCount);
  Run(nodes_, root_, columns, rowCount, Combine::Set, mask);
  for (size_t r = 0; r < rowCount; ++r) {
    if (mask[r]) rows.push_back(static_cast<uint32_t>(r));
  }
}

bool RecordsetCriteria::Matches(const std::vector<RecordsetColumn>& columns, size_t row) const {
  return MatchRow(nodes_, root_, columns, row);
}

size_t RecordsetCriteria::ClauseCount() const {
  size_t count = 0;
  for (const Node& node : nodes_) count += node.isGroup ? 0 : 1;
  return count;
}

}  // namespace orvel
