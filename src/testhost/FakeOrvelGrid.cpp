#include "testhost/FakeOrvelGrid.h"

#include <exception>

#include "orvel/OrvelObjectUIO.h"
#include "orvel/Recordset.h"
#include "orvel/RuntimeError.h"
#include "ui/ControlConstants.h"

namespace orvel {

namespace {
constexpr const char* kNoObjectText = "Laukų lapui nepriskirtas objektas";
}  // namespace

void FakeOrvelGrid::SetServices(std::shared_ptr<OrvelServices> services) {
  operations_.push_back("SetServices");
  services_ = std::move(services);
}

void FakeOrvelGrid::SetObjectUIO(std::shared_ptr<OrvelObjectUIO> object) {
  operations_.push_back("SetObjectUIO");
  // A cell being edited belonged to the object the grid gives up.
  if (object != object_) pending_.reset();
  object_ = std::move(object);
}

void FakeOrvelGrid::SetLabelWidth(int twips) {
  operations_.push_back("SetLabelWidth " + std::to_string(twips));
  labelWidth_ = twips;
}

ListView& FakeOrvelGrid::AddTab(const std::string& key, const std::string& caption) {
  operations_.push_back("AddTab " + key + " " + caption);
  return tabs_.emplace_back(key, caption).list;
}

void FakeOrvelGrid::FillFields() {
  operations_.push_back("FillFields");
  BuildSheet();
}

void FakeOrvelGrid::Init() {
  operations_.push_back("Init");
  BuildSheet();
}

void FakeOrvelGrid::RefreshField(const std::string& name) {
  operations_.push_back("RefreshField " + name);
  refreshed_.push_back(name);
}

void FakeOrvelGrid::EndFieldEdit() {
  operations_.push_back("EndFieldEdit");
  Commit();
}

int32_t FakeOrvelGrid::SaveObject() {
  operations_.push_back("SaveObject");
  lastError_.clear();
  Commit();
  if (!object_) {
    lastError_ = kNoObjectText;
    return kNoObject;
  }
  try {
    OrvelStatus status = object_->Save(nullptr, nullptr);
    if (status.Number != 0) lastError_ = status.Text;
    return status.Number;
  } catch (const RuntimeError& e) {
    lastError_ = e.Text();
    return e.Number() != 0 ? e.Number() : RuntimeError::kInvalidCall;
  } catch (const std::exception& e) {
    lastError_ = e.what();
    return RuntimeError::kInvalidCall;
  }
}

void FakeOrvelGrid::ClearTabs() {
  operations_.push_back("ClearTabs");
  tabs_.clear();
  fieldNames_.clear();
  pending_.reset();
}

ListView& FakeOrvelGrid::TabList(std::string_view key) {
  for (Tab& tab : tabs_) {
    if (tab.key == key) return tab.list;
  }
  throw RuntimeError(control_error::kElementNotFound,
                     "Element not found: no tab '" + std::string(key) + "'");
}

bool FakeOrvelGrid::EditField(const std::string& name, const Variant& value) {
  if (!Active()) return false;
  Commit();
  RequireObject().Fields(name).SetValue(value);
  FieldChanged();
  return true;
}

bool FakeOrvelGrid::TypeIntoField(const std::string& name, const Variant& value) {
  if (!Active()) return false;
  RequireObject().Fields(name);  // a field the object lacks fails here, in the test
  // Moving to another cell commits the one left.
  if (pending_ && pending_->field != name) Commit();
  pending_ = PendingEdit{name, value};
  return true;
}

void FakeOrvelGrid::ClickList(int tabIndex, int button, int shift) {
  ListMouseUp(TabAt(tabIndex).key, tabIndex, button, shift);
}

void FakeOrvelGrid::DoubleClickList(int tabIndex) {
  TabAt(tabIndex);
  ListDoubleClick(tabIndex);
}

void FakeOrvelGrid::BuildSheet() {
  fieldNames_.clear();
  if (!object_) {
    structure_ = {kNoObject, kNoObjectText, {}};
    return;
  }
  try {
    structure_ = object_->Properties("Structure", "");
    if (auto record = object_->RsFields()) {
      auto& fields = record->Fields();
      for (int i = 0; i < fields.Count(); ++i) fieldNames_.push_back(fields.Item(i).Name());
    }
  } catch (const RuntimeError& e) {
    structure_ = {e.Number(), e.Text(), {}};
  } catch (const std::exception& e) {
    structure_ = {RuntimeError::kInvalidCall, e.what(), {}};
  }
}

void FakeOrvelGrid::Commit() {
  if (!pending_) return;
  PendingEdit edit = std::move(*pending_);
  pending_.reset();
  if (!object_) return;
  try {
    object_->Fields(edit.field).SetValue(edit.value);
  } catch (const std::exception& e) {
    lastError_ = e.what();
    return;
  }
  FieldChanged();
}

OrvelObjectUIO& FakeOrvelGrid::RequireObject() const {
  if (!object_) throw RuntimeError(RuntimeError::kObjectNotSet, kNoObjectText);
  return *object_;
}

const FakeOrvelGrid::Tab& FakeOrvelGrid::TabAt(int tabIndex) const {
  if (tabIndex < 0 || static_cast<size_t>(tabIndex) >= tabs_.size()) {
    throw RuntimeError(control_error::kIndexOutOfBounds, "Index out of bounds: tab " +
                                                             std::to_string(tabIndex) + " of " +
                                                             std::to_string(tabs_.size()));
  }
  return tabs_[static_cast<size_t>(tabIndex)];
}

}  // namespace orvel
