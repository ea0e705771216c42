#include "currencies/XmlNode.h"

#include "currencies/XmlNodeList.h"

namespace orvel {

namespace {

bool IsListed(const pugi::xml_node& node) {
  auto type = node.type();
  return type == pugi::node_element || type == pugi::node_pcdata || type == pugi::node_cdata;
}

void AppendText(const pugi::xml_node& node, std::string& out) {
  if (node.type() == pugi::node_pcdata || node.type() == pugi::node_cdata) {
    out += node.value();
    return;
  }
  for (const auto& child : node.children()) AppendText(child, out);
}

}  // namespace

std::string XmlNode::nodeName() const {
  return node_.type() == pugi::node_element ? node_.name() : "";
}

XmlNodeList XmlNode::childNodes() const { return XmlNodeList(document_, node_); }

std::string XmlNode::Text() const {
  std::string text;
  auto only = node_.first_child();
  if (only && !only.next_sibling() && only.type() == pugi::node_pcdata) {
    text = only.value();  // the common row cell: one text child
  } else if (node_) {
    AppendText(node_, text);
  }
  const char* blanks = " \t\r\n";
  auto first = text.find_first_not_of(blanks);
  if (first == std::string::npos) return {};
  auto last = text.find_last_not_of(blanks);
  return text.substr(first, last - first + 1);
}

std::string XmlNode::Attribute(const std::string& name) const {
  return node_.attribute(name.c_str()).value();
}

int XmlNodeList::Length() const {
  if (length_ < 0) {
    length_ = 0;
    for (const auto& child : parent_.children()) length_ += IsListed(child) ? 1 : 0;
  }
  return length_;
}

XmlNode XmlNodeList::Item(int index) const {
  if (index < 0 || index >= Length()) return {};
  if (cursorIndex_ < 0 || index < cursorIndex_) {
    cursor_ = parent_.first_child();
    while (!IsListed(cursor_)) cursor_ = cursor_.next_sibling();
    cursorIndex_ = 0;
  }
  while (cursorIndex_ < index) {
    do {
      cursor_ = cursor_.next_sibling();
    } while (!IsListed(cursor_));
    ++cursorIndex_;
  }
  return XmlNode(document_, cursor_);
}

}  // namespace orvel
