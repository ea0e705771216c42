#include "common/Registration.h"

#include <array>

namespace orvel {

namespace {

constexpr std::array kComponents{
    ComponentRow{"O0000100", "Įmonės", "CFirms"},
    ComponentRow{"O0000300", "Bankai", "CBanks"},
    ComponentRow{"O0002200", "Valiutos", "CCurrency"},
    ComponentRow{"O0001600", "Žinynai", "CReference"},
    ComponentRow{"O0100300", "Švenčių dienos", "CPersonalHolidays"},
};

constexpr std::array kObjectTypes{
    ObjectTypeRow{"O0000100", "Įmonės"},
    ObjectTypeRow{"O0000300", "Bankai"},
    ObjectTypeRow{"O0002200", "Valiutos"},
    ObjectTypeRow{"O0000500", "Sąskaita"},
    ObjectTypeRow{"O0000600", "Kainos"},
    ObjectTypeRow{"O0000700", "Minimalus kiekis"},
    ObjectTypeRow{"O0001600", "Žinynai"},
    ObjectTypeRow{"O0000200", "Atsargos"},
    ObjectTypeRow{"O0000400", "Atsargų matavimo vienetai"},
    ObjectTypeRow{"O0000800", "Atsargų šablonų tipai"},
    ObjectTypeRow{"O0002000", "Įmonių adresai"},
    ObjectTypeRow{"O0002100", "Įmonių kontaktai"},
    ObjectTypeRow{"O0002300", "Įmonių parametrai"},
    ObjectTypeRow{"O0002400", "Vadybininkai atsakingi už įmonės aptarnavimą "},
    ObjectTypeRow{"O0002500", "Įmonių veiklos rūšys"},
};

constexpr std::array<std::string_view, 12> kIconKeys{
    "C0000100", "FirmNA",   "C0000300", "C0000500", "C0002200", "C0001600",
    "C0001601", "C0000200", "GoodNA",   "GEXIST",   "Service",  "ServiceNA",
};

const std::array<SecurityRow, 14>& Security() {
  static const std::array<SecurityRow, 14> rows{{
      {"", "DLL|L00001011", "Įmonės, Bankai, Valiutos, Žinynai", 10},
      {"", "COMLayout", "Aplinkos peržūra", 2},
      {"", "CGoods", "Prekės", 2},
      {"CGoods", "CGoodsCH", "Pavadinimo keitimas", 2},
      {"CGoods", "CGoodsMIN", "Minimalaus kiekio tvarkymas", 2},
      {"CGoods", "CGoodsPT", "Kainos tvarkymas", 2},
      {"CGoods", "CGoodsBR", "Buchalterinių šablonų tvarkymas", 2},
      {"", "CFirms", "Įmonės", 2},
      {"CFirms", "CFirmsCode", "Įmomės kodo įvedimo kartojimas", 2},
      {"CFirms", "CFirmsCH", "Pavadinimo keitimas", 2},
      {"CFirms", "CFirmsAC", "Sąskaitų tvarkymas", 2},
      {"", "CBanks", "Bankai", 2},
      {"", "CCurrency", "Valiuta", 2},
      {"", "CReference", "Žyninai", 2},
  }};
  return rows;
}

}  // namespace

std::span<const ComponentRow> ComponentTable() { return kComponents; }

std::span<const ObjectTypeRow> ObjectTypeTable() { return kObjectTypes; }

std::optional<std::string_view> ObjectTypeName(std::string_view oid) {
  for (const auto& row : kObjectTypes) {
    if (row.otype == oid) return row.caption;
  }
  return std::nullopt;
}

std::span<const std::string_view> RegisteredIconKeys() { return kIconKeys; }

std::span<const SecurityRow> SecurityTable() { return Security(); }

}  // namespace orvel
