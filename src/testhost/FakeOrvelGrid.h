#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "hostkit/FieldSheet.h"
#include "orvel/Variant.h"

namespace orvel {

// The field sheet of the test host: the host kit's FieldSheet, which the
// windowed hosts draw, with every operation the module calls kept in
// Operations() ("FillFields", "AddTab Firms Įmonės", "SaveObject", ...) and
// the fields RefreshField was asked for in RefreshedFields().
//
// Tests play the user: EditField writes a field's value and raises
// FieldChanged; TypeIntoField leaves the value in the cell until
// EndFieldEdit or SaveObject commits it. Nothing the module calls throws.
class FakeOrvelGrid : public FieldSheet {
 public:
  FakeOrvelGrid() = default;

  // OrvelGrid, recorded and passed to the sheet
  void SetServices(std::shared_ptr<OrvelServices> services) override;
  void SetObjectUIO(std::shared_ptr<OrvelObjectUIO> object) override;
  void SetLabelWidth(int twips) override;
  ListView& AddTab(const std::string& key, const std::string& caption) override;
  void FillFields() override;
  void RefreshField(const std::string& name) override;
  void EndFieldEdit() override;
  int32_t SaveObject() override;
  void ClearTabs() override;
  void Init() override;

  const std::vector<std::string>& Operations() const { return operations_; }
  void ClearOperations() { operations_.clear(); }
  const std::vector<std::string>& RefreshedFields() const { return refreshed_; }
  // The list view of a tab; RuntimeError 35601 for an unknown key.
  ListView& TabList(std::string_view key);

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
  // Writes the pending cell into its field and raises FieldChanged.
  void Commit();
  OrvelObjectUIO& RequireObject() const;
  const Tab& TabAt(int tabIndex) const;

  std::vector<std::string> refreshed_;
  std::optional<PendingEdit> pending_;
  std::vector<std::string> operations_;
};

}  // namespace orvel
