#pragma once

#include <cstdint>
#include <string>

#include "orvel/Object.h"

namespace orvel {

/// The host's text search dialog; the module creates one per search through
/// OrvelHostClasses.
class OrvelObjectSelect : public Object {
 public:
  virtual void SetColumnCaption(const std::string& caption) = 0;
  virtual void SetOType(const std::string& otype) = 0;
  virtual void SetMultiSelect(bool multiSelect) = 0;
  /// Choices made in the dialog, passed on to list calls as digits.
  virtual uint8_t SearchOption1() = 0;
  virtual uint8_t SearchOption2() = 0;
  /// Runs modally; the text entered, empty when cancelled.
  virtual std::string Show() = 0;
};

}  // namespace orvel
