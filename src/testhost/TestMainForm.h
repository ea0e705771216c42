#pragma once

#include "host/Object.h"

namespace orvel {

// The host's main window in the test host: a plain object, there to be
// handed over and compared.
class TestMainForm : public Object {};

}  // namespace orvel
