#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "orvel/Object.h"
#include "orvel/OrvelResult.h"
#include "orvel/OrvelStatus.h"
#include "orvel/Recordset.h"
#include "orvel/Variant.h"

namespace orvel {

class OrvelObjectBO;
class OrvelObjectUI;

/// The object-instance adapter: one record of a type, with its business calls.
class OrvelObjectUIO : public Object {
 public:
  virtual std::string GetGUID() = 0;
  virtual std::string OID() = 0;
  virtual void SetOID(const std::string& oid) = 0;
  /// OID and the record's ID; empty for a record never saved.
  virtual std::string OIDR() = 0;
  virtual void SetOIDR(const std::string& oidr) = 0;
  virtual std::string OName() = 0;
  virtual std::string OType() = 0;
  virtual void SetOType(const std::string& otype) = 0;
  /// The one-line display text of the object.
  virtual std::string Preview() = 0;
  virtual void SetPreview(const std::string& preview) = 0;
  /// The current record; null before a successful Read.
  virtual std::shared_ptr<Recordset> RsFields() = 0;
  /// A field of the current record (RuntimeError when there is none).
  Field& Fields(std::string_view name);
  /// A read through the object; see each adapter for its names. The parameter
  /// is the caller's own string, by reference: an adapter may hand it back
  /// changed (the firms' "FirmInfo" makes an empty one "0").
  virtual OrvelResult Properties(const std::string& propertyName, std::string& propertyPar) = 0;
  /// The same for a parameter the caller does not take back (a literal, a
  /// constant): a copy goes in and is dropped.
  OrvelResult Properties(const std::string& propertyName, const std::string& propertyPar) {
    std::string copy = propertyPar;
    return Properties(propertyName, copy);
  }
  /// An action through the object; params[0], when present, is the Param.
  virtual OrvelResult Methods(const std::string& name, Variant::Array& params) = 0;
  virtual OrvelStatus Read() = 0;
  virtual OrvelStatus Save(const std::shared_ptr<Recordset>& rs2,
                           const std::shared_ptr<Recordset>& rs3) = 0;
  virtual void SetUI(const std::shared_ptr<Object>& ui) = 0;
  virtual std::shared_ptr<OrvelObjectUI> UI() = 0;
  virtual std::shared_ptr<OrvelObjectBO> BO() = 0;
  virtual void CancelUpdate() = 0;
};

}  // namespace orvel
