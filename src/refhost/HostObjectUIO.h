#pragma once

#include <memory>
#include <string>

#include "orvel/ErrorNumbers.h"
#include "orvel/OrvelObjectUIO.h"

namespace orvel {

class HostObjectUI;

// One record of a host type (HostObjectUI), read and written by the standard
// calls of its business object:
//
//   new record  GetCall "Orvel_NewObject"  '<OID>'
//   read        GetCall "Orvel_ReadObject" '<OIDR>'
//   save        ExecArrayCall "Orvel_SaveObject" '<OID>','<OIDR>' (OIDR ""
//               for a new record) with the array (record, Rs2, Rs3), then
//               read again under the record's new OIDR
//   property    "GetObjectForm": the record's card, not shown; any other
//               name: GetCall "Get<Name>" with PropertyPar, or the OIDR
//   method      ExecCall "<Name>" with Params(0), or ""
//
// Nothing is thrown out: a failure is a Number and its text.
class HostObjectUIO : public OrvelObjectUIO, public std::enable_shared_from_this<HostObjectUIO> {
 public:
  static constexpr int32_t kNoBusinessObject = 91;
  static constexpr int32_t kRecordNotFound = kNoCurrentRecord;

  explicit HostObjectUIO(std::shared_ptr<HostObjectUI> ui) : ui_(std::move(ui)) {}

  std::string GetGUID() override { return {}; }
  std::string OID() override;
  void SetOID(const std::string&) override {}
  std::string OIDR() override { return oidr_; }
  void SetOIDR(const std::string& oidr) override { oidr_ = oidr; }
  std::string OName() override;
  std::string OType() override { return OID(); }
  void SetOType(const std::string&) override {}
  std::string Preview() override;
  void SetPreview(const std::string&) override {}
  std::shared_ptr<Recordset> RsFields() override { return record_; }
  using OrvelObjectUIO::Properties;
  OrvelResult Properties(const std::string& propertyName, std::string& propertyPar) override;
  OrvelResult Methods(const std::string& name, Variant::Array& params) override;
  OrvelStatus Read() override;
  OrvelStatus Save(const std::shared_ptr<Recordset>& rs2,
                   const std::shared_ptr<Recordset>& rs3) override;
  void SetUI(const std::shared_ptr<Object>&) override {}
  std::shared_ptr<OrvelObjectUI> UI() override;
  std::shared_ptr<OrvelObjectBO> BO() override;
  void CancelUpdate() override;

 private:
  OrvelStatus ReadRecord(const std::string& callName, const std::string& param);

  std::shared_ptr<HostObjectUI> ui_;
  std::string oidr_;
  std::shared_ptr<Recordset> record_;
};

}  // namespace orvel
