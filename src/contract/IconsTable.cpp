#include "orvel/IconsTable.h"

#include <cctype>

namespace orvel {

namespace {
// Keys are ASCII names ("O0000400", "CFirms"), told apart without regard to case.
bool KeyEquals(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  for (size_t i = 0; i < a.size(); ++i) {
    if (std::tolower(static_cast<unsigned char>(a[i])) !=
        std::tolower(static_cast<unsigned char>(b[i])))
      return false;
  }
  return true;
}
}  // namespace

bool IconsTable::Add(std::string item, std::string key) {
  if (Item(key)) return false;
  rows_.emplace_back(std::move(key), std::move(item));
  return true;
}

std::optional<std::string> IconsTable::Item(std::string_view key) const {
  for (const auto& [k, item] : rows_) {
    if (KeyEquals(k, key)) return item;
  }
  return std::nullopt;
}

}  // namespace orvel
