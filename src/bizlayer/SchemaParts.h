#pragma once

#include "bizlayer/SchemaPart.h"

namespace orvel {

// The parts of the reference schema, each defined beside the calls that read
// it. Declarations are only ever appended.

}  // namespace orvel
