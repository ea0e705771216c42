#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace orvel {

// The types of the suite's other modules that the reference host serves
// itself, each over its catalogue in the reference business layer, so that
// what the module opens by OIDR (a stock template, a document group, a
// discount, a document, a contract) is a real record.
struct HostType {
  std::string_view oid;
  std::string_view name;  // the type's display name, its OName
  bool editable;          // a card that writes; otherwise the card only shows
};

std::span<const HostType> HostTypes();
// The host's type of an OID; null for a type the host leaves to a module.
const HostType* HostTypeOf(std::string_view oid);

}  // namespace orvel
