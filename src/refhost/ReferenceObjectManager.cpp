#include "refhost/ReferenceObjectManager.h"

#include "bizlayer/BusinessLayer.h"
#include "bizlayer/TableBusinessObject.h"
#include "host/Convert.h"
#include "host/MemoryRecordset.h"
#include "orvel/OrvelObjectUI.h"
#include "orvel/OrvelObjectUIO.h"
#include "orvel/Recordset.h"
#include "orvel/OrvelModule.h"
#include "orvel/OrvelEnvironment.h"
#include "orvel/OrvelServices.h"
#include "refhost/HostObjectUI.h"
#include "refhost/HostPeriod.h"
#include "refhost/HostTypes.h"
#include "refhost/Prompter.h"

namespace orvel {

std::shared_ptr<OrvelObjectUI> ReferenceObjectManager::GetOrvelObjectUI(const std::string& oid) {
  std::string key = oid.substr(0, 8);
  if (auto it = adapters_.find(key); it != adapters_.end()) return it->second;
  if (key.size() != 8 || key[0] != 'O') return nullptr;
  try {
    std::shared_ptr<OrvelObjectUI> adapter;
    if (const HostType* type = HostTypeOf(key)) {
      adapter = std::make_shared<HostObjectUI>(*type, ui_);
    } else {
      adapter = std::dynamic_pointer_cast<OrvelObjectUI>(module_.CreateObject("UI" + key.substr(1)));
    }
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
  if (name == "OrvelGroupSelect") return GroupSelect(param);
  if (name == "Orvel_GetObjectName") return TypeName(param);
  if (name == "GetOldPeriod" || name == "GetNewPeriod") {
    auto services = services_.lock();
    auto environment = services ? services->Environment() : nullptr;
    if (!environment) return OrvelResult{5, "Nėra naudotojo nustatymų", Variant()};
    if (name == "GetOldPeriod") return OrvelResult{0, "", OldPeriod(*environment, LocalToday())};
    return OrvelResult{0, "", NewPeriod(*environment, prompter_, LocalToday())};
  }
  return layer_.ServiceCall(name, param);
}

// "<routine>(<argument>);;<caption>": the rows of a business object's call
// ("D" + the type's OID + "_" + the call, e.g. "DO0001604_GetFirmBranches"),
// offered by their Preview. The rows come back positioned on the pick, or
// past the last row when nothing was picked.
OrvelResult ReferenceObjectManager::GroupSelect(const std::string& param) {
  const auto open = param.find('(');
  const auto close = param.find(')', open == std::string::npos ? 0 : open);
  const auto captionAt = param.find(";;");
  if (open == std::string::npos || close == std::string::npos || param.size() < 10 ||
      param[0] != 'D') {
    return OrvelResult{5, "Neteisingas pasirinkimo aprašas: " + param, Variant()};
  }
  const std::string routine = param.substr(0, open);
  const std::string argument = param.substr(open + 1, close - open - 1);
  const std::string caption = captionAt == std::string::npos ? "" : param.substr(captionAt + 2);
  auto object = layer_.BusinessObject(routine.substr(1, 8));
  if (!object) return OrvelResult{5, "Nežinoma paslauga: " + routine, Variant()};
  OrvelBoResult rows = object->RecordsetCall(routine, argument, 0);
  auto rs = std::dynamic_pointer_cast<Recordset>(rows.Object);
  if (rows.Number != 0 || !rs) return OrvelResult{rows.Number, rows.Text, Variant()};
  std::vector<std::string> choices;
  for (rs->MoveFirst(); !rs->IsEOF(); rs->MoveNext()) {
    choices.push_back(ConcatText(rs->Fields("Preview").Value()));
  }
  const int picked = choices.empty() ? -1 : prompter_.Choose(caption, choices);
  rs->MoveFirst();
  for (int i = 0; i < picked; ++i) rs->MoveNext();
  if (picked < 0) {
    while (!rs->IsEOF()) rs->MoveNext();
  }
  return OrvelResult{0, "", Variant(rs)};
}

OrvelResult ReferenceObjectManager::TypeName(const std::string& oid) {
  if (const HostType* type = HostTypeOf(oid)) {
    return OrvelResult{0, "", Variant(std::string(type->name))};
  }
  if (auto books = layer_.BusinessObject("O0001600")) {
    try {
      auto rs = books->Query("SELECT Name FROM reference_books WHERE BookOID = ?", {Variant(oid)});
      if (rs->RecordCount() > 0) return OrvelResult{0, "", rs->Fields("Name").Value()};
    } catch (const std::exception&) {
      // An unreadable book list names nothing.
    }
  }
  return OrvelResult{5, "Nežinomas objekto tipas: " + oid, Variant()};
}

}  // namespace orvel
