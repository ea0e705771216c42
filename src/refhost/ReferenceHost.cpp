#include "refhost/ReferenceHost.h"

#include "bizlayer/PgDatabase.h"

#include "bizlayer/BusinessLayer.h"
#include "bizlayer/ReferenceDatabase.h"
#include "bizlayer/Database.h"
#include "orvel/OrvelHeader.h"
#include "hostkit/ComponentRegistry.h"
#include "hostkit/WindowRegistry.h"
#include "orvel/OrvelModule.h"
#include "refhost/ModuleLibrary.h"
#include "refhost/ReferenceEnvironment.h"
#include "refhost/ReferenceHostClasses.h"
#include "refhost/ReferenceObjectManager.h"
#include "refhost/ReferenceRights.h"
#include "refhost/ReferenceServices.h"
#include "refhost/ReferenceSession.h"
#include "refhost/ReferenceUser.h"
#include "refhost/TerminalUi.h"

namespace orvel {

ReferenceHost::ReferenceHost(Prompter& prompter, std::shared_ptr<HostUi> ui)
    : prompter_(prompter), ui_(std::move(ui)) {
  if (!ui_) ui_ = std::make_shared<TerminalUi>(prompter_);
}

ReferenceHost::~ReferenceHost() { Shutdown(); }

bool ReferenceHost::Start(const Options& options, std::string& error) {
  try {
    db_ = ReferenceDatabase::Open(options.databasePath);
  } catch (const std::exception& e) {
    error = std::string("Duomenų bazė neatidaryta: ") + e.what();
    return false;
  }
  layer_ = std::make_unique<BusinessLayer>(db_);

  library_ = std::make_unique<ModuleLibrary>(options.modulePath);
  module_ = library_->Module();
  if (!module_) {
    error = "Modulis neįkeltas: " + library_->Error();
    return false;
  }

  userName_ = options.userName.empty() ? "admin" : options.userName;
  if (auto* server = dynamic_cast<PgDatabase*>(db_.get())) {
    const std::string login = server->User();
    if (!options.userName.empty() && options.userName != login) {
      error = "Prie serverio prisijungta kaip " + login + ": naudotojo " + options.userName +
              " nurodyti negalima";
      return false;
    }
    userName_ = login;
  }
  std::shared_ptr<ReferenceUser> user;
  try {
    user = std::make_shared<ReferenceUser>(*db_, userName_);
  } catch (const std::exception& e) {
    error = e.what();
    return false;
  }
  layer_->SetUserName(user->Name());

  catalogue_ = std::make_shared<RegisteredCatalogue>();
  hostClasses_ = std::make_shared<ReferenceHostClasses>(prompter_, catalogue_);
  objects_ = std::make_shared<ReferenceObjectManager>(*module_, *layer_, prompter_);
  windows_ = std::make_shared<WindowRegistry>();
  auto session = std::make_shared<ReferenceSession>(*db_, options.appPath);
  auto environment = std::make_shared<ReferenceEnvironment>(*db_, user->UserId(), session, user);
  auto rights = std::make_shared<ReferenceRights>(*db_, user->UserId());
  services_ = std::make_shared<ReferenceServices>(std::make_shared<ReferenceMainForm>(catalogue_),
                                                  objects_, windows_, rights, environment);
  objects_->SetServices(services_);
  objects_->SetUi(ui_);
  hostClasses_->SetObjectManager(objects_);

  module_->Attach(hostClasses_, ui_);
  auto header = std::dynamic_pointer_cast<OrvelHeader>(module_->CreateObject("DLLHeader"));
  if (!header) {
    error = "Modulis neturi DLLHeader";
    return false;
  }
  OrvelStatus status = header->DllInicialize();
  if (status.Number != 0) {
    error = "Modulio registracija nepavyko: " + status.Text;
    return false;
  }
  return true;
}

void ReferenceHost::Shutdown() {
  if (windows_) windows_->CloseAll();
  if (objects_) objects_->Clear();
  if (module_) module_->Detach();
  module_ = nullptr;
}

}  // namespace orvel
