#pragma once

#include <algorithm>
#include <cstddef>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "orvel/RuntimeError.h"
#include "ui/ControlConstants.h"

namespace orvel {

// The collection behind the platform's keyed lists (list rows, sub-items,
// column headers, combo items): 1-based indexes, optional unique keys
// compared exactly, and the platform's errors for a bad index (35600), a
// missing key (35601) and a duplicate key (35602). A failed call changes
// nothing.
//
// Elements are held by unique_ptr, so a reference to one stays valid while it
// is in the list. T keeps its own 1-based index in a member `index_` that
// this class maintains (T befriends KeyedList<T>), and tells its key by Key().
template <class T>
class KeyedList {
 public:
  int Count() const { return static_cast<int>(items_.size()); }
  bool Empty() const { return items_.empty(); }

  // Inserts before the element at `index`; 0 or less, or Count()+1, appends.
  T& Insert(int index, std::unique_ptr<T> item) {
    if (index > Count() + 1) ThrowIndex(index);
    const std::string& key = item->Key();
    if (!key.empty() && byKey_.find(key) != byKey_.end()) {
      throw RuntimeError(control_error::kKeyNotUnique, "Raktas kolekcijoje nėra unikalus");
    }
    size_t at = index <= 0 ? items_.size() : static_cast<size_t>(index - 1);
    T& added = *item;
    items_.insert(items_.begin() + static_cast<std::ptrdiff_t>(at), std::move(item));
    if (!key.empty()) byKey_.emplace(key, &added);
    Renumber(at);
    return added;
  }

  T& At(int index) const {
    if (index < 1 || index > Count()) ThrowIndex(index);
    return *items_[static_cast<size_t>(index - 1)];
  }
  T& At(std::string_view key) const {
    T* found = Find(key);
    if (!found) throw RuntimeError(control_error::kElementNotFound, "Elementas nerastas");
    return *found;
  }
  // Null when no element has the key (an empty key names none).
  T* Find(std::string_view key) const {
    if (key.empty()) return nullptr;
    auto it = byKey_.find(key);
    return it == byKey_.end() ? nullptr : it->second;
  }

  // Takes the element out of the list and hands it back (to be destroyed by
  // the caller once it has let go of any pointer to it).
  std::unique_ptr<T> Remove(int index) {
    At(index);
    size_t at = static_cast<size_t>(index - 1);
    std::unique_ptr<T> removed = std::move(items_[at]);
    items_.erase(items_.begin() + static_cast<std::ptrdiff_t>(at));
    if (!removed->Key().empty()) byKey_.erase(removed->Key());
    Renumber(at);
    return removed;
  }
  std::unique_ptr<T> Remove(std::string_view key) { return Remove(At(key).index_); }

  void Clear() {
    byKey_.clear();
    items_.clear();
  }

  // Reorders the elements stably by `less` and renumbers them.
  template <class Less>
  void StableSort(Less less) {
    std::stable_sort(
        items_.begin(), items_.end(),
        [&](const std::unique_ptr<T>& a, const std::unique_ptr<T>& b) { return less(*a, *b); });
    Renumber(0);
  }

  // Iteration in index order, over the owning pointers.
  auto begin() const { return items_.begin(); }
  auto end() const { return items_.end(); }

 private:
  [[noreturn]] static void ThrowIndex(int) {
    throw RuntimeError(control_error::kIndexOutOfBounds, "Indeksas už ribų");
  }
  void Renumber(size_t from) {
    for (size_t i = from; i < items_.size(); ++i) items_[i]->index_ = static_cast<int>(i + 1);
  }

  std::vector<std::unique_ptr<T>> items_;
  std::map<std::string, T*, std::less<>> byKey_;
};

}  // namespace orvel
