#pragma once

#include <map>
#include <memory>
#include <string>

#include "orvel/OrvelObjectManager.h"

namespace orvel {

class BusinessLayer;
class OrvelModule;
class OrvelServices;
class Prompter;
class Ui;

// The object manager of the reference host: type adapters come from the
// loaded module by class name ("UI" and the OID's digits), each given its
// OID, its business object from the business layer and the services root;
// host services go to the business layer. The types of the suite's other
// modules (HostTypes) are the host's own adapters over the same layer. The
// service "Orvel_GetObjectName" names a type the module does not: a host
// type, or a reference book by its name in the business layer. Nothing is
// thrown out.
class ReferenceObjectManager : public OrvelObjectManager {
 public:
  ReferenceObjectManager(OrvelModule& module, BusinessLayer& layer, Prompter& prompter)
      : module_(module), layer_(layer), prompter_(prompter) {}

  void SetServices(std::weak_ptr<OrvelServices> services) { services_ = std::move(services); }
  // The front end the host's own cards show in.
  void SetUi(std::shared_ptr<Ui> ui) { ui_ = std::move(ui); }
  // Drops the adapters made so far; before the module is detached.
  void Clear() { adapters_.clear(); }

  std::shared_ptr<OrvelObjectUIO> GetOrvelObject(const std::string& oidr) override;
  void AddToDesktop(const std::string& oidr) override;
  std::shared_ptr<OrvelObjectUI> GetOrvelObjectUI(const std::string& oid) override;
  OrvelResult ExecCommand(const std::string& name, Variant::Array& args) override;
  OrvelResult Call(const std::string& name, const std::string& param) override;

 private:
  // The host's group picker over the rows of a business call.
  OrvelResult GroupSelect(const std::string& param);
  // The display name of a type the host serves; Number 5 for any other.
  OrvelResult TypeName(const std::string& oid);

  OrvelModule& module_;
  BusinessLayer& layer_;
  Prompter& prompter_;
  std::weak_ptr<OrvelServices> services_;
  std::shared_ptr<Ui> ui_;
  std::map<std::string, std::shared_ptr<OrvelObjectUI>> adapters_;
};

}  // namespace orvel
