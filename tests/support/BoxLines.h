#pragma once

#include <string>
#include <vector>

#include "testhost/ScriptedUi.h"

namespace orvel {

// "<flags> <title> <prompt>" of each box the Ui showed ("<flags> <prompt>"
// without the title): the boxes of a step compared whole in one line.
inline std::vector<std::string> BoxLines(const ScriptedUi& ui, bool withTitle = true) {
  std::vector<std::string> lines;
  for (const auto& box : ui.Boxes()) {
    lines.push_back(std::to_string(box.flags) + " " + (withTitle ? box.title + " " : "") +
                    box.prompt);
  }
  return lines;
}

}  // namespace orvel
