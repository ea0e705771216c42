#pragma once

#include <string>

#include "orvel/DragData.h"

namespace orvel {

// What a host's tree carries in a drag: an OIDR as text.
class TextDragData : public DragData {
 public:
  explicit TextDragData(std::string text) : text_(std::move(text)) {}
  std::string GetText() override { return text_; }

 private:
  std::string text_;
};

}  // namespace orvel
