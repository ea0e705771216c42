#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvel {

// Splits a business call's parameter string into its arguments:
// "'O00003005','bank',1,0" -> {O00003005, bank, 1, 0}. Texts stand in
// apostrophes and nothing inside them is escaped, so a text ends at the first
// apostrophe followed (after blanks) by a comma or the end: 'O'Brien' and
// 'a,b' read whole. Bare arguments are trimmed. "" and blanks give no
// arguments. nullopt when a text is not closed or junk follows it.
std::optional<std::vector<std::string>> SplitParams(std::string_view param);

}  // namespace orvel
