#pragma once

#include <memory>
#include <pugixml.hpp>
#include <string>

namespace orvel {

class XmlNodeList;

// One node of a parsed SOAP reply, as the rate window reads it: its children
// (childNodes) and its text (Text). A node keeps its document alive. A null
// node (an index past a list's end) has no children and no text, so a reply
// of an unexpected shape reads as empty rather than failing.
class XmlNode {
 public:
  XmlNode() = default;
  XmlNode(std::shared_ptr<const pugi::xml_document> document, pugi::xml_node node)
      : document_(std::move(document)), node_(node) {}

  bool IsNull() const { return !node_; }
  // The element's name with its prefix, "" for text and null nodes.
  std::string nodeName() const;
  // The element and text children, in document order (whitespace between
  // elements is not a node).
  XmlNodeList childNodes() const;
  // All the text under the node joined, blanks at both ends trimmed.
  std::string Text() const;
  // The value of the element's attribute `name` (prefix included, as
  // written), "" when it has none.
  std::string Attribute(const std::string& name) const;

 private:
  std::shared_ptr<const pugi::xml_document> document_;
  pugi::xml_node node_;
};

}  // namespace orvel
