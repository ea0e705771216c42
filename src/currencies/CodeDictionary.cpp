#include "currencies/CodeDictionary.h"

#include "host/Dictionary.h"
#include "orvel/RuntimeError.h"

namespace orvel {

void CodeDictionary::Add(std::string key, Variant item) {
  if (!index_.try_emplace(key, keys_.size()).second) {
    throw RuntimeError(Dictionary::kDuplicateKey, "Šis raktas jau susietas su elementu");
  }
  keys_.push_back(std::move(key));
  items_.push_back(std::move(item));
}

const Variant& CodeDictionary::Item(std::string_view key) const {
  auto it = index_.find(std::string(key));
  if (it == index_.end()) {
    throw RuntimeError(RuntimeError::kInvalidCall, "Raktas " + std::string(key) + " nerastas");
  }
  return items_[it->second];
}

}  // namespace orvel
