#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "orvel/OrvelWindowManager.h"

namespace orvel {

// The host's registry of open object windows, keyed by the OIDR of each
// window's object, as every host keeps it. A window registers when shown,
// moves key on Rekey, and leaves the registry before it unloads (Unload may
// call back into the registry). An observer hears of each operation, so a
// host can redraw its window list or print what happened.
class WindowRegistry : public OrvelWindowManager {
 public:
  // Operation name ("ShowWindow", "RemoveWindow", ...) and its arguments.
  using Observer = std::function<void(const std::string& op, const std::vector<std::string>& args)>;
  struct Entry {
    std::string oidr;
    std::shared_ptr<OrvelWindow> window;
  };

  ~WindowRegistry() override;

  void SetObserver(Observer observer) { observer_ = std::move(observer); }

  // The window registered under a key; null when none.
  std::shared_ptr<OrvelWindow> Window(const std::string& oidr) const;
  // The open windows and their keys, in the order they were first shown.
  const std::vector<Entry>& OpenWindows() const { return windows_; }
  // Unloads every window, last first; for the host's shutdown.
  void CloseAll();
  // Forgets every window without unloading it.
  void Clear() { windows_.clear(); }

  // The OIDR of a window's object; "" when it has none.
  static std::string KeyOf(const std::shared_ptr<OrvelWindow>& window);

  // OrvelWindowManager
  bool IsOpen(const std::string& oidr) override;
  void ShowWindow(const std::shared_ptr<OrvelWindow>& window) override;
  void ObjectSaved(const std::string& oidr) override;
  bool QueryRemove(const std::string& oidr, bool ask) override;
  void Rekey(const std::string& oldOidr, const std::shared_ptr<OrvelWindow>& window) override;
  void RemoveWindow(const std::string& oidr, bool force) override;
  void CloseWindow(const std::shared_ptr<OrvelWindow>& window) override;

 private:
  void Tell(const std::string& op, const std::vector<std::string>& args) const;
  void Register(const std::string& key, const std::shared_ptr<OrvelWindow>& window);
  void Unregister(const std::shared_ptr<OrvelWindow>& window);

  std::vector<Entry> windows_;
  Observer observer_;
};

}  // namespace orvel
