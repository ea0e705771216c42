#pragma once

#include <memory>
#include <vector>

#include "orvel/Locale.h"
#include "orvel/Ui.h"

namespace orvel {

class FieldSheet;
class OrvelObjectUIO;

// What every front end of the reference host shares: the Lithuanian locale,
// today by the local clock, and the host kit's FieldSheet as the field sheet
// of each new form, remembered so that the front end can find the sheet
// that shows an object. The terminal and the window front ends derive from
// it and supply the boxes, menus and modal runs.
class HostUi : public Ui {
 public:
  const Locale& CurrentLocale() const override { return locale_; }
  Date Today() const override;
  std::shared_ptr<OrvelGrid> NewOrvelGrid() override;

  // The field sheet that shows `object`; null when none does.
  std::shared_ptr<FieldSheet> SheetOf(const std::shared_ptr<OrvelObjectUIO>& object) const;

 private:
  Locale locale_ = Locale::Lithuanian();
  std::vector<std::weak_ptr<FieldSheet>> sheets_;
};

}  // namespace orvel
