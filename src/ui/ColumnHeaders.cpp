#include "ui/ColumnHeaders.h"

#include <memory>

#include "ui/ListView.h"

namespace orvel {

namespace {
void CheckWidth(int width, const ListView& view) {
  if (width < 0) {
    throw RuntimeError(
        control_error::kInvalidPropertyValue,
        "Neteisinga savybės reikšmė: stulpelio plotis " + std::to_string(width) + " (" + view.Name() + ")");
  }
}
void CheckAlignment(int alignment, const ListView& view) {
  if (alignment < lvwColumnLeft || alignment > lvwColumnCenter) {
    throw RuntimeError(control_error::kInvalidPropertyValue,
                       "Neteisinga savybės reikšmė: stulpelio lygiuotė " + std::to_string(alignment) +
                           " (" + view.Name() + ")");
  }
}
}  // namespace

void ColumnHeader::SetText(std::string text) {
  if (text_ == text) return;
  text_ = std::move(text);
  view_.Notify("ColumnHeaders");
}

void ColumnHeader::SetWidth(int width) {
  CheckWidth(width, view_);
  if (width_ == width) return;
  width_ = width;
  view_.Notify("ColumnHeaders");
}

void ColumnHeader::SetAlignment(int alignment) {
  CheckAlignment(alignment, view_);
  if (alignment_ == alignment) return;
  alignment_ = alignment;
  view_.Notify("ColumnHeaders");
}

ColumnHeader& ColumnHeaders::Add(int index, std::string key, std::string caption, int width,
                                 int alignment) {
  CheckWidth(width, view_);
  CheckAlignment(alignment, view_);
  ColumnHeader& added = columns_.Insert(
      index,
      std::make_unique<ColumnHeader>(view_, std::move(key), std::move(caption), width, alignment));
  view_.Notify("ColumnHeaders");
  return added;
}

void ColumnHeaders::Remove(int index) {
  columns_.Remove(index);
  view_.Notify("ColumnHeaders");
}

void ColumnHeaders::Clear() {
  if (columns_.Empty()) return;
  columns_.Clear();
  view_.Notify("ColumnHeaders");
}

}  // namespace orvel
