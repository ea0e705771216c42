#include "testhost/TestObjectManager.h"

#include <exception>

#include "host/Identifiers.h"
#include "orvel/OrvelObjectUI.h"
#include "orvel/OrvelObjectUIO.h"
#include "orvel/OrvelServices.h"
#include "orvel/RuntimeError.h"
#include "testhost/CallLog.h"
#include "testhost/MemoryBusinessObject.h"

namespace orvel {

namespace {

// Runs a script, turning anything it throws into a Number and Text.
template <class Body>
OrvelResult Guarded(const std::string& name, Body&& body) {
  try {
    return body();
  } catch (const RuntimeError& e) {
    return OrvelResult{e.Number(), name + ": " + e.Text(), Variant()};
  } catch (const std::exception& e) {
    return OrvelResult{RuntimeError::kInvalidCall, name + ": " + e.what(), Variant()};
  } catch (...) {
    return OrvelResult{RuntimeError::kInvalidCall, name + ": unknown failure", Variant()};
  }
}

std::string CurrentFailure() {
  try {
    throw;
  } catch (const RuntimeError& e) {
    return std::to_string(e.Number()) + " " + e.Text();
  } catch (const std::exception& e) {
    return e.what();
  } catch (...) {
    return "unknown failure";
  }
}

}  // namespace

TestObjectManager::TestObjectManager(std::shared_ptr<CallLog> log) : log_(std::move(log)) {}

std::shared_ptr<OrvelObjectUI> TestObjectManager::CachedAdapter(const std::string& oid) const {
  auto it = adapters_.find(oid);
  return it == adapters_.end() ? nullptr : it->second;
}

std::shared_ptr<MemoryBusinessObject> TestObjectManager::BusinessObject(const std::string& oid) {
  auto& bo = businessObjects_[oid];
  if (!bo) bo = std::make_shared<MemoryBusinessObject>(oid, log_);
  return bo;
}

void TestObjectManager::ReplyToCall(const std::string& name, OrvelResult reply) {
  calls_[name] = [reply](const std::string&) { return reply; };
}

void TestObjectManager::OnCall(const std::string& name, CallHandler handler) {
  calls_[name] = std::move(handler);
}

void TestObjectManager::ReplyToCommand(const std::string& name, OrvelResult reply) {
  commands_[name] = [reply](Variant::Array&) { return reply; };
}

void TestObjectManager::OnCommand(const std::string& name, CommandHandler handler) {
  commands_[name] = std::move(handler);
}

std::shared_ptr<OrvelObjectUIO> TestObjectManager::GetOrvelObject(const std::string& oidr) {
  auto adapter = GetOrvelObjectUI(OidOf(oidr));
  if (!adapter) return nullptr;
  try {
    return adapter->GetOrvelObject(oidr);
  } catch (...) {
    log_->Add(Channel::Host, "Failure", {"GetOrvelObject", oidr, CurrentFailure()});
    return nullptr;
  }
}

void TestObjectManager::AddToDesktop(const std::string& oidr) {
  log_->Add(Channel::Host, "AddToDesktop", {oidr});
}

std::shared_ptr<OrvelObjectUI> TestObjectManager::GetOrvelObjectUI(const std::string& oid) {
  std::string key = OidOf(oid);
  if (auto cached = CachedAdapter(key)) return cached;
  if (!source_ || key.empty()) return nullptr;
  std::shared_ptr<OrvelObjectUI> adapter;
  try {
    adapter = source_(key);
    if (!adapter) return nullptr;
    adapter->SetOID(key);
    adapter->SetBO(BusinessObject(key));
    adapter->SetOrvelS(services_.lock());
  } catch (...) {
    log_->Add(Channel::Host, "Failure", {"GetOrvelObjectUI", key, CurrentFailure()});
    return nullptr;
  }
  adapters_[key] = adapter;
  return adapter;
}

OrvelResult TestObjectManager::ExecCommand(const std::string& name, Variant::Array& args) {
  std::vector<std::string> texts{name};
  for (const auto& arg : args) texts.push_back(LogText(arg));
  log_->Add(Channel::Host, "ExecCommand", std::move(texts), args);
  auto script = commands_.find(name);
  if (script == commands_.end()) return OrvelResult{};
  return Guarded(name, [&] { return script->second(args); });
}

OrvelResult TestObjectManager::Call(const std::string& name, const std::string& param) {
  log_->Add(Channel::Host, "Call", {name, param});
  auto script = calls_.find(name);
  if (script == calls_.end()) return OrvelResult{};
  return Guarded(name, [&] { return script->second(param); });
}

}  // namespace orvel
