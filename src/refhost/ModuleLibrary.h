#pragma once

#include <string>

namespace orvel {

class OrvelModule;

// The module's shared library, loaded at run time as a host loads it: by
// path, through its one C entry point, checked against the interface version
// this host was built with. Closed last, after every object it made is gone.
class ModuleLibrary {
 public:
  explicit ModuleLibrary(const std::string& path);
  ~ModuleLibrary();
  ModuleLibrary(const ModuleLibrary&) = delete;
  ModuleLibrary& operator=(const ModuleLibrary&) = delete;

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
