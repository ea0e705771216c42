#pragma once

#include <functional>
#include <string>
#include <vector>

#include "ui/Control.h"

namespace orvel {

// A row of tabs, each a key and a caption. The strip only tells which tab is
// selected; the form shows what belongs to it in its Click handler.
class TabStrip : public Control {
 public:
  struct Tab {
    std::string key;
    std::string caption;
  };

  using Control::Control;

  // A key already there is RuntimeError 35602 and changes nothing.
  void AddTab(std::string key, std::string caption);
  const std::vector<Tab>& Tabs() const { return tabs_; }
  // "" before any tab is selected.
  const std::string& SelectedKey() const { return selected_; }
  // Selects the tab and raises Click, from code as from the user, as on the
  // platform. An unknown key is RuntimeError 35601 and changes nothing.
  void Select(const std::string& key);

  std::function<void()> OnClick;
  // The user's click on a tab: Select, but nothing while the strip is
  // disabled or hidden.
  void Click(const std::string& key);

 private:
  std::vector<Tab> tabs_;
  std::string selected_;
};

}  // namespace orvel
