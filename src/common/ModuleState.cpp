#include "common/ModuleState.h"

#include "orvel/Locale.h"
#include "orvel/Ui.h"

namespace orvel {

namespace {
// The locale in force is the attached Ui's. The state holds the Ui once; this
// reader, registered with the first use of the state, looks it up each time,
// so attaching, detaching or restoring the state never has a second copy to
// keep in step.
class AttachedUiLocale : public LocaleSource {
 public:
  const Locale& CurrentLocale() const override {
    static const Locale lithuanian = Locale::Lithuanian();
    const auto& ui = TheModuleState().ui;
    return ui ? ui->CurrentLocale() : lithuanian;
  }
};
}  // namespace

ModuleState& TheModuleState() {
  static ModuleState state;
  static const bool localeRegistered =
      (SetLocaleSource(std::make_shared<const AttachedUiLocale>()), true);
  (void)localeRegistered;
  return state;
}

ModuleState::Scope::Scope() : saved_(std::make_unique<ModuleState>(TheModuleState())) {}

ModuleState::Scope::~Scope() {
  TheModuleState() = std::move(*saved_);
}

}  // namespace orvel
