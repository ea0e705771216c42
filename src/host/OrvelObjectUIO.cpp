#include "host/OrvelObjectUIO.h"

#include "host/RuntimeError.h"

namespace orvel {

Field& OrvelObjectUIO::Fields(std::string_view name) {
  auto rs = RsFields();
  if (!rs) {
    throw RuntimeError(RuntimeError::kNoCurrentRecord,
                       "The object holds no record: field '" + std::string(name) + "'");
  }
  return rs->Fields(name);
}

}  // namespace orvel
