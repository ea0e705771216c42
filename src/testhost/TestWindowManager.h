#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "host/OrvelWindowManager.h"

namespace orvel {

class CallLog;

// The open windows of the test host, each registered under the OIDR of its
// object ("" for a window without one or a record never saved). Every call
// is logged in the Window channel ("ShowWindow O00003005").
class TestWindowManager : public OrvelWindowManager {
 public:
  struct Entry {
    std::string oidr;
    std::shared_ptr<OrvelWindow> window;
  };

  explicit TestWindowManager(std::shared_ptr<CallLog> log);

  // In the order shown.
  const std::vector<Entry>& OpenWindows() const { return windows_; }
  size_t Count() const { return windows_.size(); }
  // The window registered under the key; null when none is.
  std::shared_ptr<OrvelWindow> Window(const std::string& oidr) const;
  // The OIDRs that ObjectSaved was told, in order.
  const std::vector<std::string>& Saved() const { return saved_; }
  // Forgets every window without unloading it.
  void Clear() { windows_.clear(); }

  // OrvelWindowManager
  bool IsOpen(const std::string& oidr) override;
  // Registers the window under its object's OIDR (a window shown again keeps
  // one entry, re-keyed) and calls its Show.
  void ShowWindow(const std::shared_ptr<OrvelWindow>& window) override;
  void ObjectSaved(const std::string& oidr) override;
  // Calls the registered window's QueryRemove; false when none is registered.
  bool QueryRemove(const std::string& oidr, bool ask) override;
  // Moves the window's entry to its object's current OIDR (the old key is
  // only logged); registers the window when it has no entry.
  void Rekey(const std::string& oldOidr, const std::shared_ptr<OrvelWindow>& window) override;
  // Without force the window's QueryRemove may keep it open; otherwise it is
  // unregistered and unloaded.
  void RemoveWindow(const std::string& oidr, bool force) override;
  // Asks the window's QueryRemove; unless cancelled, unregisters and unloads it.
  void CloseWindow(const std::shared_ptr<OrvelWindow>& window) override;

 private:
  static std::string KeyOf(const std::shared_ptr<OrvelWindow>& window);
  std::vector<Entry>::iterator Find(const std::string& oidr);
  std::vector<Entry>::iterator Find(const std::shared_ptr<OrvelWindow>& window);
  void Unregister(const std::shared_ptr<OrvelWindow>& window);

  std::shared_ptr<CallLog> log_;
  std::vector<Entry> windows_;
  std::vector<std::string> saved_;
};

}  // namespace orvel
