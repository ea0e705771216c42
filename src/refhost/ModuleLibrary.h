#pragma once

#include <string>

#include "orvel/Version.h"

namespace orvel {

class OrvelModule;

// The module's shared library, loaded at run time as a host loads it: by
// path, through its one C entry point, checked against the version this host
// was built with (`hostVersion`, "major.minor.patch", another only in tests).
// Closed last, after every object it made is gone.
class ModuleLibrary {
 public:
  explicit ModuleLibrary(const std::string& path, const std::string& hostVersion = kVersion);
  ~ModuleLibrary();
  ModuleLibrary(const ModuleLibrary&) = delete;
  ModuleLibrary& operator=(const ModuleLibrary&) = delete;

  // Where a program finds the module by default: `installed` (a path relative
  // to the program's own folder, as the package installs them) when it is
  // there, else `built`, the build tree's copy.
  static std::string DefaultPath(const std::string& installed, const std::string& built);

  // The module object; null when the library did not load or has no
  // compatible entry point (Error() says which).
  OrvelModule* Module() const { return module_; }
  const std::string& Error() const { return error_; }

 private:
  void* handle_ = nullptr;
  OrvelModule* module_ = nullptr;
  std::string error_;
};

}  // namespace orvel
