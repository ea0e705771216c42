#pragma once

#include <cstdint>
#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "orvel/OrvelResult.h"
#include "orvel/Variant.h"
#include "ui/ListView.h"
#include "ui/OrvelGrid.h"

namespace orvel {

// The field sheet of the test host, keeping the grid's contract without
// drawing anything:
//   - tabs are kept in AddTab order with their list views (each named by its
//     tab key) until ClearTabs;
//   - FillFields and Init read the object's Properties("Structure", "") (so
//     the business call shows in the journal) and remember the field names
//     of its record;
//   - SaveObject commits a pending edit, then saves through the object's
//     Save(nullptr, nullptr); the Number comes back, its Text is LastError.
// Every operation the module calls is kept in Operations() ("FillFields",
// "AddTab Firms Įmonės", "SaveObject", ...).
//
// Tests play the user: EditField writes a field and raises FieldChanged;
// TypeIntoField leaves the value in the cell until EndFieldEdit or
// SaveObject commits it. Nothing the module calls throws.
class FakeOrvelGrid : public OrvelGrid {
 public:
  struct Tab {
    Tab(std::string tabKey, std::string tabCaption)
        : key(std::move(tabKey)), caption(std::move(tabCaption)), list(key) {}
    std::string key;
    std::string caption;
    ListView list;
  };

  // The LastError of a save or fill without an object.
  static constexpr int32_t kNoObject = 91;

  FakeOrvelGrid() = default;

  // OrvelGrid
  void SetServices(std::shared_ptr<OrvelServices> services) override;
  void SetObjectUIO(std::shared_ptr<OrvelObjectUIO> object) override;
  std::shared_ptr<OrvelObjectUIO> ObjectUIO() const override { return object_; }
  void SetLabelWidth(int twips) override;
  ListView& AddTab(const std::string& key, const std::string& caption) override;
  void FillFields() override;
  void RefreshField(const std::string& name) override;
  void EndFieldEdit() override;
  int32_t SaveObject() override;
  std::string LastError() const override { return lastError_; }
  void ClearTabs() override;
  void Init() override;

  // What the module did.
  const std::vector<std::string>& Operations() const { return operations_; }
  void ClearOperations() { operations_.clear(); }
  const std::shared_ptr<OrvelServices>& Services() const { return services_; }
  int LabelWidth() const { return labelWidth_; }
  const std::deque<Tab>& Tabs() const { return tabs_; }
  // The list view of a tab; RuntimeError 35601 for an unknown key.
  ListView& TabList(std::string_view key);
  // The fields of the sheet, as the last FillFields or Init found them.
  const std::vector<std::string>& FieldNames() const { return fieldNames_; }
  // The reply of the last Properties("Structure", "").
  const OrvelResult& Structure() const { return structure_; }
  // The fields RefreshField was asked for, in order.
  const std::vector<std::string>& RefreshedFields() const { return refreshed_; }

  // The user. Both refuse (false) while the grid is disabled or hidden.
  // A field the object does not have is the object's RuntimeError.
  bool EditField(const std::string& name, const Variant& value);
  bool TypeIntoField(const std::string& name, const Variant& value);
  bool HasPendingEdit() const { return pending_.has_value(); }
  // The user releasing a mouse button over tab `tabIndex`'s list.
  void ClickList(int tabIndex, int button, int shift = 0);
  void DoubleClickList(int tabIndex);

 private:
  struct PendingEdit {
    std::string field;
    Variant value;
  };
  void BuildSheet();
  // Writes the pending cell into its field and raises FieldChanged.
  void Commit();
  OrvelObjectUIO& RequireObject() const;
  const Tab& TabAt(int tabIndex) const;

  std::shared_ptr<OrvelServices> services_;
  std::shared_ptr<OrvelObjectUIO> object_;
  int labelWidth_ = 0;
  std::deque<Tab> tabs_;
  std::vector<std::string> fieldNames_;
  std::vector<std::string> refreshed_;
  OrvelResult structure_;
  std::optional<PendingEdit> pending_;
  std::string lastError_;
  std::vector<std::string> operations_;
};

}  // namespace orvel
