#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "orvel/Object.h"

namespace orvel {

/// An adapter's icon table: the kind of a tree row (key) to an icon key
/// (item), in the order added. Keys are unique and compared without regard to
/// case, as in a keyed collection.
class IconsTable : public Object {
 public:
  /// False, and nothing added, when the key is there already.
  bool Add(std::string item, std::string key);
  std::optional<std::string> Item(std::string_view key) const;
  int Count() const { return static_cast<int>(rows_.size()); }
  /// (key, item) pairs in order.
  const std::vector<std::pair<std::string, std::string>>& Rows() const { return rows_; }

 private:
  std::vector<std::pair<std::string, std::string>> rows_;
};

}  // namespace orvel
