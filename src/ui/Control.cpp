#include "ui/Control.h"

#include "ui/ControlObserver.h"

namespace orvel {

void Control::Notify(std::string_view property) {
  if (observer_) observer_->ControlChanged(*this, property);
}

}  // namespace orvel
