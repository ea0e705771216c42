#pragma once

#include <cstdint>

// The numbers a result's Number carries that the module and its hosts act
// on. They are the business layer's and the legacy runtime's own, so they
// stay as the users' support staff know them.
namespace orvel {

// A write or delete of a record another user changed since this session read
// it: the window reads the record again, and the user's edits are lost.
inline constexpr int32_t kChangedMeanwhile = 60000;
// No current record: the record asked for is not (or no longer) there.
inline constexpr int32_t kNoCurrentRecord = 3021;

}  // namespace orvel
