#include "common/Platform.h"

#include "common/BusyPointer.h"
#include "common/ModuleState.h"
#include "orvel/OrvelHostClasses.h"
#include "orvel/RuntimeError.h"
#include "orvel/Ui.h"

namespace orvel {

namespace {
ModuleState& Held() { return TheModuleState(); }
}  // namespace

void Platform::Attach(std::shared_ptr<OrvelHostClasses> classes, std::shared_ptr<orvel::Ui> ui) {
  Held().classes = std::move(classes);
  Held().ui = std::move(ui);
}

void Platform::Detach() {
  Held().classes.reset();
  Held().ui.reset();
}

bool Platform::Attached() { return Held().classes && Held().ui; }

OrvelHostClasses& Platform::Classes() {
  if (!Held().classes) {
    throw RuntimeError(RuntimeError::kInvalidCall, "Pagrindinė programa nepateikė moduliui savo klasių");
  }
  return *Held().classes;
}

orvel::Ui& Platform::Ui() {
  if (!Held().ui) throw RuntimeError(RuntimeError::kInvalidCall, "Pagrindinė programa nepateikė moduliui vartotojo sąsajos");
  return *Held().ui;
}

BusyPointer::BusyPointer(bool pumpEvents) {
  auto& ui = Platform::Ui();
  ui.SetMousePointer(vbHourglass);
  if (pumpEvents) ui.DoEvents();
}

BusyPointer::~BusyPointer() {
  // Only a detached host fails here, and then there is no pointer to restore.
  if (Platform::Attached()) Platform::Ui().SetMousePointer(vbDefault);
}

}  // namespace orvel
