#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "ui/Control.h"

namespace orvel {

// A menu entry, or a menu with entries under it: a form's popup menus
// (mnuNew with mnuNewWithCopy under it). A popup's own Visible does not
// matter to its entries: the module keeps popups hidden from the menu bar.
// A caption of "-" is a separator.
//
// Entries are owned by their menu and keep their address while it lives.
// The observer set on a menu is handed to every entry under it, now and
// later; adding an entry notifies "Items" on its menu.
class Menu : public Control {
 public:
  explicit Menu(std::string name, std::string caption = {});

  const std::string& Caption() const { return caption_; }
  void SetCaption(std::string caption) { Assign(caption_, std::move(caption), "Caption"); }
  bool Checked() const { return checked_; }
  void SetChecked(bool checked) { Assign(checked_, checked, "Checked"); }
  bool IsSeparator() const { return caption_ == "-"; }

  // Appends an entry. A name already used in this menu tree is
  // RuntimeError 35602 and adds nothing.
  Menu& Add(std::string name, std::string caption);
  const std::vector<std::unique_ptr<Menu>>& Items() const { return items_; }
  // The entry of that name under this menu, at any depth; null when none.
  Menu* Find(std::string_view name) const;
  Menu* Parent() const { return parent_; }

  void SetObserver(ControlObserver* observer) override;

  std::function<void()> OnClick;
  // The user picking the entry; nothing while it is disabled or hidden.
  void Click();

 private:
  std::string caption_;
  bool checked_ = false;
  Menu* parent_ = nullptr;
  std::vector<std::unique_ptr<Menu>> items_;
};

}  // namespace orvel
