#pragma once

#include <string>
#include <string_view>

// The object identifiers. OID: "O" and seven digits. OIDR: the OID followed by
// the record's ID ("O00003005" is bank 5), or the OID alone, or "" for a
// record never saved. All ASCII, compared with plain string equality.
namespace orvel {

// The type of an OIDR: its first eight characters.
std::string OidOf(std::string_view oidr);
// True when the OIDR names a stored record: nine characters or more and a
// ninth character other than "0".
bool RefersToRecord(std::string_view oidr);
// The icon key of an OIDR's type: "C" and characters 2 to 8 ("C0000300").
std::string IconKeyOf(std::string_view oidr);
// A picker may hand back a path of several identifiers in a row: the last one
// starts at the last "o" or "O". npos when there is none.
size_t LastOPosition(std::string_view path);
// The tail of a path from its last "O"; "" when there is none.
std::string LastOidr(std::string_view path);

}  // namespace orvel
