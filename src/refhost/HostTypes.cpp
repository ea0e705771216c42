#include "refhost/HostTypes.h"

#include <array>

namespace orvel {

namespace {

constexpr std::array kTypes{
    HostType{"O0201600", "Atsargų šablonai", false},
    HostType{"O1000200", "Dokumentų grupės", false},
    HostType{"O1000600", "Nuolaidos", true},
    HostType{"O1000100", "Dokumentai", false},
    HostType{"O1000300", "Gauti avansai", false},
    HostType{"O1000400", "Sumokėti avansai", false},
    HostType{"O1001000", "Sutartys", false},
};

}  // namespace

std::span<const HostType> HostTypes() { return kTypes; }

const HostType* HostTypeOf(std::string_view oid) {
  for (const auto& type : kTypes) {
    if (type.oid == oid) return &type;
  }
  return nullptr;
}

}  // namespace orvel
