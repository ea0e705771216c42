#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "orvel/Variant.h"

namespace orvel {

// A keyed dictionary in insertion order with the platform dictionary's rules
// (keys compare as written, Add refuses a key it holds with RuntimeError 457,
// Item of a missing key is RuntimeError 5), but with hashed look-ups: the
// rate window asks it a few times per row for some hundred currencies.
class CodeDictionary {
 public:
  bool Exists(std::string_view key) const { return index_.find(std::string(key)) != index_.end(); }
  void Add(std::string key, Variant item);
  const Variant& Item(std::string_view key) const;
  int Count() const { return static_cast<int>(keys_.size()); }
  // In insertion order.
  const std::vector<std::string>& Keys() const { return keys_; }

 private:
  std::vector<std::string> keys_;
  std::vector<Variant> items_;
  std::unordered_map<std::string, size_t> index_;
};

}  // namespace orvel
