#include "common/ModuleState.h"

#include "orvel/Locale.h"
#include "orvel/Ui.h"

namespace orvel {

ModuleState& TheModuleState() {
  static ModuleState state;
  return state;
}

ModuleState::Scope::Scope() : saved_(std::make_unique<ModuleState>(TheModuleState())) {}

ModuleState::Scope::~Scope() {
  TheModuleState() = std::move(*saved_);
  // The locale in force is the attached Ui's (see Platform::Attach).
  SetLocaleSource(TheModuleState().ui);
}

}  // namespace orvel
