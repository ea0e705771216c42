#pragma once

#include <functional>
#include <memory>
#include <string>

#include "orvel/Object.h"
#include "ui/ComboItems.h"
#include "ui/Control.h"

namespace orvel {

// A combo box whose rows carry pictures. SelectedItem is the picked row (null
// for none); picking one, from code or by the user, shows its text and
// raises Click. Text set from code raises Change when it differs and picks
// the row that reads the same, if any (without Click), else none.
class ImageCombo : public Control {
 public:
  explicit ImageCombo(std::string name);

  orvel::ComboItems& ComboItems() { return items_; }
  const orvel::ComboItems& ComboItems() const { return items_; }

  ComboItem* SelectedItem() const { return selected_; }
  // A row of another combo is RuntimeError 380.
  void SetSelectedItem(ComboItem* item);

  const std::string& Text() const { return text_; }
  void SetText(std::string text);
  bool Locked() const { return locked_; }
  void SetLocked(bool locked) { Assign(locked_, locked, "Locked"); }
  const std::shared_ptr<Object>& ImageList() const { return imageList_; }
  void SetImageList(std::shared_ptr<Object> images);

  std::function<void()> OnClick;
  std::function<void()> OnChange;

  // The user picking a row. Nothing while disabled, hidden or locked, or for
  // a row of another combo.
  void Pick(ComboItem& item);

 private:
  friend class ComboItems;

  orvel::ComboItems items_{*this};
  ComboItem* selected_ = nullptr;
  std::string text_;
  bool locked_ = false;
  std::shared_ptr<Object> imageList_;
};

}  // namespace orvel
