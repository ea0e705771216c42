#pragma once

#include <string_view>

#include "orvel/Object.h"

namespace orvel {

/// An image list of icons named by key, as the host hands it to list views
/// (OrvelMainForm::ImgCatalogue). On the platform a row given an icon key the
/// list lacks raises "Elementas nerastas"; a host whose image list implements
/// this lets a form learn that beforehand. An image list that does not
/// implement it is taken to hold every key (its renderer draws what it has).
class ImageList : public Object {
 public:
  /// Whether an icon is stored under `key` (compared without regard to case,
  /// as the platform's keyed collections do).
  virtual bool HasImage(std::string_view key) const = 0;
};

}  // namespace orvel
