#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "orvel/Object.h"
#include "ui/Control.h"

namespace orvel {

class ListView;
class OrvelObjectUIO;
class OrvelServices;

// The host's field sheet: the fields of one object as a two-column sheet, and
// under it a row of list tabs, each a list view. The host supplies it
// (Ui::NewOrvelGrid); a form holds it like a control and drives it:
//
//   SetServices, SetObjectUIO, SetLabelWidth   before the sheet is built
//   AddTab(key, caption) ...                   the tabs, in order (0, 1, ...)
//   FillFields (or Init)                       builds the sheet from the
//                                              object's Properties("Structure",
//                                              "") and its Fields
//   RefreshField(name)                         after the module changed a field
//   EndFieldEdit                               commits the cell being edited
//   SaveObject                                 EndFieldEdit, then the object's
//                                              Save(nullptr, nullptr): 0 on
//                                              success, else its Number, the
//                                              Text kept for LastError
//   ClearTabs                                  forgets tabs and fields before a
//                                              rebuild
//
// Nothing is thrown out of these operations: a failure is a Number and a text.
// Events go to the slots below; tab indexes are 0-based, in AddTab order. A
// disabled or hidden grid raises no events.
class OrvelGrid : public Control {
 public:
  explicit OrvelGrid(std::string name = "OrvelGrid") : Control(std::move(name)) {}

  virtual void SetServices(std::shared_ptr<OrvelServices> services) = 0;
  virtual void SetObjectUIO(std::shared_ptr<OrvelObjectUIO> object) = 0;
  virtual std::shared_ptr<OrvelObjectUIO> ObjectUIO() const = 0;
  // The width of the caption column, in twips.
  virtual void SetLabelWidth(int twips) = 0;
  // Adds a tab and returns its list view, owned by the grid and valid until
  // ClearTabs.
  virtual ListView& AddTab(const std::string& key, const std::string& caption) = 0;
  virtual void FillFields() = 0;
  virtual void RefreshField(const std::string& name) = 0;
  virtual void EndFieldEdit() = 0;
  virtual int32_t SaveObject() = 0;
  // The text of the last failed SaveObject; "" after a successful one.
  virtual std::string LastError() const = 0;
  virtual void ClearTabs() = 0;
  // Builds the sheet for forms that have no tabs of their own to add first.
  virtual void Init() = 0;

  std::function<void()> OnFieldChanged;
  std::function<void(const std::string& tabKey, int tabIndex, int button, int shift)> OnListMouseUp;
  std::function<void(std::shared_ptr<Object> data, int& effect)> OnListDragOver;
  std::function<void(std::shared_ptr<Object> data)> OnListDragDrop;
  std::function<void(int tabIndex)> OnListDoubleClick;

  // Raised by the grid (or a test) when the user changed a field.
  void FieldChanged() {
    if (Active()) Raise(OnFieldChanged);
  }
  void ListMouseUp(const std::string& tabKey, int tabIndex, int button, int shift = 0) {
    if (Active()) Raise(OnListMouseUp, tabKey, tabIndex, button, shift);
  }
  // Returns the drop effect after the handler; 0 (none) when the grid takes
  // no input.
  int ListDragOver(std::shared_ptr<Object> data, int effect) {
    if (!Active()) return 0;
    Raise(OnListDragOver, std::move(data), effect);
    return effect;
  }
  void ListDragDrop(std::shared_ptr<Object> data) {
    if (Active()) Raise(OnListDragDrop, std::move(data));
  }
  void ListDoubleClick(int tabIndex) {
    if (Active()) Raise(OnListDoubleClick, tabIndex);
  }
};

}  // namespace orvel
