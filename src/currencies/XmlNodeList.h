#pragma once

#include <memory>
#include <pugixml.hpp>

#include "currencies/XmlNode.h"

namespace orvel {

// The children of one reply node (elements and text; whitespace between
// elements is no node) with a zero-based Item and a Length. It keeps the
// document it points into alive. The list is walked in place rather than
// copied: Length counts once, and Item remembers where it last stood, so
// reading a list front to back costs one pass.
class XmlNodeList {
 public:
  XmlNodeList() = default;
  XmlNodeList(std::shared_ptr<const pugi::xml_document> document, pugi::xml_node parent)
      : document_(std::move(document)), parent_(parent) {}

  int Length() const;
  // A null node for an index outside 0..Length-1.
  XmlNode Item(int index) const;

 private:
  std::shared_ptr<const pugi::xml_document> document_;
  pugi::xml_node parent_;
  mutable int length_ = -1;
  mutable int cursorIndex_ = -1;
  mutable pugi::xml_node cursor_;
};

}  // namespace orvel
