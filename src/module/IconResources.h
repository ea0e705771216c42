#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "orvel/Picture.h"

namespace orvel {

// The module's icon resources: "C0000100", "C0000200", "C0000300", "C0000500",
// "C0001600", "C0001601", "C0002200", "FIRMNA", "GEXIST", "GOODNA", "SERVICE",
// "SERVICENA", and the spare "A00001000001" and "S". The name is looked up
// without regard to case, so "FirmNA" finds "FIRMNA". Null when there is none.
std::shared_ptr<Picture> LoadIconResource(std::string_view name);
// Every resource name, as stored.
std::vector<std::string> IconResourceNames();

}  // namespace orvel
