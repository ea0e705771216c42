// The column configuration string of a list window. Any input must parse or
// be refused with a reason, never crash; a string that parses must build
// into one that parses to the same configuration, and building is stable.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "lists/ColumnConfig.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  std::string text(reinterpret_cast<const char*>(data), size);
  std::string error;
  auto config = orvel::ColumnConfig::Parse(text, &error);
  if (!config) {
    if (error.empty()) std::abort();  // a refusal always says why
    return 0;
  }
  (void)config->ShownWidth();
  std::string built = config->Build();
  auto again = orvel::ColumnConfig::Parse(built, &error);
  if (!again) std::abort();
  if (again->Build() != built) std::abort();
  if (again->columns.size() != config->columns.size()) std::abort();
  for (size_t i = 0; i < config->columns.size(); ++i) {
    if (again->columns[i].key != config->columns[i].key) std::abort();
    if (again->columns[i].order != config->columns[i].order) std::abort();
  }
  return 0;
}
