#include "testhost/TestWindowManager.h"

#include <algorithm>

#include "host/OrvelObjectUIO.h"
#include "host/OrvelWindow.h"
#include "testhost/CallLog.h"

namespace orvel {

namespace {
const char* BoolText(bool b) { return b ? "True" : "False"; }
}  // namespace

TestWindowManager::TestWindowManager(std::shared_ptr<CallLog> log) : log_(std::move(log)) {}

std::string TestWindowManager::KeyOf(const std::shared_ptr<OrvelWindow>& window) {
  if (!window) return std::string();
  auto object = window->OrvelObjectUIO();
  return object ? object->OIDR() : std::string();
}

std::vector<TestWindowManager::Entry>::iterator TestWindowManager::Find(const std::string& oidr) {
  return std::find_if(windows_.begin(), windows_.end(),
                      [&oidr](const Entry& e) { return e.oidr == oidr; });
}

std::vector<TestWindowManager::Entry>::iterator TestWindowManager::Find(
    const std::shared_ptr<OrvelWindow>& window) {
  return std::find_if(windows_.begin(), windows_.end(),
                      [&window](const Entry& e) { return e.window == window; });
}

void TestWindowManager::Unregister(const std::shared_ptr<OrvelWindow>& window) {
  auto it = Find(window);
  if (it != windows_.end()) windows_.erase(it);
}

std::shared_ptr<OrvelWindow> TestWindowManager::Window(const std::string& oidr) const {
  auto it = std::find_if(windows_.begin(), windows_.end(),
                         [&oidr](const Entry& e) { return e.oidr == oidr; });
  return it == windows_.end() ? nullptr : it->window;
}

bool TestWindowManager::IsOpen(const std::string& oidr) {
  log_->Add(Channel::Window, "IsOpen", {oidr});
  return Window(oidr) != nullptr;
}

void TestWindowManager::ShowWindow(const std::shared_ptr<OrvelWindow>& window) {
  std::string key = KeyOf(window);
  log_->Add(Channel::Window, "ShowWindow", {key});
  if (!window) return;
  if (auto it = Find(window); it != windows_.end()) {
    it->oidr = key;
  } else {
    windows_.push_back({key, window});
  }
  window->Show();
}

void TestWindowManager::ObjectSaved(const std::string& oidr) {
  log_->Add(Channel::Window, "ObjectSaved", {oidr});
  saved_.push_back(oidr);
}

bool TestWindowManager::QueryRemove(const std::string& oidr, bool ask) {
  log_->Add(Channel::Window, "QueryRemove", {oidr, BoolText(ask)});
  auto window = Window(oidr);
  if (!window) return false;
  bool cancel = false;
  window->QueryRemove(cancel);
  return cancel;
}

void TestWindowManager::Rekey(const std::string& oldOidr,
                              const std::shared_ptr<OrvelWindow>& window) {
  std::string key = KeyOf(window);
  log_->Add(Channel::Window, "Rekey", {oldOidr, key});
  if (!window) return;
  auto it = Find(window);
  if (it == windows_.end()) {
    windows_.push_back({key, window});
  } else {
    it->oidr = key;
  }
}

void TestWindowManager::RemoveWindow(const std::string& oidr, bool force) {
  log_->Add(Channel::Window, "RemoveWindow", {oidr, BoolText(force)});
  auto window = Window(oidr);
  if (!window) return;
  if (!force) {
    bool cancel = false;
    window->QueryRemove(cancel);
    if (cancel) return;
  }
  // Unregistered first: Unload may call back into this manager.
  Unregister(window);
  window->Unload();
}

void TestWindowManager::CloseWindow(const std::shared_ptr<OrvelWindow>& window) {
  auto it = Find(window);
  std::string key = it != windows_.end() ? it->oidr : KeyOf(window);
  log_->Add(Channel::Window, "CloseWindow", {key});
  if (!window) return;
  bool cancel = false;
  window->QueryRemove(cancel);
  if (cancel) return;
  Unregister(window);
  window->Unload();
}

}  // namespace orvel
