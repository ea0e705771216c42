#pragma once

#include <memory>
#include <string>

#include "adapters/StandardObjectUIO.h"
#include "orvel/OrvelObjectUIO.h"

namespace orvel {

// The contract every instance adapter (UIOnnnnnnn) shares. It wraps the
// standard instance object (Inner) and forwards to it, except Properties and
// Methods, which a type's adapter refines in DoProperties and DoMethods (the
// small adapters answer both with a zero result), and GetGUID, always empty.
// The public operations run guarded: nothing thrown reaches the host.
class ObjectUIOAdapter : public OrvelObjectUIO,
                         public std::enable_shared_from_this<ObjectUIOAdapter> {
 public:
  ObjectUIOAdapter();
  ~ObjectUIOAdapter() override;

  std::string GetGUID() final { return {}; }
  std::string OID() final;
  void SetOID(const std::string& oid) final;
  std::string OIDR() final;
  void SetOIDR(const std::string& oidr) final;
  std::string OName() final;
  std::string OType() final;
  void SetOType(const std::string& otype) final;
  std::string Preview() final;
  void SetPreview(const std::string& preview) final;
  std::shared_ptr<Recordset> RsFields() final;
  using OrvelObjectUIO::Properties;
  OrvelResult Properties(const std::string& propertyName, std::string& propertyPar) final;
  OrvelResult Methods(const std::string& name, Variant::Array& params) final;
  OrvelStatus Read() final;
  OrvelStatus Save(const std::shared_ptr<Recordset>& rs2,
                   const std::shared_ptr<Recordset>& rs3) final;
  void SetUI(const std::shared_ptr<Object>& ui) final;
  std::shared_ptr<OrvelObjectUI> UI() final;
  std::shared_ptr<OrvelObjectBO> BO() final;
  void CancelUpdate() final;

 protected:
  virtual OrvelResult DoProperties(const std::string& propertyName, std::string& propertyPar);
  virtual OrvelResult DoMethods(const std::string& name, Variant::Array& params);
  // Inner's Read; a type that prepares a new record refines it.
  virtual OrvelStatus DoRead();

  OrvelObjectUIO& Inner() { return *inner_; }
  // The business object, or a refusal naming the record when there is none.
  OrvelObjectBO& RequireBO() { return *inner_->RequireBO(); }

 private:
  std::shared_ptr<StandardObjectUIO> inner_;
};

}  // namespace orvel
