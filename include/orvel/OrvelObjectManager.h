#pragma once

#include <memory>
#include <string>

#include "orvel/Object.h"
#include "orvel/OrvelResult.h"
#include "orvel/Variant.h"

namespace orvel {

class OrvelObjectUI;
class OrvelObjectUIO;

class OrvelObjectManager : public Object {
 public:
  /// The instance adapter of that object, read and ready; null when it does
  /// not exist.
  virtual std::shared_ptr<OrvelObjectUIO> GetOrvelObject(const std::string& oidr) = 0;
  virtual void AddToDesktop(const std::string& oidr) = 0;
  /// The type adapter of an OID, whichever module it lives in.
  virtual std::shared_ptr<OrvelObjectUI> GetOrvelObjectUI(const std::string& oid) = 0;
  /// A host command; the module uses "ShowHelp" with (caption, help file path).
  virtual OrvelResult ExecCommand(const std::string& name, Variant::Array& args) = 0;
  /// A named host service: "Orvel_GetObjectStructureByOID" (Param an OID),
  /// "GetOldPeriod", "GetNewPeriod" (Param ""), "OrvelGroupSelect"
  /// (Param "<routine>(<argument>);;<caption>").
  virtual OrvelResult Call(const std::string& name, const std::string& param) = 0;
};

}  // namespace orvel
