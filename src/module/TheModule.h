#pragma once

#include "orvel/OrvelModule.h"

namespace orvel {

// The module object of this library, the one the entry point hands out.
OrvelModule& TheModule();

}  // namespace orvel
