#pragma once

#include <cstdint>
#include <string>

#include "orvel/Object.h"
#include "orvel/OrvelBoResult.h"
#include "orvel/OrvelStatus.h"
#include "orvel/Variant.h"

namespace orvel {

/// The business object behind an object type: named calls with positional
/// parameter strings ('text' in apostrophes, numbers bare, commas between,
/// nothing escaped). The third argument is always 0.
class OrvelObjectBO : public Object {
 public:
  /// A read call; Object holds a Recordset.
  virtual OrvelBoResult GetCall(const std::string& name, const std::string& param,
                                int32_t zero) = 0;
  /// An action call without a returned set.
  virtual OrvelStatus ExecCall(const std::string& name, const std::string& param, int32_t zero) = 0;
  /// An action call with an argument array.
  virtual OrvelStatus ExecArrayCall(const std::string& name, const std::string& param,
                                    Variant::Array& args) = 0;
  /// A named stored routine of the host ("Orvel_GetObjectStructure", ...).
  virtual OrvelBoResult RecordsetCall(const std::string& name, const std::string& param,
                                      int32_t zero) = 0;
};

}  // namespace orvel
