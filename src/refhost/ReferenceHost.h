#pragma once

#include <memory>
#include <string>

namespace orvel {

class BusinessLayer;
class ModuleLibrary;
class OrvelModule;
class OrvelServices;
class Prompter;
class ReferenceHostClasses;
class ReferenceObjectManager;
class Database;
class HostUi;
class WindowRegistry;
struct RegisteredCatalogue;

// The reference host, put together: the database with its business layer,
// the module loaded from its shared library, lent the host's classes and Ui,
// registered through DllInicialize, and the services root every adapter
// gets. Start reports what failed in words; after a good start the parts
// below are all there. Shutting down closes the windows, drops the adapters
// and detaches the module before its library is closed.
class ReferenceHost {
 public:
  struct Options {
    std::string databasePath;
    std::string modulePath;
    // On a file, the bookkeeper ("admin" when not given); on a server the
    // bookkeeper is the login, and another name is refused.
    std::string userName;
    std::string appPath;
  };

  // Pickers and printouts ask through `prompter`; the module's windows talk
  // to `ui`, the terminal's (over the same prompter) when none is given.
  explicit ReferenceHost(Prompter& prompter, std::shared_ptr<HostUi> ui = nullptr);
  ~ReferenceHost();
  ReferenceHost(const ReferenceHost&) = delete;
  ReferenceHost& operator=(const ReferenceHost&) = delete;

  // False, with the reason in `error`, when the database, the module, the
  // user or the registration failed.
  bool Start(const Options& options, std::string& error);
  // The bookkeeper the host runs for, after a good start.
  const std::string& UserName() const { return userName_; }

  OrvelModule& Module() { return *module_; }
  BusinessLayer& Layer() { return *layer_; }
  orvel::Database& Database() { return *db_; }
  std::shared_ptr<OrvelServices> Services() { return services_; }
  ReferenceObjectManager& Objects() { return *objects_; }
  WindowRegistry& Windows() { return *windows_; }
  RegisteredCatalogue& Catalogue() { return *catalogue_; }
  HostUi& Ui() { return *ui_; }
  ReferenceHostClasses& HostClasses() { return *hostClasses_; }

 private:
  void Shutdown();

  Prompter& prompter_;
  // Declared first so that it is closed last.
  std::unique_ptr<ModuleLibrary> library_;
  OrvelModule* module_ = nullptr;
  std::shared_ptr<orvel::Database> db_;
  std::string userName_;
  std::unique_ptr<BusinessLayer> layer_;
  std::shared_ptr<RegisteredCatalogue> catalogue_;
  std::shared_ptr<HostUi> ui_;
  std::shared_ptr<ReferenceHostClasses> hostClasses_;
  std::shared_ptr<ReferenceObjectManager> objects_;
  std::shared_ptr<WindowRegistry> windows_;
  std::shared_ptr<OrvelServices> services_;
};

}  // namespace orvel
