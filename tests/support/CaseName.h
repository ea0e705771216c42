#pragma once

#include <string>

namespace orvel {

// Names each case of a parameterised test by its row's `name`.
struct ByName {
  template <class Info>
  std::string operator()(const Info& info) const {
    return info.param.name;
  }
};

}  // namespace orvel
