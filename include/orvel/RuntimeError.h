#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>

#include "orvel/ErrorNumbers.h"

namespace orvel {

/// A run-time failure inside the module: a conversion that does not fit, a
/// subscript out of range, a missing field. It carries the legacy runtime's
/// error number so that callers can tell the kinds apart. It never crosses a
/// host interface: the module catches it where control goes back to the host
/// and reports it through a result's Number and Text.
class RuntimeError : public std::runtime_error {
 public:
  /// The legacy runtime's numbers for the failures the module can meet.
  static constexpr int32_t kInvalidCall = 5;
  static constexpr int32_t kOverflow = 6;
  static constexpr int32_t kSubscript = 9;
  static constexpr int32_t kTypeMismatch = 13;
  static constexpr int32_t kObjectNotSet = 91;
  static constexpr int32_t kInvalidUseOfNull = 94;
  static constexpr int32_t kNoCurrentRecord = orvel::kNoCurrentRecord;
  static constexpr int32_t kItemNotFound = 3265;
  static constexpr int32_t kBadFilter = 3001;

  RuntimeError(int32_t number, const std::string& text)
      : std::runtime_error(text), number_(number) {}

  int32_t Number() const { return number_; }
  std::string Text() const { return what(); }

 private:
  int32_t number_;
};

}  // namespace orvel
