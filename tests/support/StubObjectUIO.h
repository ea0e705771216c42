#pragma once

#include <memory>
#include <string>

#include "orvel/OrvelObjectUIO.h"

namespace orvel {

// An instance adapter that only carries an OIDR: enough for the host's
// managers, which key windows by it.
class StubObjectUIO : public OrvelObjectUIO {
 public:
  explicit StubObjectUIO(std::string oidr = "") : oidr_(std::move(oidr)) {}

  std::string GetGUID() override { return "stub"; }
  std::string OID() override { return oidr_.substr(0, 8); }
  void SetOID(const std::string&) override {}
  std::string OIDR() override { return oidr_; }
  void SetOIDR(const std::string& oidr) override { oidr_ = oidr; }
  std::string OName() override { return "stub"; }
  std::string OType() override { return ""; }
  void SetOType(const std::string&) override {}
  std::string Preview() override { return ""; }
  void SetPreview(const std::string&) override {}
  std::shared_ptr<Recordset> RsFields() override { return nullptr; }
  using OrvelObjectUIO::Properties;
  OrvelResult Properties(const std::string&, std::string&) override { return {}; }
  OrvelResult Methods(const std::string&, Variant::Array&) override { return {}; }
  OrvelStatus Read() override { return {}; }
  OrvelStatus Save(const std::shared_ptr<Recordset>&, const std::shared_ptr<Recordset>&) override {
    return {};
  }
  void SetUI(const std::shared_ptr<Object>&) override {}
  std::shared_ptr<OrvelObjectUI> UI() override { return nullptr; }
  std::shared_ptr<OrvelObjectBO> BO() override { return nullptr; }
  void CancelUpdate() override {}

 private:
  std::string oidr_;
};

}  // namespace orvel
