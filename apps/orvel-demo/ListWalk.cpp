// The list window of the bank type: its table and its printout.
#include "DemoSupport.h"
#include "Walks.h"

namespace demo {

int WalkBankList(orvel::TestHost&) { return 0; }

}  // namespace demo
