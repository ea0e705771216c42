// The goods tree: menus by kind, a new good with its structured code.
#include "DemoSupport.h"
#include "Walks.h"

namespace demo {

int WalkGoods(orvel::TestHost&) { return 0; }

}  // namespace demo
