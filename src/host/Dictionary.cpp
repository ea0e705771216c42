#include "host/Dictionary.h"

#include "orvel/RuntimeError.h"

namespace orvel {

std::vector<std::pair<std::string, Variant>>::const_iterator Dictionary::Find(
    std::string_view key) const {
  for (auto it = entries_.begin(); it != entries_.end(); ++it) {
    if (it->first == key) return it;
  }
  return entries_.end();
}

bool Dictionary::Exists(std::string_view key) const { return Find(key) != entries_.end(); }

void Dictionary::Add(std::string key, Variant item) {
  if (Exists(key)) {
    throw RuntimeError(kDuplicateKey,
                       "Šis raktas jau susietas su kolekcijos elementu: " + key);
  }
  entries_.emplace_back(std::move(key), std::move(item));
}

const Variant& Dictionary::Item(std::string_view key) const {
  auto it = Find(key);
  if (it == entries_.end()) {
    throw RuntimeError(RuntimeError::kItemNotFound, "Raktas nerastas: " + std::string(key));
  }
  return it->second;
}

void Dictionary::SetItem(std::string key, Variant item) {
  for (auto& entry : entries_) {
    if (entry.first == key) {
      entry.second = std::move(item);
      return;
    }
  }
  entries_.emplace_back(std::move(key), std::move(item));
}

void Dictionary::Remove(std::string_view key) {
  auto it = Find(key);
  if (it == entries_.end()) {
    throw RuntimeError(RuntimeError::kItemNotFound, "Raktas nerastas: " + std::string(key));
  }
  entries_.erase(it);
}

std::vector<std::string> Dictionary::Keys() const {
  std::vector<std::string> keys;
  for (const auto& entry : entries_) keys.push_back(entry.first);
  return keys;
}

std::vector<Variant> Dictionary::Items() const {
  std::vector<Variant> items;
  for (const auto& entry : entries_) items.push_back(entry.second);
  return items;
}

}  // namespace orvel
