// orvel-host: the reference host. Opens (and on first start creates) the
// sample database, loads libOrvelCommonUI.so at run time, registers it and
// drives its catalogues from the terminal or from a script.
//
//   orvel-host [--db PATH | postgresql://USER@HOST:PORT/DB] [--user NAME] [--module PATH]
//              [--script FILE] [--trace] [--rates-mirror]
//   orvel-host --copy-db FROM TO
//
// Without --db the database lives in the user's data folder
// ($XDG_DATA_HOME/orvel/orvel.db, else ~/.local/share/orvel/orvel.db).
// --trace prints every business call the module makes, as it happens.
// --rates-mirror serves the bank's rate services from a local mirror on a
// loopback port for this run (today's rates of both types, and the litas-era
// sample), so the rates window can fetch and write rates without the network.
// --copy-db copies a whole office, every ID and version kept, from a file
// or a server into a new file or an empty server database, and ends.
// The commands are told in HostShell.h.
#include <unistd.h>

#include <filesystem>
#include <functional>
#include <fstream>
#include <iostream>
#include <memory>
#include <string>

#include "HostShell.h"
#include "LinePrompter.h"
#include "bizlayer/BusinessLayer.h"
#include "bizlayer/PgDatabase.h"
#include "bizlayer/PgDialect.h"
#include "bizlayer/ReferenceDatabase.h"
#include "bizlayer/SqliteDatabase.h"
#include "hostkit/LoopbackRateService.h"
#include "refhost/FillProgress.h"
#include "refhost/HostCommandLine.h"
#include "refhost/ModuleLibrary.h"
#include "refhost/ReferenceHost.h"

namespace {

// An office moved between a file and a server. The source must exist: a
// file that is not there is not made here.
int CopyOffice(const std::string& from, const std::string& to) {
  try {
    if (!orvel::PgDatabase::IsUrl(from) && !std::filesystem::exists(from)) {
      std::cerr << "orvel-host: nėra duomenų bazės " << from << "\n";
      return 1;
    }
    if (!orvel::PgDatabase::IsUrl(to) && std::filesystem::exists(to)) {
      std::cerr << "orvel-host: " << to << " jau yra; kopijuojama tik į naują failą\n";
      return 1;
    }
    std::shared_ptr<orvel::Database> source;
    if (orvel::PgDatabase::IsUrl(from)) {
      // A server is read as it is: an empty one has no office to copy.
      source = std::make_shared<orvel::PgDatabase>(from);
      auto office = source->Prepare(orvel::PgTableExistsQuery());
      office.Bind(1, orvel::Variant("schema_parts"));
      if (!office.Step() || office.Column(0).NumberValue() == 0) {
        std::cerr << "orvel-host: " << from << " nėra biuro duomenų bazės\n";
        return 1;
      }
    } else {
      source = orvel::ReferenceDatabase::Open(from);
    }
    std::shared_ptr<orvel::Database> target;
    if (orvel::PgDatabase::IsUrl(to)) {
      target = std::make_shared<orvel::PgDatabase>(to);
    } else {
      target = std::make_shared<orvel::SqliteDatabase>(to);
    }
    const int64_t rows = orvel::ReferenceDatabase::CopyOffice(*source, *target);
    // On the server the login that moved the office in is a bookkeeper of
    // it, with every right, as the one that makes a new office is.
    if (auto* server = dynamic_cast<orvel::PgDatabase*>(target.get())) {
      orvel::ReferenceDatabase::GrantEverything(*server, server->User());
    }
    std::cout << "Nukopijuota įrašų: " << rows << " (" << from << " -> " << to << ")\n";
    return 0;
  } catch (const std::exception& e) {
    std::cerr << "orvel-host: nenukopijuota: " << e.what() << "\n";
    return 1;
  }
}

}  // namespace

int main(int argc, char** argv) {
  orvel::HostCommandLine command;
  command.options.modulePath =
      orvel::ModuleLibrary::DefaultPath(ORVEL_INSTALLED_MODULE, ORVEL_DEFAULT_MODULE);
  command.options.appPath = std::filesystem::current_path().string();
  if (!command.Parse(argc, argv)) {
    std::cerr << "usage: orvel-host " << orvel::HostCommandLine::Usage() << "\n";
    return 2;
  }
  if (!command.copyFrom.empty()) return CopyOffice(command.copyFrom, command.copyTo);
  auto& options = command.options;
  const std::string& script = command.script;
  bool trace = command.trace;
  bool mirror = command.ratesMirror;

  std::ifstream file;
  if (!script.empty()) {
    file.open(script);
    if (!file) {
      std::cerr << "orvel-host: cannot read " << script << "\n";
      return 1;
    }
  }
  std::istream& in = script.empty() ? std::cin : file;
  bool echo = !script.empty() || !isatty(STDIN_FILENO);
  orvel::LinePrompter prompter(in, std::cout, echo);

  std::unique_ptr<orvel::LoopbackRateService> ratesMirror;
  if (mirror) ratesMirror = orvel::StartTodaysRatesMirror();

  orvel::ReferenceHost host(prompter);
  std::string error;
  if (!host.Start(options, error)) {
    std::cerr << "orvel-host: " << error << "\n";
    return 1;
  }
  std::cout << "Orvel Apskaita: " << options.databasePath << ", naudotojas " << host.UserName()
            << "\n";
  if (script.empty() && isatty(STDIN_FILENO)) std::cout << "Komandų sąrašas: help\n";
  orvel::FillProgress progress(std::cerr, isatty(STDERR_FILENO));
  host.Layer().SetFillObserver(std::ref(progress));
  if (trace) {
    host.Layer().SetCallObserver(
        [](const char* op, const std::string& name, const std::string& param) {
          std::cout << op << " " << name << " " << param << "\n";
        });
  }
  orvel::HostShell shell(host, prompter, std::cout);
  int failed = shell.Run();
  return failed == 0 ? 0 : 1;
}
