// A minimal host of the OrvelCommonUI module: it loads the module, registers
// its catalogues, lists the bank type's menu, opens a bank's card and writes
// the bank through it, over a business object of its own (BankOffice).
//
//   minimal-host [path of libOrvelCommonUI.so]
#include <dlfcn.h>

#include <iostream>
#include <map>
#include <memory>
#include <string>

#include "BankOffice.h"
#include "orvel/OrvelComponentRegistry.h"
#include "orvel/OrvelEnvironment.h"
#include "orvel/OrvelHeader.h"
#include "orvel/OrvelHostClasses.h"
#include "orvel/OrvelModule.h"
#include "orvel/OrvelObjectManager.h"
#include "orvel/OrvelObjectUI.h"
#include "orvel/OrvelObjectUIO.h"
#include "orvel/OrvelRights.h"
#include "orvel/OrvelServices.h"
#include "orvel/OrvelSession.h"
#include "orvel/OrvelUser.h"
#include "orvel/OrvelWindow.h"
#include "orvel/OrvelWindowManager.h"
#include "orvel/Ui.h"

using namespace orvel;

namespace {

// The platform: no screen, every box answered OK.
class QuietUi : public Ui {
 public:
  const Locale& CurrentLocale() const override { return locale_; }
  int32_t MsgBox(const std::string& prompt, int32_t, const std::string&) override {
    std::cout << "box: " << prompt << "\n";
    return vbOK;
  }
  void SetMousePointer(int32_t pointer) override { pointer_ = pointer; }
  int32_t GetMousePointer() const override { return pointer_; }
  void DoEvents() override {}
  int32_t ScreenWidth() const override { return 1920 * 15; }
  Date Today() const override { return Date{46352.0}; }  // 2026-11-26
  void ShowModal(Form&) override {}
  void PopupMenu(Menu&) override {}
  std::shared_ptr<OrvelGrid> NewOrvelGrid() override { return nullptr; }

 private:
  Locale locale_ = Locale::Lithuanian();
  int32_t pointer_ = vbDefault;
};

// Registration: what the module registers is printed.
class Component : public OrvelComponent {
 public:
  void SetOType(const std::string&) override {}
};

class PrintingGroup : public OrvelComponentGroup {
 public:
  std::shared_ptr<OrvelComponent> AddComponent(const std::string& otype, const std::string& caption,
                                               const std::string& rightKey) override {
    std::cout << "  component " << otype << " " << caption << " (" << rightKey << ")\n";
    return std::make_shared<Component>();
  }
};

class PrintingRegistry : public OrvelComponentRegistry {
 public:
  std::shared_ptr<OrvelComponentGroup> AddGroup(const std::string& key, const std::string&,
                                                const std::string& caption,
                                                const std::string&) override {
    std::cout << "group " << key << " " << caption << "\n";
    return std::make_shared<PrintingGroup>();
  }
  void AddObjectType(const std::string& module, const std::string& otype,
                     const std::string& caption) override {
    std::cout << "type " << module << " " << otype << " " << caption << "\n";
  }
  void AddIcon(const std::string&, const std::shared_ptr<Picture>&) override {}
  void AddObjectIcon(const std::string&, const std::shared_ptr<Picture>&) override {}
};

class Classes : public OrvelHostClasses {
 public:
  std::shared_ptr<OrvelComponentRegistry> NewComponentRegistry() override {
    return std::make_shared<PrintingRegistry>();
  }
  std::shared_ptr<OrvelGroupSelect> NewGroupSelect() override { return nullptr; }
  std::shared_ptr<OrvelObjectSelect> NewObjectSelect() override { return nullptr; }
  std::shared_ptr<OrvelPrintDoc> NewPrintDoc() override { return nullptr; }
};

// The services root: every right granted, settings kept in memory, windows
// printed when the module shows one.
class Services : public OrvelServices,
                 public OrvelRights,
                 public OrvelEnvironment,
                 public OrvelSession,
                 public OrvelUser,
                 public OrvelObjectManager,
                 public OrvelWindowManager,
                 public std::enable_shared_from_this<Services> {
 public:
  std::shared_ptr<OrvelObjectUI> banks;

  std::shared_ptr<Object> MainForm() override { return nullptr; }
  std::shared_ptr<OrvelObjectManager> ObjectManager() override { return shared_from_this(); }
  std::shared_ptr<OrvelWindowManager> WindowManager() override { return shared_from_this(); }
  std::shared_ptr<OrvelRights> Rights() override { return shared_from_this(); }
  std::shared_ptr<OrvelEnvironment> Environment() override { return shared_from_this(); }

  bool CanRead(const std::string&, int32_t) override { return true; }
  bool CanUpdate(const std::string&, int32_t) override { return true; }
  bool CanDelete(const std::string&, int32_t) override { return true; }
  bool CanInsert(const std::string&, int32_t) override { return true; }
  bool Allowed(const std::string&, int32_t) override { return true; }
  bool SetRight(const std::string&, const std::string&, int32_t) override { return true; }

  void SaveUserSetting(const std::string& section, const std::string& key,
                       const std::string& value) override {
    settings_[section + "/" + key] = value;
  }
  std::string GetUserSetting(const std::string& section, const std::string& key,
                             const std::string& defaultValue) override {
    auto found = settings_.find(section + "/" + key);
    return found == settings_.end() ? defaultValue : found->second;
  }
  std::shared_ptr<OrvelSession> Session() override { return shared_from_this(); }
  std::shared_ptr<OrvelUser> User() override { return shared_from_this(); }

  std::string AppPath() override { return "."; }
  std::string AppTitle() override { return "Minimal host"; }
  int16_t SessionNumber() override { return 1; }
  std::shared_ptr<Recordset> OwnFirm() override { return nullptr; }
  std::shared_ptr<Object> SettingObject(const std::string&) override { return nullptr; }

  std::string Name() override { return "admin"; }
  std::string Id() override { return "1"; }
  std::shared_ptr<Recordset> Rs() override { return office::MakeRecordset({{{"ID", 1}}}); }

  std::shared_ptr<OrvelObjectUIO> GetOrvelObject(const std::string& oidr) override {
    return banks && oidr.rfind("O0000300", 0) == 0 ? banks->GetOrvelObject(oidr) : nullptr;
  }
  void AddToDesktop(const std::string&) override {}
  std::shared_ptr<OrvelObjectUI> GetOrvelObjectUI(const std::string& oid) override {
    return oid == "O0000300" ? banks : nullptr;
  }
  OrvelResult ExecCommand(const std::string& name, Variant::Array&) override {
    return {1, "Nežinoma komanda " + name, {}};
  }
  OrvelResult Call(const std::string& name, const std::string&) override {
    return {1, "Nežinomas kvietimas " + name, {}};
  }

  bool IsOpen(const std::string& oidr) override { return open_.count(oidr) > 0; }
  void ShowWindow(const std::shared_ptr<OrvelWindow>& window) override {
    auto object = window ? window->OrvelObjectUIO() : nullptr;
    if (object) open_[object->OIDR()] = window;
  }
  void ObjectSaved(const std::string& oidr) override { std::cout << "saved " << oidr << "\n"; }
  bool QueryRemove(const std::string&, bool) override { return false; }
  void Rekey(const std::string&, const std::shared_ptr<OrvelWindow>&) override {}
  void RemoveWindow(const std::string& oidr, bool) override { open_.erase(oidr); }
  void CloseWindow(const std::shared_ptr<OrvelWindow>& window) override {
    if (window) window->Unload();
  }

 private:
  std::map<std::string, std::string> settings_;
  std::map<std::string, std::shared_ptr<OrvelWindow>> open_;
};

int Fail(const std::string& what) {
  std::cerr << "minimal-host: " << what << "\n";
  return 1;
}

}  // namespace

