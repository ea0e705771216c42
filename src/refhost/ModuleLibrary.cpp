#include "refhost/ModuleLibrary.h"

#include <dlfcn.h>

#include "orvel/OrvelModule.h"

namespace orvel {

ModuleLibrary::ModuleLibrary(const std::string& path) {
  handle_ = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (!handle_) {
    const char* reason = dlerror();
    error_ = "cannot load " + path + ": " + (reason ? reason : "unknown reason");
    return;
  }
  using EntryPoint = OrvelModule* (*)(int);
  auto entry = reinterpret_cast<EntryPoint>(dlsym(handle_, ORVEL_MODULE_ENTRY_POINT));
  module_ = entry ? entry(OrvelModule::kAbiVersion) : nullptr;
  if (!module_) error_ = path + " has no compatible " + ORVEL_MODULE_ENTRY_POINT;
}

ModuleLibrary::~ModuleLibrary() {
  if (handle_) dlclose(handle_);
}

}  // namespace orvel
