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

#include "host/MemoryRecordset.h"
#include "host/OrvelHeader.h"
#include "host/OrvelHeaderSecurity.h"
#include "host/OrvelObjectUI.h"
#include "host/OrvelObjectUIO.h"
#include "host/Variant.h"
#include "module/OrvelModule.h"
#include "testhost/CallLog.h"
#include "testhost/MemoryBusinessObject.h"
#include "testhost/ScriptedUi.h"
#include "testhost/TestHost.h"
#include "testhost/TestHostClasses.h"
#include "testhost/TestObjectManager.h"

namespace {

using orvel::Channel;
using orvel::Variant;

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

void Section(const std::string& title) { std::cout << "\n# " << title << "\n"; }

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

void SeedMeasures(orvel::TestHost& host) {
  auto& table = host.BusinessObject("O0000400")->Table();
  table.SetFields({"ID", "Name", "Code"});
  table.Seed({
      {{"Name", Variant("vienetas")}, {"Code", Variant("vnt.")}},
      {{"Name", Variant("kilogramas")}, {"Code", Variant("kg")}},
      {{"Name", Variant("metras")}, {"Code", Variant("m")}},
  });
}

void PrintList(const std::shared_ptr<orvel::Recordset>& rs) {
  if (!rs) return;
  for (rs->MoveFirst(); !rs->IsEOF(); rs->MoveNext()) {
    std::cout << "  " << orvel::LogText(rs->Fields("OIDR").Value()) << " "
              << orvel::LogText(rs->Fields("Preview").Value()) << "\n";
  }
}

int WalkMeasures(orvel::TestHost& host) {
  auto adapter = host.ObjectManager()->GetOrvelObjectUI("O0000400");
  if (!adapter) {
    std::cout << "The module gave no adapter for O0000400\n";
    return 1;
  }

  Section("O0000400 " + adapter->OName() + ": the list");
  PrintList(adapter->GetOrvelObjectList("O0000400", "", ""));

  Section("O0000400: read, edit and save O00004002");
  auto object = adapter->GetOrvelObject("O00004002");
  if (!object) return 1;
  std::cout << "  Preview: " << object->Preview() << "\n";
  object->Fields("Name").SetValue(Variant("kilogramai"));
  auto status = object->Save(nullptr, nullptr);
  std::cout << "  Save: " << status.Number << ", Preview: " << object->Preview() << "\n";

  Section("O0000400: a new record");
  auto fresh = adapter->GetOrvelObject("");
  if (!fresh) return 1;
  fresh->Fields("Name").SetValue(Variant("litras"));
  fresh->Fields("Code").SetValue(Variant("l"));
  status = fresh->Save(nullptr, nullptr);
  std::cout << "  Save: " << status.Number << ", OIDR: " << fresh->OIDR() << "\n";

  Section("O0000400: a record that does not exist");
  bool found = adapter->GetOrvelObject("O00004009") != nullptr;
  std::cout << "  GetOrvelObject: " << (found ? "an object" : "Nothing") << "\n";
  return status.Number == 0 ? 0 : 1;
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
    host.Log().SetEcho(&std::cout, {Channel::Registry}, /*withChannel=*/false);
    module->Attach(host.HostClasses(), host.Ui());
    host.SetAdapterSource([module](const std::string& oid) {
      return std::dynamic_pointer_cast<orvel::OrvelObjectUI>(
          module->CreateObject("UI" + oid.substr(1)));
    });

    Register(*module);
    ListRights(*module);

    SeedMeasures(host);
    host.Log().SetEcho(&std::cout, {Channel::Business, Channel::Window, Channel::Message},
                       /*withChannel=*/false);
    result = WalkMeasures(host);
    host.Log().SetEcho(nullptr);
    module->Detach();
  }
  return result;
}
