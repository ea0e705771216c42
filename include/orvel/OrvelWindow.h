#pragma once

#include <memory>

#include "orvel/Object.h"

namespace orvel {

class OrvelObjectUIO;

/// A window of the module as its host sees it: bound to one object, asked
/// before it gives that object up, unloaded by the host.
class OrvelWindow : public Object {
 public:
  /// The object the window shows; the builder sets it before the window loads.
  virtual std::shared_ptr<orvel::OrvelObjectUIO> OrvelObjectUIO() const = 0;
  virtual void SetOrvelObjectUIO(std::shared_ptr<orvel::OrvelObjectUIO> object) = 0;
  /// Shown by the host: the window loads (Form_Load) on first show.
  virtual void Show() = 0;
  /// Whether the window may give up its object; sets cancel to keep it.
  virtual void QueryRemove(bool& cancel) = 0;
  /// Closes the window and releases what it holds.
  virtual void Unload() = 0;
};

}  // namespace orvel
