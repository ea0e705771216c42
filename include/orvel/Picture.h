#pragma once

#include <string>
#include <vector>

#include "orvel/Object.h"

namespace orvel {

/// A small picture: an icon of the catalogue tree. The rows are an XPM image
/// (header, colour table, pixel rows), which any toolkit can load.
class Picture : public Object {
 public:
  Picture(std::string name, std::vector<std::string> xpm)
      : name_(std::move(name)), xpm_(std::move(xpm)) {}
  const std::string& Name() const { return name_; }
  const std::vector<std::string>& Xpm() const { return xpm_; }
  int Width() const;
  int Height() const;

 private:
  std::string name_;
  std::vector<std::string> xpm_;
};

}  // namespace orvel
