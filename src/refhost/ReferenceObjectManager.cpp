#include "refhost/ReferenceObjectManager.h"

#include "bizlayer/BusinessLayer.h"
#include "bizlayer/TableBusinessObject.h"
#include "host/Convert.h"
#include "host/OrvelObjectUI.h"
#include "host/OrvelObjectUIO.h"
#include "module/OrvelModule.h"
#include "refhost/Prompter.h"

namespace orvel {

std::shared_ptr<OrvelObjectUI> ReferenceObjectManager::GetOrvelObjectUI(const std::string& oid) {
  std::string key = oid.substr(0, 8);
  if (auto it = adapters_.find(key); it != adapters_.end()) return it->second;
  if (key.size() != 8 || key[0] != 'O') return nullptr;
  try {
    auto adapter =
        std::dynamic_pointer_cast<OrvelObjectUI>(module_.CreateObject("UI" + key.substr(1)));
    if (!adapter) return nullptr;
    adapter->SetOID(key);
    adapter->SetBO(layer_.BusinessObject(key));
    adapter->SetOrvelS(services_.lock());
    adapters_[key] = adapter;
    return adapter;
  } catch (...) {
    return nullptr;
  }
}

std::shared_ptr<OrvelObjectUIO> ReferenceObjectManager::GetOrvelObject(const std::string& oidr) {
  auto adapter = GetOrvelObjectUI(oidr);
  if (!adapter) return nullptr;
  try {
    return adapter->GetOrvelObject(oidr);
  } catch (...) {
    return nullptr;
  }
}

void ReferenceObjectManager::AddToDesktop(const std::string& oidr) {
  if (auto adapter = GetOrvelObjectUI(oidr)) {
    try {
      adapter->AddToDeskTopOrvelObject(oidr);
    } catch (...) {
    }
  }
}

OrvelResult ReferenceObjectManager::ExecCommand(const std::string& name, Variant::Array& args) {
  if (name == "ShowHelp") {
    std::string line = "Pagalba:";
    for (const auto& arg : args) line += " " + ConcatText(arg);
    prompter_.Say(line);
    return OrvelResult{};
  }
  return OrvelResult{5, "Nežinoma komanda: " + name, Variant()};
}

OrvelResult ReferenceObjectManager::Call(const std::string& name, const std::string& param) {
  return layer_.ServiceCall(name, param);
}

}  // namespace orvel
