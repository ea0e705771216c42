#include "ui/Menu.h"

#include "orvel/RuntimeError.h"
#include "ui/ControlConstants.h"

namespace orvel {

Menu::Menu(std::string name, std::string caption)
    : Control(std::move(name)), caption_(std::move(caption)) {}

Menu& Menu::Add(std::string name, std::string caption) {
  const Menu* root = this;
  while (root->parent_) root = root->parent_;
  if (root->Name() == name || root->Find(name)) {
    throw RuntimeError(control_error::kKeyNotUnique,
                       "Raktas kolekcijoje nėra unikalus: meniu " + name + " po " + root->Name());
  }
  auto entry = std::make_unique<Menu>(std::move(name), std::move(caption));
  entry->parent_ = this;
  entry->SetObserver(Observer());
  items_.push_back(std::move(entry));
  Notify("Items");
  return *items_.back();
}

Menu* Menu::Find(std::string_view name) const {
  for (const auto& item : items_) {
    if (item->Name() == name) return item.get();
    if (Menu* found = item->Find(name)) return found;
  }
  return nullptr;
}

void Menu::SetObserver(ControlObserver* observer) {
  Control::SetObserver(observer);
  for (const auto& item : items_) item->SetObserver(observer);
}

void Menu::Click() {
  if (Active()) Raise(OnClick);
}

}  // namespace orvel
