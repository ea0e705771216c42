#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "orvel/Object.h"

namespace orvel {

class Recordset;

class OrvelSession : public Object {
 public:
  /// The application folder; help file names are appended to it.
  virtual std::string AppPath() = 0;
  /// The title of message boxes.
  virtual std::string AppTitle() = 0;
  virtual int16_t SessionNumber() = 0;
  /// The record of the firm that keeps the books (field OIDR).
  virtual std::shared_ptr<Recordset> OwnFirm() = 0;
  /// The settings object of a type, e.g. "O00018021" (fields StructuredCode,
  /// PriceWithVAT); no object when the host has none.
  virtual std::shared_ptr<Object> SettingObject(const std::string& oid) = 0;
};

}  // namespace orvel
