#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>

#include "orvel/OrvelObjectManager.h"

namespace orvel {

class CallLog;
class MemoryBusinessObject;
class OrvelServices;

// The object manager of the test host. Type adapters come from a source
// function (the module's class factory in tests, the loaded library's in the
// demo); the first GetOrvelObjectUI of an OID creates the adapter, gives it
// its OID, its business object (this manager's MemoryBusinessObject of the
// OID) and the services, and keeps it. AddToDesktop, ExecCommand and Call are
// logged in the Host channel; Call and ExecCommand answer from per-name
// scripts, Number 0 and an empty Value by default. An adapter that throws
// is logged as "Failure <call> <oid or oidr> <text>" and answers null.
class TestObjectManager : public OrvelObjectManager {
 public:
  using AdapterSource = std::function<std::shared_ptr<OrvelObjectUI>(const std::string& oid)>;
  using CallHandler = std::function<OrvelResult(const std::string& param)>;
  using CommandHandler = std::function<OrvelResult(Variant::Array& args)>;

  explicit TestObjectManager(std::shared_ptr<CallLog> log);

  // The services handed to each new adapter; held weakly, as they hold this
  // manager.
  void SetServices(const std::shared_ptr<OrvelServices>& services) { services_ = services; }
  // Replaces the source; adapters already made stay until ClearAdapters.
  void SetAdapterSource(AdapterSource source) { source_ = std::move(source); }
  // Forgets the adapters made so far (they hold the services: TestHost
  // clears them to break that cycle).
  void ClearAdapters() { adapters_.clear(); }
  // The adapter made for an OID; null when none was made yet.
  std::shared_ptr<OrvelObjectUI> CachedAdapter(const std::string& oid) const;

  // The business object of a type, made on first use. Never null.
  std::shared_ptr<MemoryBusinessObject> BusinessObject(const std::string& oid);

  void ReplyToCall(const std::string& name, OrvelResult reply);
  void OnCall(const std::string& name, CallHandler handler);
  void ReplyToCommand(const std::string& name, OrvelResult reply);
  void OnCommand(const std::string& name, CommandHandler handler);

  // OrvelObjectManager
  // Goes to the adapter of the OIDR's first eight characters; null when
  // there is none or it cannot read the object.
  std::shared_ptr<OrvelObjectUIO> GetOrvelObject(const std::string& oidr) override;
  // Logs "AddToDesktop <oidr>".
  void AddToDesktop(const std::string& oidr) override;
  // Null when the source has no adapter for the OID (or fails).
  std::shared_ptr<OrvelObjectUI> GetOrvelObjectUI(const std::string& oid) override;
  // Logs "ExecCommand <name> <args...>".
  OrvelResult ExecCommand(const std::string& name, Variant::Array& args) override;
  // Logs "Call <name> <param>".
  OrvelResult Call(const std::string& name, const std::string& param) override;

 private:
  std::shared_ptr<CallLog> log_;
  std::weak_ptr<OrvelServices> services_;
  AdapterSource source_;
  std::map<std::string, std::shared_ptr<OrvelObjectUI>> adapters_;
  std::map<std::string, std::shared_ptr<MemoryBusinessObject>> businessObjects_;
  std::map<std::string, CallHandler> calls_;
  std::map<std::string, CommandHandler> commands_;
};

}  // namespace orvel
