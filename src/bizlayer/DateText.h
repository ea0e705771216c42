#pragma once

#include <string>

#include "orvel/Variant.h"

namespace orvel {

// A day as the databases store it: "2026-11-23", or "2026-11-23 14:05:00"
// when it has a time of day.
std::string DateText(Date date);
// The same text read back: a Date, or the text as it stands when it is not
// one.
Variant DateFromText(const std::string& text);

}  // namespace orvel
