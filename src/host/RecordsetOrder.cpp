#include "host/RecordsetOrder.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <deque>
#include <numeric>

#include "host/RecordsetCollation.h"
#include "orvel/RuntimeError.h"
#include "host/Text.h"

namespace orvel {

namespace {

bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

std::string_view TrimBlanks(std::string_view s) {
  while (!s.empty() && IsBlank(s.front())) s.remove_prefix(1);
  while (!s.empty() && IsBlank(s.back())) s.remove_suffix(1);
  return s;
}

bool WordEquals(std::string_view word, std::string_view upper) {
  if (word.size() != upper.size()) return false;
  for (size_t i = 0; i < word.size(); ++i) {
    char c = word[i];
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    if (c != upper[i]) return false;
  }
  return true;
}

// ASC, DESC, or neither.
enum class Direction { Ascending, Descending, None };
Direction DirectionOf(std::string_view word) {
  if (WordEquals(word, "ASC")) return Direction::Ascending;
  if (WordEquals(word, "DESC")) return Direction::Descending;
  return Direction::None;
}

[[noreturn]] void BadSort(std::string_view keys, size_t at, const std::string& problem) {
  size_t position = 1;
  for (size_t i = 0; i < at && i < keys.size(); ++i) {
    if ((static_cast<unsigned char>(keys[i]) & 0xC0) != 0x80) ++position;
  }
  constexpr size_t kShownLength = 200;
  std::string shown(keys.substr(0, kShownLength));
  if (keys.size() > kShownLength) shown += "...";
  throw RuntimeError(RuntimeError::kBadFilter, "Netinkamas rikiavimas \"" + shown + "\": " + problem +
                                                   ", pozicija " + std::to_string(position));
}

// ---- the sort keys of every row, built once per sort ----
//
// Each row gets one 64-bit slot per key (two for a column that mixes kinds of
// value), laid out row by row, so that comparing two rows reads one short run
// of memory each. Slots compare as unsigned numbers; a descending key has its
// slots inverted, so that one comparison serves both directions and Null,
// which is 0, goes last.

// A number as a slot whose order is the numbers' order: 0 is left free for
// Null, -0 ties with 0, and NaN goes above every number so that the order
// stays total.
uint64_t NumberSlot(double d) {
  constexpr uint64_t kSign = 0x8000000000000000ULL;
  if (std::isnan(d)) return ~uint64_t{0};
  if (d == 0) d = 0;
  uint64_t bits = std::bit_cast<uint64_t>(d);
  return (bits & kSign) ? ~bits : bits | kSign;
}

// Text as a slot: its first seven bytes of collation key, folded, then a
// length byte of 1 to 8 for texts of 0 to 7 bytes (so that a text sorts after
// its own prefixes) or kLongText for longer ones, whose remainder decides a
// tie. 0 is left free for Null.
constexpr uint64_t kLongText = 9;
uint64_t TextSlot(std::string_view key) {
  uint64_t slot = 0;
  for (size_t i = 0; i < 7; ++i) {
    unsigned char c =
        i < key.size() ? collation_detail::kFold[static_cast<unsigned char>(key[i])] : 0;
    slot = (slot << 8) | c;
  }
  return (slot << 8) | (key.size() <= 7 ? key.size() + 1 : kLongText);
}

enum Rank : uint64_t { kNullRank = 0, kNumberRank = 1, kTextRank = 2, kOtherRank = 3 };

Rank RankOf(VarType type) {
  switch (type) {
    case VarType::Empty:
    case VarType::Null:
      return kNullRank;
    case VarType::Boolean:
    case VarType::Integer:
    case VarType::Double:
    case VarType::Date:
      return kNumberRank;
    case VarType::String:
      return kTextRank;
    case VarType::Object:
    case VarType::Array:
      break;
  }
  return kOtherRank;
}

class KeyTable {
 public:
  KeyTable(const std::vector<RecordsetColumn>& columns,
           const std::vector<RecordsetOrder::Key>& keys, const std::vector<uint32_t>& rows) {
    // Lay out the slots first: a column holding only numbers (and Nulls) or
    // only text (and Nulls) takes one; a mixed column a rank and a value.
    for (const RecordsetOrder::Key& key : keys) {
      const RecordsetColumn& column = columns[key.column];
      bool numbers = false, texts = false, others = false;
      for (uint32_t row : rows) {
        Rank rank = RankOf(column.TypeAt(row));
        numbers = numbers || rank == kNumberRank;
        texts = texts || rank == kTextRank;
        others = others || rank == kOtherRank;
      }
      const uint64_t flip = key.descending ? ~uint64_t{0} : 0;
      if (others || (numbers && texts)) {
        slots_.push_back(Slot{key.column, SlotKind::Rank, flip, 0});
        slots_.push_back(Slot{key.column, SlotKind::MixedValue, flip, 0});
      } else {
        slots_.push_back(Slot{key.column, texts ? SlotKind::Text : SlotKind::Number, flip, 0});
      }
    }
    width_ = slots_.size();
    table_.resize(rows.size() * width_);
    for (size_t k = 0; k < width_; ++k) {
      Slot& slot = slots_[k];
      const RecordsetColumn& column = columns[slot.column];
      std::vector<std::string_view>* tails = nullptr;
      for (size_t j = 0; j < rows.size(); ++j) {
        const uint32_t row = rows[j];
        const VarType type = column.TypeAt(row);
        uint64_t value = 0;
        if (slot.kind == SlotKind::Rank) {
          value = RankOf(type);
        } else if (type == VarType::String) {
          // The column's own text: it stays in place while the table is used.
          std::string_view key = column.TextAt(row);
          if (NeedsCollationKey(key)) key = folded_.emplace_back(CollationKey(key));
          value = TextSlot(key);
          if ((value & 0xFF) == kLongText) {
            if (!tails) {
              slot.tails = tails_.size() + 1;
              tails = &tails_.emplace_back(rows.size());
            }
            (*tails)[j] = key;
          }
        } else if (RankOf(type) == kNumberRank) {
          value = NumberSlot(column[row].NumberValue());
        }
        table_[j * width_ + k] = value ^ slot.flip;
      }
    }
  }

