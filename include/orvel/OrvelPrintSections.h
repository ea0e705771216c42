#pragma once

#include <cstdint>
#include <memory>

#include "orvel/Object.h"

namespace orvel {

class OrvelPrintSection;

/// The sections of a print document, printed in the order added.
class OrvelPrintSections : public Object {
 public:
  enum : int32_t { kText = 0, kTable = 1 };
  virtual std::shared_ptr<OrvelPrintSection> Add(int32_t kind) = 0;
};

}  // namespace orvel
