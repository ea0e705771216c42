// The library's only exported symbol: how a host that loads the module at
// run time reaches it.
#include "module/TheModule.h"

extern "C" __attribute__((visibility("default"))) orvel::OrvelModule* OrvelCommonUI_Module(
    int abiVersion) {
  return abiVersion == orvel::OrvelModule::kAbiVersion ? &orvel::TheModule() : nullptr;
}
