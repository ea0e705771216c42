#pragma once

#include <memory>
#include <string>
#include <vector>

#include "orvel/OrvelObjectUI.h"
#include "support/ModuleTest.h"
#include "testhost/FakeOrvelGrid.h"
#include "testhost/TestSession.h"
#include "testhost/TestWindowManager.h"

namespace orvel {

// A catalogue card of type `oid` on the in-memory host, opened the way a user
// opens it: through its type's menu. Boxes are titled "Apskaita".
template <class Window>
class CardTest : public ModuleTest {
 protected:
  explicit CardTest(std::string oid) : oid_(std::move(oid)) {}

  void SetUp() override {
    ModuleTest::SetUp();
    host_.Session()->SetAppTitle("Apskaita");
  }

  // Opens a window by the type's menu (key "0" a record, "1" a new one under
  // a group), shows it and clears the journal.
  std::shared_ptr<Window> Open(const std::string& oidr, const char* key = "0",
                               const char* otype = "") {
    auto window = adapter_->ClickMenu(oidr, otype, key, "").Value.template ObjectAs<Window>();
    EXPECT_NE(window, nullptr);
    if (window) host_.WindowManager()->ShowWindow(window);
    Clear();
    return window;
  }

  void Clear() {
    host_.Log().Clear();
    host_.Ui()->ClearBoxes();
    BO(oid_).ClearCalls();
  }

  FakeOrvelGrid& Grid(Window& window) { return dynamic_cast<FakeOrvelGrid&>(*window.OrvelGrid); }

  // The keys of the window's tabs, in order.
  std::vector<std::string> TabKeys(Window& window) {
    std::vector<std::string> keys;
    for (const auto& tab : Grid(window).Tabs()) keys.push_back(tab.key);
    return keys;
  }

  // The index (from 0) of the tab with `key`; -1 and a failure when none.
  int TabIndex(Window& window, const std::string& key) {
    const auto& tabs = Grid(window).Tabs();
    for (size_t i = 0; i < tabs.size(); ++i) {
      if (tabs[i].key == key) return static_cast<int>(i);
    }
    ADD_FAILURE() << "no tab " << key;
    return -1;
  }

  // Selects the row `key` of a tab's list, adding it with `tag` and `icon`
  // unless the list loaded it itself.
  ListItem& SelectRow(Window& window, const std::string& tab, const std::string& key,
                      Variant tag = {}, const std::string& icon = {}) {
    ListView& list = Grid(window).TabList(tab);
    ListItem* row = list.ListItems().Find(key);
    if (!row) {
      row = &list.ListItems().Add(0, key, key, icon);
      row->SetTag(std::move(tag));
    }
    list.SetSelectedItem(row);
    return *row;
  }

  Variant Stored(int32_t id, const char* field) { return BO(oid_).Table().Value(id, field); }

  // The type's adapter; made by the fixture once its table is seeded.
  void MakeAdapter() { adapter_ = Adapter(oid_); }

  std::string oid_;
  std::shared_ptr<OrvelObjectUI> adapter_;
};

}  // namespace orvel
