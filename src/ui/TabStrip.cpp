#include "ui/TabStrip.h"

#include <algorithm>

#include "orvel/RuntimeError.h"
#include "ui/ControlConstants.h"

namespace orvel {

namespace {

bool Holds(const std::vector<TabStrip::Tab>& tabs, const std::string& key) {
  return std::any_of(tabs.begin(), tabs.end(), [&](const auto& tab) { return tab.key == key; });
}

}  // namespace

void TabStrip::AddTab(std::string key, std::string caption) {
  if (Holds(tabs_, key)) {
    throw RuntimeError(control_error::kKeyNotUnique, "Raktas kolekcijoje nėra unikalus");
  }
  tabs_.push_back({std::move(key), std::move(caption)});
  Notify("Tabs");
}

void TabStrip::Select(const std::string& key) {
  if (!Holds(tabs_, key)) throw RuntimeError(control_error::kElementNotFound, "Elementas nerastas");
  if (selected_ != key) {
    selected_ = key;
    Notify("SelectedItem");
  }
  Raise(OnClick);
}

void TabStrip::Click(const std::string& key) {
  if (Active()) Select(key);
}

}  // namespace orvel
