#include "refhost/ModuleLibrary.h"

#include <dlfcn.h>

#include <cstdio>
#include <filesystem>
#include <system_error>

#include "orvel/OrvelModule.h"

namespace orvel {

namespace {

// The interface version of a "major.minor.patch" text: OrvelModule::kAbiVersion
// of a host built as that version.
int AbiVersionOf(const std::string& version) {
  int major = 0, minor = 0;
  std::sscanf(version.c_str(), "%d.%d", &major, &minor);
  return major * 1000 + minor;
}

}  // namespace

ModuleLibrary::ModuleLibrary(const std::string& path, const std::string& hostVersion) {
  handle_ = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (!handle_) {
    const char* reason = dlerror();
    error_ = "cannot load " + path + ": " + (reason ? reason : "unknown reason");
    return;
  }
  using EntryPoint = OrvelModule* (*)(int);
  auto entry = reinterpret_cast<EntryPoint>(dlsym(handle_, ORVEL_MODULE_ENTRY_POINT));
  if (!entry) {
    error_ = path + " has no entry point " + ORVEL_MODULE_ENTRY_POINT;
    return;
  }
  module_ = entry(AbiVersionOf(hostVersion));
  if (module_) return;
  using VersionPoint = const char* (*)();
  auto version = reinterpret_cast<VersionPoint>(dlsym(handle_, ORVEL_MODULE_VERSION_POINT));
  error_ = path + ": modulio versija " + (version ? version() : "nežinoma") +
           " netinka šeimininkui, sukurtam " + hostVersion + " versijai";
}

std::string ModuleLibrary::DefaultPath(const std::string& installed, const std::string& built) {
  std::error_code error;
  const auto program = std::filesystem::read_symlink("/proc/self/exe", error);
  if (error) return built;
  const auto candidate = program.parent_path() / installed;
  return std::filesystem::exists(candidate, error) ? candidate.lexically_normal().string() : built;
}

ModuleLibrary::~ModuleLibrary() {
  if (handle_) dlclose(handle_);
}

}  // namespace orvel
