#pragma once

#include <memory>
#include <string>

#include "orvel/Object.h"

namespace orvel {

class Recordset;

class OrvelUser : public Object {
 public:
  virtual std::string Name() = 0;
  virtual std::string Id() = 0;
  /// The user's record; field ID is read from it.
  virtual std::shared_ptr<Recordset> Rs() = 0;
};

}  // namespace orvel
