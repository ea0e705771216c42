// The library's exported symbols: how a host that loads the module at run
// time reaches it, and the version it names when they do not fit.
#include "module/TheModule.h"

extern "C" __attribute__((visibility("default"))) orvel::OrvelModule* OrvelCommonUI_Module(
    int abiVersion) {
  return abiVersion == orvel::OrvelModule::kAbiVersion ? &orvel::TheModule() : nullptr;
}

extern "C" __attribute__((visibility("default"))) const char* OrvelCommonUI_Version() {
  return orvel::kVersion;
}
