#pragma once

#include <memory>
#include <string>
#include <vector>

#include "orvel/OrvelObjectBO.h"
#include "orvel/OrvelObjectUI.h"
#include "support/StubObjectUIO.h"

namespace orvel {

// A type adapter that keeps what the host gave it and hands out stub
// instances for the OIDRs it was asked for.
class StubObjectUI : public OrvelObjectUI {
 public:
  std::string OID() override { return oid; }
  void SetOID(const std::string& value) override { oid = value; }
  std::string OName() override { return "stub"; }
  std::optional<OrvelMenuItems> GetMenu(const std::string&, const std::string&,
                                        const std::string&) override {
    return std::nullopt;
  }
  OrvelMenuResult ClickMenu(const std::string&, const std::string&, const std::string&,
                            const std::string&) override {
    return {};
  }
  bool DragOK(const std::string&, const std::string&, const std::string&) override { return false; }
  bool DropOK(const std::string&) override { return false; }
  std::shared_ptr<Recordset> GetOrvelObjectList(const std::string&, const std::string&,
                                                const std::string&) override {
    return nullptr;
  }
  bool AddToDeskTopOrvelObject(const std::string&) override { return false; }
  std::shared_ptr<OrvelObjectUIO> GetOrvelObject(const std::string& oidr) override {
    asked.push_back(oidr);
    return std::make_shared<StubObjectUIO>(oidr);
  }
  std::shared_ptr<IconsTable> GetIconsTable() override { return nullptr; }
  int32_t DeleteOrvelObject(const std::string&) override { return 0; }
  void SetOrvelS(const std::shared_ptr<OrvelServices>& value) override { services = value; }
  void SetBO(const std::shared_ptr<Object>& value) override {
    bo = std::dynamic_pointer_cast<OrvelObjectBO>(value);
  }
  std::shared_ptr<OrvelObjectBO> BO() override { return bo; }

  std::string oid;
  std::shared_ptr<OrvelServices> services;
  std::shared_ptr<OrvelObjectBO> bo;
  std::vector<std::string> asked;
};

}  // namespace orvel
