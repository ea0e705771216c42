#pragma once

#include <map>
#include <memory>
#include <string>

#include "host/OrvelObjectManager.h"

namespace orvel {

class BusinessLayer;
class OrvelModule;
class OrvelServices;
class Prompter;

// The object manager of the reference host: type adapters come from the
// loaded module by class name ("UI" and the OID's digits), each given its
// OID, its business object from the business layer and the services root;
// host services go to the business layer. Nothing is thrown out.
class ReferenceObjectManager : public OrvelObjectManager {
 public:
  ReferenceObjectManager(OrvelModule& module, BusinessLayer& layer, Prompter& prompter)
      : module_(module), layer_(layer), prompter_(prompter) {}

  void SetServices(std::weak_ptr<OrvelServices> services) { services_ = std::move(services); }
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

  OrvelModule& module_;
  BusinessLayer& layer_;
  Prompter& prompter_;
  std::weak_ptr<OrvelServices> services_;
  std::map<std::string, std::shared_ptr<OrvelObjectUI>> adapters_;
};

}  // namespace orvel
