// orvel-host: the reference host. Opens (and on first start creates) the
// sample database, loads libOrvelCommonUI.so at run time, registers it and
// drives its catalogues from the terminal or from a script.
//
//   orvel-host [--db PATH] [--user NAME] [--module PATH] [--script FILE] [--trace]
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

#include <algorithm>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>
#include <string>

#include "HostShell.h"
#include "LinePrompter.h"
#include "bizlayer/BusinessLayer.h"
#include "hostkit/LoopbackRateService.h"
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
               " [--trace] [--rates-mirror]\n";
  return 2;
}

// A mirror of the bank's services whose current rates are dated today; the
// module is pointed at it through the rate address variable.
std::unique_ptr<orvel::LoopbackRateService> StartRatesMirror() {
  auto mirror = std::make_unique<orvel::LoopbackRateService>();
  std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  char today[16];
  std::strftime(today, sizeof today, "%Y-%m-%d", &local);
  auto rates = orvel::LoopbackRateService::SampleFxRates();
  std::string latest;
  for (const auto& rate : rates) latest = std::max(latest, rate.date);
  for (auto& rate : rates) {
    if (rate.date == latest) rate.date = today;
  }
  mirror->SetFxRates(std::move(rates));
  setenv("ORVEL_RATES_ADDRESS", mirror->Address().c_str(), 1);
  return mirror;
}

}  // namespace

int main(int argc, char** argv) {
  orvel::ReferenceHost::Options options;
  options.modulePath = ORVEL_DEFAULT_MODULE;
  options.appPath = std::filesystem::current_path().string();
  std::string script;
  bool trace = false;
  bool mirror = false;
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
    } else if (arg == "--rates-mirror") {
      mirror = true;
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

  std::unique_ptr<orvel::LoopbackRateService> ratesMirror;
  if (mirror) ratesMirror = StartRatesMirror();

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
