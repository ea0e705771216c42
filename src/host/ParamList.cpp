#include "host/ParamList.h"

namespace orvel {

namespace {
bool IsBlank(char c) { return c == ' ' || c == '\t'; }

size_t SkipBlanks(std::string_view s, size_t pos) {
  while (pos < s.size() && IsBlank(s[pos])) ++pos;
  return pos;
}
}  // namespace

std::optional<std::vector<std::string>> SplitParams(std::string_view param) {
  std::vector<std::string> args;
  size_t pos = SkipBlanks(param, 0);
  if (pos == param.size()) return args;
  while (true) {
    pos = SkipBlanks(param, pos);
    if (pos < param.size() && param[pos] == '\'') {
      // The closing apostrophe is the first one that ends the argument.
      size_t close = std::string_view::npos;
      for (size_t q = param.find('\'', pos + 1); q != std::string_view::npos;
           q = param.find('\'', q + 1)) {
        size_t after = SkipBlanks(param, q + 1);
        if (after == param.size() || param[after] == ',') {
          close = q;
          break;
        }
      }
      if (close == std::string_view::npos) return std::nullopt;
      args.emplace_back(param.substr(pos + 1, close - pos - 1));
      pos = SkipBlanks(param, close + 1);
    } else {
      size_t comma = param.find(',', pos);
      size_t end = comma == std::string_view::npos ? param.size() : comma;
      size_t last = end;
      while (last > pos && IsBlank(param[last - 1])) --last;
      args.emplace_back(param.substr(pos, last - pos));
      pos = end;
    }
    if (pos == param.size()) return args;
    ++pos;  // the comma
  }
}

}  // namespace orvel
