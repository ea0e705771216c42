#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "orvel/Object.h"

namespace orvel {

/// What OrvelObjectBO.GetCall and RecordsetCall return: as a rule a Recordset
/// in Object. Number 0 is success.
struct OrvelBoResult : public Object {
  int32_t Number = 0;
  std::string Text;
  std::shared_ptr<orvel::Object> Object;

  OrvelBoResult() = default;
  OrvelBoResult(int32_t number, std::string text, std::shared_ptr<orvel::Object> object = nullptr)
      : Number(number), Text(std::move(text)), Object(std::move(object)) {}
};

}  // namespace orvel
