#include "testhost/FakeOrvelGrid.h"

#include <exception>

#include "orvel/OrvelObjectUIO.h"
#include "orvel/Recordset.h"
#include "orvel/RuntimeError.h"
#include "ui/ControlConstants.h"

namespace orvel {

void FakeOrvelGrid::SetServices(std::shared_ptr<OrvelServices> services) {
  operations_.push_back("SetServices");
  FieldSheet::SetServices(std::move(services));
}

void FakeOrvelGrid::SetObjectUIO(std::shared_ptr<OrvelObjectUIO> object) {
  operations_.push_back("SetObjectUIO");
  // A cell being edited belonged to the object the grid gives up.
  if (object != ObjectUIO()) pending_.reset();
  FieldSheet::SetObjectUIO(std::move(object));
}

void FakeOrvelGrid::SetLabelWidth(int twips) {
  operations_.push_back("SetLabelWidth " + std::to_string(twips));
  FieldSheet::SetLabelWidth(twips);
}

ListView& FakeOrvelGrid::AddTab(const std::string& key, const std::string& caption) {
  operations_.push_back("AddTab " + key + " " + caption);
  return FieldSheet::AddTab(key, caption);
}

void FakeOrvelGrid::FillFields() {
  operations_.push_back("FillFields");
  FieldSheet::FillFields();
}

void FakeOrvelGrid::Init() {
  operations_.push_back("Init");
  FieldSheet::Init();
}

void FakeOrvelGrid::RefreshField(const std::string& name) {
  operations_.push_back("RefreshField " + name);
  refreshed_.push_back(name);
  FieldSheet::RefreshField(name);
}

void FakeOrvelGrid::EndFieldEdit() {
  operations_.push_back("EndFieldEdit");
  Commit();
  FieldSheet::EndFieldEdit();
}

int32_t FakeOrvelGrid::SaveObject() {
  operations_.push_back("SaveObject");
  Commit();
  return FieldSheet::SaveObject();
}

void FakeOrvelGrid::ClearTabs() {
  operations_.push_back("ClearTabs");
  pending_.reset();
  FieldSheet::ClearTabs();
}

ListView& FakeOrvelGrid::TabList(std::string_view key) {
  if (ListView* list = FieldSheet::TabList(std::string(key))) return *list;
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

void FakeOrvelGrid::Commit() {
  if (!pending_) return;
  PendingEdit edit = std::move(*pending_);
  pending_.reset();
  if (!ObjectUIO()) return;
  try {
    ObjectUIO()->Fields(edit.field).SetValue(edit.value);
  } catch (const std::exception&) {
    return;  // the cell keeps no value the object refused
  }
  FieldChanged();
}

OrvelObjectUIO& FakeOrvelGrid::RequireObject() const {
  if (!ObjectUIO()) throw RuntimeError(RuntimeError::kObjectNotSet, "Laukų lapui nepriskirtas objektas");
  return *ObjectUIO();
}

const FakeOrvelGrid::Tab& FakeOrvelGrid::TabAt(int tabIndex) const {
  if (tabIndex < 0 || static_cast<size_t>(tabIndex) >= Tabs().size()) {
    throw RuntimeError(control_error::kIndexOutOfBounds, "Index out of bounds: tab " +
                                                             std::to_string(tabIndex) + " of " +
                                                             std::to_string(Tabs().size()));
  }
  return Tabs()[static_cast<size_t>(tabIndex)];
}

}  // namespace orvel
