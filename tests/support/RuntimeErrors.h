#pragma once

#include <cstdint>
#include <string>

#include "orvel/RuntimeError.h"

namespace orvel {

// The number of the RuntimeError `call` throws, 0 when it throws none; the
// error's text goes to `text` when one is given.
template <class F>
int32_t ErrorOf(F&& call, std::string* text = nullptr) {
  try {
    call();
  } catch (const RuntimeError& e) {
    if (text) *text = e.Text();
    return e.Number();
  }
  return 0;
}

}  // namespace orvel
