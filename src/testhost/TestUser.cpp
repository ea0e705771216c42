#include "testhost/TestUser.h"

#include "host/MemoryRecordset.h"

namespace orvel {

TestUser::TestUser() {
  auto rs = std::make_shared<MemoryRecordset>(std::vector<std::string>{"ID"});
  rs->AddRow({Variant(1)});
  rs->MoveFirst();
  rs_ = std::move(rs);
}

}  // namespace orvel
