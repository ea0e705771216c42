// orvel-host: the reference host. Opens (and on first start creates) the
// sample database, loads libOrvelCommonUI.so at run time, registers it and
// drives its catalogues from the terminal or from a script.
//
//   orvel-host [--db PATH | postgresql://USER@HOST:PORT/DB] [--user NAME] [--module PATH] [--script FILE] [--trace]
//              [--rates-mirror]
//
// Without --db the database lives in the user's data folder
// ($XDG_DATA_HOME/orvel/orvel.db, else ~/.local/share/orvel/orvel.db).
// --trace prints every business call the module makes, as it happens.
// --rates-mirror serves the bank's rate services from a local mirror on a
// loopback port for this run (today's rates of both types, and the litas-era
// sample), so the rates window can fetch and write rates without the network.
// The commands are told in HostShell.h.
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>
#include <string>

#include "HostShell.h"
#include "LinePrompter.h"
#include "bizlayer/BusinessLayer.h"
#include "hostkit/LoopbackRateService.h"
#include "refhost/HostCommandLine.h"
#include "refhost/ReferenceHost.h"

int main(int argc, char** argv) {
  orvel::HostCommandLine command;
  command.options.modulePath = ORVEL_DEFAULT_MODULE;
  command.options.appPath = std::filesystem::current_path().string();
  if (!command.Parse(argc, argv)) {
    std::cerr << "usage: orvel-host " << orvel::HostCommandLine::Usage() << "\n";
    return 2;
  }
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
