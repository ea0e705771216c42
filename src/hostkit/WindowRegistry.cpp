#include "hostkit/WindowRegistry.h"

#include <algorithm>

#include "orvel/OrvelObjectUIO.h"
#include "orvel/OrvelWindow.h"

namespace orvel {

namespace {
const char* BoolText(bool b) { return b ? "True" : "False"; }
}  // namespace

WindowRegistry::~WindowRegistry() = default;

std::string WindowRegistry::KeyOf(const std::shared_ptr<OrvelWindow>& window) {
  if (!window) return std::string();
  auto object = window->OrvelObjectUIO();
  return object ? object->OIDR() : std::string();
}

void WindowRegistry::Tell(const std::string& op, const std::vector<std::string>& args) const {
  if (observer_) observer_(op, args);
}

std::shared_ptr<OrvelWindow> WindowRegistry::Window(const std::string& oidr) const {
  auto it = std::find_if(windows_.begin(), windows_.end(),
                         [&oidr](const Entry& e) { return e.oidr == oidr; });
  return it == windows_.end() ? nullptr : it->window;
}

void WindowRegistry::CloseAll() {
  while (!windows_.empty()) {
    auto window = windows_.back().window;
    windows_.pop_back();
    window->Unload();
  }
}

void WindowRegistry::Register(const std::string& key, const std::shared_ptr<OrvelWindow>& window) {
  auto it = std::find_if(windows_.begin(), windows_.end(),
                         [&window](const Entry& e) { return e.window == window; });
  if (it != windows_.end()) {
    it->oidr = key;
  } else {
    windows_.push_back({key, window});
  }
}

void WindowRegistry::Unregister(const std::shared_ptr<OrvelWindow>& window) {
  auto it = std::find_if(windows_.begin(), windows_.end(),
                         [&window](const Entry& e) { return e.window == window; });
  if (it != windows_.end()) windows_.erase(it);
}

bool WindowRegistry::IsOpen(const std::string& oidr) {
  Tell("IsOpen", {oidr});
  return Window(oidr) != nullptr;
}

void WindowRegistry::ShowWindow(const std::shared_ptr<OrvelWindow>& window) {
  std::string key = KeyOf(window);
  Tell("ShowWindow", {key});
  if (!window) return;
  Register(key, window);
  window->Show();
}

void WindowRegistry::ObjectSaved(const std::string& oidr) { Tell("ObjectSaved", {oidr}); }

bool WindowRegistry::QueryRemove(const std::string& oidr, bool ask) {
  Tell("QueryRemove", {oidr, BoolText(ask)});
  auto window = Window(oidr);
  if (!window) return false;
  bool cancel = false;
  window->QueryRemove(cancel);
  return cancel;
}

void WindowRegistry::Rekey(const std::string& oldOidr, const std::shared_ptr<OrvelWindow>& window) {
  std::string key = KeyOf(window);
  Tell("Rekey", {oldOidr, key});
  if (window) Register(key, window);
}

void WindowRegistry::RemoveWindow(const std::string& oidr, bool force) {
  Tell("RemoveWindow", {oidr, BoolText(force)});
  auto window = Window(oidr);
  if (!window) return;
  if (!force) {
    bool cancel = false;
    window->QueryRemove(cancel);
    if (cancel) return;
  }
  Unregister(window);
  window->Unload();
}

void WindowRegistry::CloseWindow(const std::shared_ptr<OrvelWindow>& window) {
  auto it = std::find_if(windows_.begin(), windows_.end(),
                         [&window](const Entry& e) { return e.window == window; });
  Tell("CloseWindow", {it != windows_.end() ? it->oidr : KeyOf(window)});
  if (!window) return;
  bool cancel = false;
  window->QueryRemove(cancel);
  if (cancel) return;
  Unregister(window);
  window->Unload();
}

}  // namespace orvel