int main(int argc, char** argv) {
  const std::string path = argc > 1 ? argv[1] : ORVEL_MODULE_PATH;
  void* library = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (!library) return Fail(dlerror());
  auto entry = reinterpret_cast<OrvelModule* (*)(int)>(dlsym(library, ORVEL_MODULE_ENTRY_POINT));
  auto version = reinterpret_cast<const char* (*)()>(dlsym(library, ORVEL_MODULE_VERSION_POINT));
  OrvelModule* module = entry ? entry(OrvelModule::kAbiVersion) : nullptr;
  if (!module) {
    return Fail(path + ": module version " + (version ? version() : "unknown") +
                " does not fit this host, built for " + kVersion);
  }
  std::cout << "module " << version() << ", host " << kVersion << "\n";
  {
    auto services = std::make_shared<Services>();
    module->Attach(std::make_shared<Classes>(), std::make_shared<QuietUi>());

    auto header = std::dynamic_pointer_cast<OrvelHeader>(module->CreateObject("DLLHeader"));
    if (!header) return Fail("no DLLHeader");
    if (auto status = header->DllInicialize(); status.Number != 0) return Fail(status.Text);

    // The bank type: its adapter over our business object.
    auto banks = std::dynamic_pointer_cast<OrvelObjectUI>(module->CreateObject("UI0000300"));
    if (!banks) return Fail("no UI0000300");
    services->banks = banks;
    banks->SetOID("O0000300");
    banks->SetBO(std::make_shared<office::BankOffice>());
    banks->SetOrvelS(services);
    std::cout << "menu of " << banks->OName() << ":";
    if (auto menu = banks->GetMenu("O0000300", "O0000300", "")) {
      for (auto& item : *menu) std::cout << " [" << item.Caption << "]";
    }
    std::cout << "\n";

    // The first bank's card, from its menu entry "Padėti ant darbo stalo".
    OrvelMenuResult opened = banks->ClickMenu("O00003001", "O0000300", "0", "");
    auto card = opened.Value.ObjectAs<OrvelWindow>();
    if (opened.Action != OrvelMenuResult::kShowWindow || !card) return Fail("no bank card");
    auto bank = card->OrvelObjectUIO();
    std::cout << "card " << bank->OIDR() << ": " << bank->Fields("Name").Value().String() << "\n";

    // Written through the card's object, then read again from the office.
    bank->Fields("Name").SetValue(Variant("AB Pirmasis bankas Vilniuje"));
    if (auto status = bank->Save(nullptr, nullptr); status.Number != 0) return Fail(status.Text);
    auto reread = banks->GetOrvelObject("O00003001");
    std::cout << "written " << reread->OIDR() << ": " << reread->Fields("Name").Value().String()
              << "\n";
    card->Unload();
    module->Detach();
  }
  dlclose(library);
  return 0;
}
