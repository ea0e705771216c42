#pragma once

#include <memory>
#include <string>

#include "orvel/Object.h"

namespace orvel {

class OrvelWindow;

/// The host's registry of open object windows, keyed by OIDR.
class OrvelWindowManager : public Object {
 public:
  virtual bool IsOpen(const std::string& oidr) = 0;
  /// Registers a newly built window under the OIDR of its object and shows it.
  virtual void ShowWindow(const std::shared_ptr<OrvelWindow>& window) = 0;
  /// Told after each successful write.
  virtual void ObjectSaved(const std::string& oidr) = 0;
  /// Asks the window registered under the key whether it may give up its
  /// object; returns Cancel (false lets the caller go on).
  virtual bool QueryRemove(const std::string& oidr, bool ask) = 0;
  /// Moves a window to its current object's key after it changed record.
  virtual void Rekey(const std::string& oldOidr, const std::shared_ptr<OrvelWindow>& window) = 0;
  /// Closes the window of this object; force closes it without asking.
  virtual void RemoveWindow(const std::string& oidr, bool force) = 0;
  /// The close button's road: asks the window's QueryRemove and unloads it.
  virtual void CloseWindow(const std::shared_ptr<OrvelWindow>& window) = 0;
};

}  // namespace orvel
