#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "orvel/Object.h"
#include "orvel/Variant.h"

namespace orvel {

// A keyed dictionary in the order of adding, as the platform's scripting
// dictionary: keys compare as written (binary), Add refuses a key it holds
// (RuntimeError 457), Item of a missing key is an error.
class Dictionary : public Object {
 public:
  static constexpr int32_t kDuplicateKey = 457;

  bool Exists(std::string_view key) const;
  void Add(std::string key, Variant item);
  // The item of a key; RuntimeError kItemNotFound when there is none.
  const Variant& Item(std::string_view key) const;
  // Replaces the item of a key, or adds it, as assigning to Item does.
  void SetItem(std::string key, Variant item);
  void Remove(std::string_view key);
  void RemoveAll() { entries_.clear(); }
  int Count() const { return static_cast<int>(entries_.size()); }
  std::vector<std::string> Keys() const;
  std::vector<Variant> Items() const;

 private:
  std::vector<std::pair<std::string, Variant>>::const_iterator Find(std::string_view key) const;
  std::vector<std::pair<std::string, Variant>> entries_;
};

}  // namespace orvel
