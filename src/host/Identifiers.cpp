#include "host/Identifiers.h"

namespace orvel {

std::string OidOf(std::string_view oidr) { return std::string(oidr.substr(0, 8)); }

bool RefersToRecord(std::string_view oidr) { return oidr.size() >= 9 && oidr[8] != '0'; }

std::string IconKeyOf(std::string_view oidr) {
  return "C" + std::string(oidr.size() > 1 ? oidr.substr(1, 7) : std::string_view());
}

size_t LastOPosition(std::string_view path) { return path.find_last_of("oO"); }

std::string LastOidr(std::string_view path) {
  size_t at = LastOPosition(path);
  return at == std::string_view::npos ? std::string() : std::string(path.substr(at));
}

}  // namespace orvel
