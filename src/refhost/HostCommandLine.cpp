#include "refhost/HostCommandLine.h"

#include <algorithm>
#include <cstdlib>
#include <ctime>
#include <filesystem>

#include "hostkit/LoopbackRateService.h"

namespace orvel {

bool HostCommandLine::Parse(int argc, char** argv) {
  for (int i = 1; i < argc; ++i) {
    std::string arg = argv[i];
    if (arg == "--trace") {
      trace = true;
      continue;
    }
    if (arg == "--rates-mirror") {
      ratesMirror = true;
      continue;
    }
    if (arg == "--copy-db") {
      if (i + 2 >= argc) return false;
      copyFrom = argv[++i];
      copyTo = argv[++i];
      continue;
    }
    std::string* target = arg == "--db"       ? &options.databasePath
                          : arg == "--user"   ? &options.userName
                          : arg == "--module" ? &options.modulePath
                          : arg == "--script" ? &script
                                              : nullptr;
    if (!target || i + 1 >= argc) return false;
    *target = argv[++i];
  }
  if (options.databasePath.empty()) options.databasePath = DefaultDatabasePath();
  return true;
}

const char* HostCommandLine::Usage() {
  return "[--db PATH | postgresql://USER@HOST:PORT/DB] [--user NAME] [--module PATH]"
         " [--script FILE] [--trace] [--rates-mirror] | --copy-db FROM TO";
}

std::string DefaultDatabasePath() {
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

std::unique_ptr<LoopbackRateService> StartTodaysRatesMirror() {
  auto mirror = std::make_unique<LoopbackRateService>();
  std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  char today[16];
  std::strftime(today, sizeof today, "%Y-%m-%d", &local);
  auto rates = LoopbackRateService::SampleFxRates();
  std::string latest;
  for (const auto& rate : rates) latest = std::max(latest, rate.date);
  for (auto& rate : rates) {
    if (rate.date == latest) rate.date = today;
  }
  mirror->SetFxRates(std::move(rates));
  setenv("ORVEL_RATES_ADDRESS", mirror->Address().c_str(), 1);
  return mirror;
}

}  // namespace orvel
