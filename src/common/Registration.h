#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "orvel/OrvelHeaderSecurity.h"

// The module's vocabulary: its name, catalogue group, right components,
// object types and icons, in the order the host is told them. The same
// OIDs, right keys and icon keys come back in every adapter and form.
namespace orvel {

inline constexpr std::string_view kModuleName = "OrvelCommonUI";

struct CatalogueGroup {
  std::string_view key;
  std::string_view iconKey;
  std::string_view caption;
  std::string_view rightKey;
};
inline constexpr CatalogueGroup kCatalogueGroup{"L00001011", "L00001011",
                                                "Įmonės, Bankai, Valiutos, Žinynai", "COMLayout"};

struct ComponentRow {
  std::string_view otype;
  std::string_view caption;
  std::string_view rightKey;
};
// The right components of the catalogue group, in registration order.
std::span<const ComponentRow> ComponentTable();

struct ObjectTypeRow {
  std::string_view otype;
  std::string_view caption;
};
// The object types this module serves, in registration order. The caption of
// "O0002400" ends in a blank, which the host has always been given.
std::span<const ObjectTypeRow> ObjectTypeTable();
// The display name of a registered type; nullopt for a type of another module.
std::optional<std::string_view> ObjectTypeName(std::string_view oid);

// The icon keys registered with AddObjectIcon, in order; AddIcon gets the
// same list after the group's own "L00001011" (drawn with the firm icon).
std::span<const std::string_view> RegisteredIconKeys();

// The component list of the rights editor, in order. Its spellings are the
// ones administrators have always seen ("Įmomės", "peržūra", "Žyninai"):
// they are kept as they are.
std::span<const SecurityRow> SecurityTable();

}  // namespace orvel
