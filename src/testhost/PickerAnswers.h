#pragma once

#include <cstdint>
#include <deque>
#include <string>

namespace orvel {

// The answers the test host's pickers give, in order, shared by every picker
// TestHostClasses creates. A picker shown with no answer left was cancelled.
struct PickerAnswers {
  struct Group {
    std::string resultOIDR;
    std::string resultName;
    std::string resultOType;
  };
  struct Search {
    std::string text;
    uint8_t option1 = 0;
    uint8_t option2 = 0;
  };

  std::deque<Group> groups;
  std::deque<Search> searches;
};

}  // namespace orvel
