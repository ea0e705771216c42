// orvel-host: the reference host. Opens (and on first start creates) the
// sample database, loads libOrvelCommonUI.so at run time, registers it and
// drives its catalogues from the terminal or from a script.
//
//   orvel-host [--db PATH] [--user NAME] [--module PATH] [--script FILE] [--trace]
//
// Without --db the database lives in the user's data folder
// ($XDG_DATA_HOME/orvel/orvel.db, else ~/.local/share/orvel/orvel.db).
// --trace prints every business call the module makes, as it happens.
// The commands are told in HostShell.h.
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>

#include "HostShell.h"
#include "LinePrompter.h"
#include "bizlayer/BusinessLayer.h"
#include "refhost/ReferenceHost.h"

namespace {

std::string DefaultDatabase() {
  std::filesystem::path folder;
  if (const char* data = std::getenv("XDG_DATA_HOME"); data && *data) {
    folder = data;
  } else if (const char* home = std::getenv("HOME"); home && *home) {
    folder = std::filesystem::path(home) / ".local" / "share";
  } else {
    folder = ".";
  }
  folder /= "orvel";
  std::error_code ignored;
  std::filesystem::create_directories(folder, ignored);
  return (folder / "orvel.db").string();
}

int Usage() {
  std::cerr << "usage: orvel-host [--db PATH] [--user NAME] [--module PATH] [--script FILE]"
               " [--trace]\n";
  return 2;
}

}  // namespace

int main(int argc, char** argv) {
  orvel::ReferenceHost::Options options;
  options.modulePath = ORVEL_DEFAULT_MODULE;
  options.appPath = std::filesystem::current_path().string();
  std::string script;
  bool trace = false;
  for (int i = 1; i < argc; ++i) {
    std::string arg = argv[i];
    auto value = [&]() -> const char* { return i + 1 < argc ? argv[++i] : nullptr; };
    const char* v = nullptr;
    if ((arg == "--db" || arg == "--user" || arg == "--module" || arg == "--script") &&
        !(v = value())) {
      return Usage();
    }
    if (arg == "--db") {
      options.databasePath = v;
    } else if (arg == "--user") {
      options.userName = v;
    } else if (arg == "--module") {
      options.modulePath = v;
    } else if (arg == "--script") {
      script = v;
    } else if (arg == "--trace") {
      trace = true;
    } else {
      return Usage();
    }
  }
  if (options.databasePath.empty()) options.databasePath = DefaultDatabase();

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

  orvel::ReferenceHost host(prompter);
  std::string error;
  if (!host.Start(options, error)) {
    std::cerr << "orvel-host: " << error << "\n";
    return 1;
  }
  std::cout << "Orvel Apskaita: " << options.databasePath << ", naudotojas " << options.userName
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
