#include "orvel/Picture.h"

#include <cstdio>

namespace orvel {

namespace {
// The XPM header row: "<width> <height> <colours> <chars per pixel>".
bool ReadHeader(const std::vector<std::string>& xpm, int& width, int& height) {
  return !xpm.empty() && std::sscanf(xpm.front().c_str(), "%d %d", &width, &height) == 2;
}
}  // namespace

int Picture::Width() const {
  int w = 0, h = 0;
  return ReadHeader(xpm_, w, h) ? w : 0;
}

int Picture::Height() const {
  int w = 0, h = 0;
  return ReadHeader(xpm_, w, h) ? h : 0;
}

}  // namespace orvel