  // Whether the row at position a sorts before the one at position b.
  bool Before(uint32_t a, uint32_t b) const {
    const uint64_t* x = &table_[static_cast<size_t>(a) * width_];
    const uint64_t* y = &table_[static_cast<size_t>(b) * width_];
    for (size_t k = 0; k < width_; ++k) {
      if (x[k] != y[k]) return x[k] < y[k];
      const Slot& slot = slots_[k];
      if (slot.tails == 0) continue;
      // Equal slots of two long texts: the rest of the text decides. (In a
      // mixed column the rank slot just before says whether these are texts.)
      if (((x[k] ^ slot.flip) & 0xFF) != kLongText) continue;
      if (slot.kind == SlotKind::MixedValue && (x[k - 1] ^ slot.flip) != kTextRank) continue;
      const auto& tails = tails_[slot.tails - 1];
      int order = CompareCollationKeys(tails[a], tails[b]);
      if (order != 0) return slot.flip ? order > 0 : order < 0;
    }
    return false;
  }

 private:
  // A mixed column's Rank slot is followed by its MixedValue slot.
  enum class SlotKind : uint8_t { Number, Text, Rank, MixedValue };
  struct Slot {
    uint32_t column;
    SlotKind kind;
    uint64_t flip;  // all ones for a descending key
    size_t tails;   // 1 + index into tails_ when the column has long texts, else 0
  };

  std::vector<Slot> slots_;
  size_t width_ = 0;
  std::vector<uint64_t> table_;  // width_ slots per row, row by row
  // Per text column with long texts: each row's whole collation key.
  std::deque<std::vector<std::string_view>> tails_;
  std::deque<std::string> folded_;  // keys of non-ASCII text; a deque keeps them in place
};

}  // namespace

RecordsetOrder RecordsetOrder::Parse(std::string_view keys,
                                     const std::vector<std::string>& fieldNames) {
  RecordsetOrder order;
  if (TrimBlanks(keys).empty()) return order;
  size_t start = 0;
  while (start <= keys.size()) {
    // A piece runs to the next comma outside brackets.
    size_t end = start;
    bool bracket = false;
    while (end < keys.size() && (bracket || keys[end] != ',')) {
      if (keys[end] == '[') bracket = true;
      if (keys[end] == ']') bracket = false;
      ++end;
    }
    std::string_view piece = keys.substr(start, end - start);
    size_t lead = 0;
    while (lead < piece.size() && IsBlank(piece[lead])) ++lead;
    size_t pieceAt = start + lead;
    piece = TrimBlanks(piece);
    if (piece.empty()) BadSort(keys, pieceAt, "tuščias rikiavimo raktas");

    std::string_view name;
    Direction direction = Direction::None;
    if (piece.front() == '[') {
      size_t close = piece.find(']');
      if (close == std::string_view::npos) BadSort(keys, pieceAt, "'[' be atitinkamo ']'");
      name = piece.substr(1, close - 1);
      std::string_view rest = TrimBlanks(piece.substr(close + 1));
      if (!rest.empty()) {
        direction = DirectionOf(rest);
        if (direction == Direction::None) {
          BadSort(keys, pieceAt + close + 1, "po lauko vardo laukta ASC arba DESC");
        }
      }
    } else {
      name = piece;
      size_t blank = piece.find_last_of(" \t\r\n");
      if (blank != std::string_view::npos) {
        direction = DirectionOf(piece.substr(blank + 1));
        if (direction != Direction::None) name = TrimBlanks(piece.substr(0, blank));
      }
    }

    Key key;
    key.descending = direction == Direction::Descending;
    auto found = std::find_if(fieldNames.begin(), fieldNames.end(),
                              [&](const std::string& field) { return TextEquals(field, name); });
    if (found == fieldNames.end()) {
      throw RuntimeError(RuntimeError::kItemNotFound,
                         "Kolekcijoje nėra elemento: " + std::string(name));
    }
    key.column = static_cast<uint32_t>(found - fieldNames.begin());
    order.keys_.push_back(key);
    start = end + 1;
  }
  return order;
}

void RecordsetOrder::Apply(const std::vector<RecordsetColumn>& columns,
                           std::vector<uint32_t>& rows) const {
  if (keys_.empty() || rows.size() < 2) return;
  const KeyTable table(columns, keys_, rows);
  // Sort positions into `rows`, so that the key table is read in place.
  std::vector<uint32_t> positions(rows.size());
  std::iota(positions.begin(), positions.end(), 0u);
  std::stable_sort(positions.begin(), positions.end(),
                   [&table](uint32_t a, uint32_t b) { return table.Before(a, b); });
  std::vector<uint32_t> sorted(rows.size());
  for (size_t i = 0; i < positions.size(); ++i) sorted[i] = rows[positions[i]];
  rows.swap(sorted);
}

}  // namespace orvel
