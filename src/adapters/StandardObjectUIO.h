#pragma once

#include <memory>
#include <optional>
#include <string>

#include "orvel/OrvelObjectUIO.h"

namespace orvel {

// The standard instance object that every instance adapter wraps. It holds
// one record and reaches data only through its type's business object (the
// BO of its UI):
//
//   new record  GetCall "Orvel_NewObject"   Param "'<OID>'"
//               (a one-row set of defaults; its ID stays Empty until saved)
//   read        GetCall "Orvel_ReadObject"  Param "'<OIDR>'" (a one-row set)
//   save        ExecArrayCall "Orvel_SaveObject" Param "'<OID>','<OIDR>'"
//               (OIDR "" for a new record) with the array (record, Rs2, Rs3);
//               the business layer writes a new record's ID into its field
//               "ID", the object takes OIDR = OID & ID and reads the record
//               again, so that values and underlying values agree.
//   property    GetCall "Get<Name>" Param PropertyPar, or the OIDR when empty
//   method      ExecCall "<Name>" Param Params(0), or "" without one
//
// An OIDR under nine characters, or with a ninth character "0", names no
// stored record: Read then asks for a new one. Preview is the record's field
// "Preview", else its "Name", unless set.
class StandardObjectUIO : public OrvelObjectUIO {
 public:
  // A fresh identifier of this instance.
  std::string GetGUID() override;
  std::string OID() override;
  void SetOID(const std::string& oid) override { oid_ = oid; }
  std::string OIDR() override { return oidr_; }
  void SetOIDR(const std::string& oidr) override { oidr_ = oidr; }
  std::string OName() override;
  std::string OType() override;
  void SetOType(const std::string& otype) override { otype_ = otype; }
  std::string Preview() override;
  void SetPreview(const std::string& preview) override { preview_ = preview; }
  std::shared_ptr<Recordset> RsFields() override { return record_; }
  using OrvelObjectUIO::Properties;
  OrvelResult Properties(const std::string& propertyName, std::string& propertyPar) override;
  OrvelResult Methods(const std::string& name, Variant::Array& params) override;
  OrvelStatus Read() override;
  OrvelStatus Save(const std::shared_ptr<Recordset>& rs2,
                   const std::shared_ptr<Recordset>& rs3) override;
  void SetUI(const std::shared_ptr<Object>& ui) override;
  std::shared_ptr<OrvelObjectUI> UI() override { return ui_; }
  std::shared_ptr<OrvelObjectBO> BO() override;
  // Every field goes back to its underlying value.
  void CancelUpdate() override;
  // The business object; RuntimeError kObjectNotSet, naming the record, when
  // the host has not given one.
  std::shared_ptr<OrvelObjectBO> RequireBO();

 private:
  OrvelStatus ReadRecord(const std::string& callName, const std::string& param);

  std::string oid_;
  std::string oidr_;
  std::optional<std::string> otype_;
  std::optional<std::string> preview_;
  std::shared_ptr<OrvelObjectUI> ui_;
  std::shared_ptr<Recordset> record_;
};

}  // namespace orvel
