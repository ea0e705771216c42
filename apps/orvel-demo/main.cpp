// orvel-demo: the module's walk-through against the in-memory host.
//
// Loads libOrvelCommonUI.so by path through its C entry point, registers it,
// lists its rights, then reads, edits, saves and creates records through a
// small adapter pair. Every call the module makes to the host is printed as it
// happens, one per line: the call's name, then its arguments.
#include <dlfcn.h>

#include <cstdio>
#include <iostream>
#include <memory>
#include <string>

#include "DemoSupport.h"
#include "Walks.h"
#include "orvel/OrvelHeader.h"
#include "orvel/OrvelHeaderSecurity.h"
#include "orvel/OrvelObjectUI.h"
#include "orvel/OrvelModule.h"
#include "testhost/CallLog.h"
#include "testhost/ScriptedUi.h"
#include "testhost/TestHost.h"
#include "testhost/TestHostClasses.h"
#include "testhost/TestObjectManager.h"

namespace {

using demo::Section;
using orvel::Channel;

// The loaded library; closed last, after every object it made is gone.
class Library {
 public:
  explicit Library(const std::string& path)
      : handle_(dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL)) {}
  ~Library() {
    if (handle_) dlclose(handle_);
  }
  Library(const Library&) = delete;
  Library& operator=(const Library&) = delete;

  explicit operator bool() const { return handle_ != nullptr; }
  orvel::OrvelModule* Module() const {
    using EntryPoint = orvel::OrvelModule* (*)(int);
    auto entry = reinterpret_cast<EntryPoint>(dlsym(handle_, ORVEL_MODULE_ENTRY_POINT));
    return entry ? entry(orvel::OrvelModule::kAbiVersion) : nullptr;
  }

 private:
  void* handle_;
};

void Register(orvel::OrvelModule& module) {
  Section("DllInicialize");
  auto header = std::dynamic_pointer_cast<orvel::OrvelHeader>(module.CreateObject("DLLHeader"));
  auto status = header ? header->DllInicialize() : orvel::OrvelStatus{1, "no DLLHeader"};
  if (status.Number != 0) std::cout << "Klaida " << status.Number << ": " << status.Text << "\n";
}

void ListRights(orvel::OrvelModule& module) {
  Section("GetComponentList (Parent|Key|Caption|Kind)");
  auto security =
      std::dynamic_pointer_cast<orvel::OrvelHeaderSecurity>(module.CreateObject("SecurityHeader"));
  if (!security) return;
  for (const auto& row : security->GetComponentList()) {
    std::cout << row.Parent << "|" << row.Key << "|" << row.Caption << "|" << row.Kind << "\n";
  }
}

}  // namespace

int main(int argc, char** argv) {
  std::string path = ORVEL_DEFAULT_MODULE;
  for (int i = 1; i < argc; ++i) {
    std::string arg = argv[i];
    if (arg == "--module" && i + 1 < argc) {
      path = argv[++i];
    } else {
      std::cerr << "usage: orvel-demo [--module path/to/libOrvelCommonUI.so]\n";
      return 2;
    }
  }

  Library library(path);
  if (!library) {
    std::cerr << "orvel-demo: cannot load " << path << ": " << dlerror() << "\n";
    return 1;
  }
  orvel::OrvelModule* module = library.Module();
  if (!module) {
    std::cerr << "orvel-demo: " << path << " has no compatible " << ORVEL_MODULE_ENTRY_POINT
              << "\n";
    return 1;
  }

  int result = 0;
  {
    orvel::TestHost host;
    // Every call the module makes to the host, of every kind: registration,
    // business calls, windows, boxes, rights, settings, and the object
    // manager's own services (Call, ExecCommand, ...).
    host.Log().SetEcho(&std::cout, {}, /*withChannel=*/false);
    module->Attach(host.HostClasses(), host.Ui());
    host.SetAdapterSource([module](const std::string& oid) {
      return std::dynamic_pointer_cast<orvel::OrvelObjectUI>(
          module->CreateObject("UI" + oid.substr(1)));
    });

    demo::SetModule(module);
    Register(*module);
    ListRights(*module);

    for (auto walk :
         {demo::WalkMeasures, demo::WalkBank, demo::WalkBankList, demo::WalkFirms,
          demo::WalkFirmCard, demo::WalkGoods, demo::WalkCurrencies, demo::WalkReferenceBooks,
          demo::WalkFirmDetails,
          demo::WalkDepartments,
          demo::WalkGoodsCard}) {
      result |= walk(host);
    }
    host.Log().SetEcho(nullptr);
    module->Detach();
  }
  return result;
}
