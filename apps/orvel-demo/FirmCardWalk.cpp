// The firm card: its saving rules and the debt line.
#include "DemoSupport.h"
#include "Walks.h"

namespace demo {

int WalkFirmCard(orvel::TestHost&) { return 0; }

}  // namespace demo
