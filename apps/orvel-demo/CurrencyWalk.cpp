// Currencies: the day rates fetched from a loopback service and written.
#include "DemoSupport.h"
#include "Walks.h"

namespace demo {

int WalkCurrencies(orvel::TestHost&) { return 0; }

}  // namespace demo
