#pragma once

#include <cstdint>
#include <string>

#include "ui/Control.h"

namespace orvel {

// A 3D panel with a caption: the heading of a window (SOPanel).
class Panel : public Control {
 public:
  using Control::Control;

  const std::string& Caption() const { return caption_; }
  void SetCaption(std::string caption) { Assign(caption_, std::move(caption), "Caption"); }
  int32_t ForeColor() const { return foreColor_; }
  void SetForeColor(int32_t color) { Assign(foreColor_, color, "ForeColor"); }
  // The text shown while the pointer rests on the panel.
  const std::string& ToolTipText() const { return toolTipText_; }
  void SetToolTipText(std::string text) { Assign(toolTipText_, std::move(text), "ToolTipText"); }
  // Position and height in twips: a form moves a panel when a line above it
  // comes or goes.
  int32_t Top() const { return top_; }
  void SetTop(int32_t top) { Assign(top_, top, "Top"); }
  int32_t Height() const { return height_; }
  void SetHeight(int32_t height) { Assign(height_, height, "Height"); }

 private:
  int32_t top_ = 0;
  int32_t height_ = 0;
  std::string caption_;
  int32_t foreColor_ = 0;
  std::string toolTipText_;
};

}  // namespace orvel
