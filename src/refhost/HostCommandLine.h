#pragma once

#include <memory>
#include <string>

#include "refhost/ReferenceHost.h"

namespace orvel {

class LoopbackRateService;

// The command line both programs of the reference host take:
//   [--db PATH] [--user NAME] [--module PATH] [--script FILE] [--trace] [--rates-mirror]
// or, to move an office from a file to a server or back, --copy-db FROM TO.
// Without --db the database lives in the user's data folder
// ($XDG_DATA_HOME/orvel/orvel.db, else ~/.local/share/orvel/orvel.db).
struct HostCommandLine {
  ReferenceHost::Options options;
  std::string script;
  bool trace = false;
  bool ratesMirror = false;
  std::string copyFrom;  // --copy-db FROM TO
  std::string copyTo;

  // False when an argument is unknown or lacks its value.
  bool Parse(int argc, char** argv);
  static const char* Usage();
};

// The user's default database file; its folder is created when missing.
std::string DefaultDatabasePath();

// A mirror of the bank's rate services on a loopback port whose current rates
// are dated today (both types, and the litas-era sample); the module is
// pointed at it through the rate address variable for this process.
std::unique_ptr<LoopbackRateService> StartTodaysRatesMirror();

}  // namespace orvel
