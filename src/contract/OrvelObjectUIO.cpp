#include "orvel/OrvelObjectUIO.h"

#include "orvel/RuntimeError.h"

namespace orvel {

Field& OrvelObjectUIO::Fields(std::string_view name) {
  auto rs = RsFields();
  if (!rs) {
    throw RuntimeError(RuntimeError::kNoCurrentRecord,
                       "Objektas neturi įrašo: laukas „" + std::string(name) + "“");
  }
  return rs->Fields(name);
}

}  // namespace orvel
