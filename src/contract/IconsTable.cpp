#include "orvel/IconsTable.h"

#include "host/Text.h"

namespace orvel {

bool IconsTable::Add(std::string item, std::string key) {
  if (Item(key)) return false;
  rows_.emplace_back(std::move(key), std::move(item));
  return true;
}

std::optional<std::string> IconsTable::Item(std::string_view key) const {
  for (const auto& [k, item] : rows_) {
    if (TextEquals(k, key)) return item;
  }
  return std::nullopt;
}

}  // namespace orvel
