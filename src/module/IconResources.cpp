// The module's catalogue icons: 16x16 pixel art as XPM rows.
#include "module/IconResources.h"

#include <array>
#include <span>
#include <string_view>

#include "host/Text.h"

namespace orvel {

namespace {

struct IconResource {
  std::string_view name;
  std::span<const char* const> rows;
};

// The pictures are drawn one pixel row a line: keep them so.
// clang-format off
constexpr const char* kA00001000001[] = {
    "16 16 3 1",
    ". c None",
    "k c #8A6A1A",
    "y c #E8C25A",
    "................",
    "................",
    "................",
    ".yyyyyy.........",
    ".kkkkkkkkkkkkkk.",
    ".kyyyyyyyyyyyyk.",
    ".kyyyyyyyyyyyyk.",
    ".kyyyyyyyyyyyyk.",
    ".kyyyyyyyyyyyyk.",
    ".kyyyyyyyyyyyyk.",
    ".kyyyyyyyyyyyyk.",
    ".kyyyyyyyyyyyyk.",
    ".kyyyyyyyyyyyyk.",
    ".kkkkkkkkkkkkkk.",
    "................",
    "................",
};

constexpr const char* kC0000100[] = {
    "16 16 4 1",
    ". c None",
    "b c #3A6EA5",
    "k c #1E2E40",
    "y c #F2D16B",
    "................",
    "................",
    "...kkkkkkkkkk...",
    "...kbbbbbbbbk...",
    "...kbyybbyybk...",
    "...kbyybbyybk...",
    "...kbbbbbbbbk...",
    "...kbyybbyybk...",
    "...kbyybbyybk...",
    "...kbbbbbbbbk...",
    "...kbyybbyybk...",
    "...kbyybbyybk...",
    "...kbbbkkbbbk...",
    "...kbbbkkbbbk...",
    "...kkkkkkkkkk...",
    "................",
};

constexpr const char* kC0000200[] = {
    "16 16 5 1",
    ". c None",
    "k c #5A3A12",
    "o c #C8893A",
    "p c #E2B172",
    "t c #F5E6C8",
    "................",
    "................",
    "..kkkkkttkkkkk..",
    "..kppppttppppk..",
    "..kppppttppppk..",
    "..kkkkkttkkkkk..",
    "..koooottooook..",
    "..koooottooook..",
    "..koooottooook..",
    "..koooottooook..",
    "..koooottooook..",
    "..koooottooook..",
    "..koooottooook..",
    "..koooottooook..",
    "..kkkkkttkkkkk..",
    "................",
};

constexpr const char* kC0000300[] = {
    "16 16 3 1",
    ". c None",
    "r c #7A4E2D",
    "w c #D9D2C5",
    "................",
    ".......rr.......",
    ".....rrrrrr.....",
    "...rrrrrrrrrr...",
    ".rrrrrrrrrrrrrr.",
    ".rrrrrrrrrrrrrr.",
    "..ww.ww..ww.ww..",
    "..ww.ww..ww.ww..",
    "..ww.ww..ww.ww..",
    "..ww.ww..ww.ww..",
    "..ww.ww..ww.ww..",
    "..ww.ww..ww.ww..",
    "..ww.ww..ww.ww..",
    ".rrrrrrrrrrrrrr.",
    ".rrrrrrrrrrrrrr.",
    "................",
};

constexpr const char* kC0000500[] = {
    "16 16 4 1",
    ". c None",
    "b c #3A6EA5",
    "k c #404040",
    "w c #FFFFFF",
    "................",
    "...kkkkkkkkkk...",
    "...kwwwwwwwwk...",
    "...kwwwwwwwwk...",
    "...kwbbbbbbwk...",
    "...kwwwwwwwwk...",
    "...kwwwwwwwwk...",
    "...kwbbbbbbwk...",
    "...kwwwwwwwwk...",
    "...kwwwwwwwwk...",
    "...kwbbbbbbwk...",
    "...kwwwwwwwwk...",
    "...kwwwwwwwwk...",
    "...kwwwwwwwwk...",
    "...kkkkkkkkkk...",
    "................",
};

constexpr const char* kC0001600[] = {
    "16 16 4 1",
    ". c None",
    "k c #5A1E1E",
    "r c #A53A3A",
    "w c #F0E0C0",
    "................",
    "...kkrrrrrrrrr..",
    "...kkrrrrrrrrr..",
    "...kkrrrrrrrrr..",
    "...kkrwwwwwwrr..",
    "...kkrwwwwwwrr..",
    "...kkrrrrrrrrr..",
    "...kkrrrrrrrrr..",
    "...kkrrrrrrrrr..",
    "...kkrrrrrrrrr..",
    "...kkrrrrrrrrr..",
    "...kkrrrrrrrrr..",
    "...kkrrrrrrrrr..",
    "...kkrrrrrrrrr..",
    "...kkrrrrrrrrr..",
    "................",
};

constexpr const char* kC0001601[] = {
    "16 16 4 1",
    ". c None",
    "k c #1E4A4A",
    "t c #3A8A8A",
    "w c #F0E0C0",
    "................",
    "...kkttttttttt..",
    "...kkttttttttt..",
    "...kkttttttttt..",
    "...kktwwwwwwtt..",
    "...kktwwwwwwtt..",
    "...kkttttttttt..",
    "...kkttttttttt..",
    "...kkttttttttt..",
    "...kkttttttttt..",
    "...kkttttttttt..",
    "...kkttttttttt..",
    "...kkttttttttt..",
    "...kkttttttttt..",
    "...kkttttttttt..",
    "................",
};

constexpr const char* kC0002200[] = {
    "16 16 4 1",
    ". c None",
    "k c #7A5A00",
    "o c #F7D55C",
    "y c #E8B923",
    "................",
    ".....yyyyyy.....",
    "....yyyyyyyy....",
    "...yyyooooyyy...",
    "..yyookkkkooyy..",
    ".yyyokooooooyyy.",
    ".yyookoooooooyy.",
    ".yyokkkkkooooyy.",
    ".yyookoooooooyy.",
    ".yyokkkkkooooyy.",
    ".yyyokooooooyyy.",
    "..yyookkkkooyy..",
    "...yyyooooyyy...",
    "....yyyyyyyy....",
    ".....yyyyyy.....",
    "................",
};

constexpr const char* kFIRMNA[] = {
    "16 16 4 1",
    ". c None",
    "g c #A0A0A0",
    "k c #606060",
    "w c #E0E0E0",
    "................",
    "................",
    "...kkkkkkkkkk...",
    "...kggggggggk...",
    "...kgwwggwwgk...",
    "...kgwwggwwgk...",
    "...kggggggggk...",
    "...kgwwggwwgk...",
    "...kgwwggwwgk...",
    "...kggggggggk...",
    "...kgwwggwwgk...",
    "...kgwwggwwgk...",
    "...kgggkkgggk...",
    "...kgggkkgggk...",
    "...kkkkkkkkkk...",
    "................",
};

constexpr const char* kGEXIST[] = {
    "16 16 7 1",
    ". c None",
    "k c #5A3A12",
    "o c #C8893A",
    "p c #E2B172",
    "t c #F5E6C8",
    "v c #2E8B57",
    "w c #FFFFFF",
    "................",
    "................",
    "..kkkkkttkkkkk..",
    "..kppppttppppk..",
    "..kppppttppppk..",
    "..kkkkkttkkkkk..",
    "..koooottooook..",
    "..koooottooook..",
    "..koooottooook..",
    "..koooottooook..",
    "..koooottovvvvwv",
    "..koooottovvvwvv",
    "..koooottovwvwvv",
    "..koooottovwwvvv",
    "..kkkkkttkvvwvvv",
    "..........vvvvvv",
};

constexpr const char* kGOODNA[] = {
    "16 16 5 1",
    ". c None",
    "g c #A0A0A0",
    "k c #606060",
    "t c #E8E8E8",
    "w c #C8C8C8",
    "................",
    "................",
    "..kkkkkttkkkkk..",
    "..kwwwwttwwwwk..",
    "..kwwwwttwwwwk..",
    "..kkkkkttkkkkk..",
    "..kggggttggggk..",
    "..kggggttggggk..",
    "..kggggttggggk..",
    "..kggggttggggk..",
    "..kggggttggggk..",
    "..kggggttggggk..",
    "..kggggttggggk..",
    "..kggggttggggk..",
    "..kkkkkttkkkkk..",
    "................",
};

constexpr const char* kS[] = {
    "16 16 2 1",
    ". c None",
    "y c #E8B923",
    "................",
    ".......yy.......",
    ".......yy.......",
    "......yyyy......",
    ".yyyyyyyyyyyyyy.",
    "..yyyyyyyyyyyy..",
    "...yyyyyyyyyy...",
    "....yyyyyyyy....",
    "....yyyyyyyy....",
    "....yyyyyyyy....",
    "....yyyyyyyy....",
    "...yyyy..yyyy...",
    "....yy....yy....",
    "................",
    "................",
    "................",
};

constexpr const char* kSERVICE[] = {
    "16 16 2 1",
    ". c None",
    "s c #4F7F3F",
    ".......ss.......",
    "................",
    "......ssss......",
    "....ssssssss....",
    "...ssssssssss...",
    "...ssssssssss...",
    "..ssss....ssss..",
    "s.ssss....ssss.s",
    "s.ssss....ssss.s",
    "..ssss....ssss..",
    "...ssssssssss...",
    "...ssssssssss...",
    "....ssssssss....",
    "......ssss......",
    "................",
    ".......ss.......",
};

constexpr const char* kSERVICENA[] = {
    "16 16 2 1",
    ". c None",
    "g c #A0A0A0",
    ".......gg.......",
    "................",
    "......gggg......",
    "....gggggggg....",
    "...gggggggggg...",
    "...gggggggggg...",
    "..gggg....gggg..",
    "g.gggg....gggg.g",
    "g.gggg....gggg.g",
    "..gggg....gggg..",
    "...gggggggggg...",
    "...gggggggggg...",
    "....gggggggg....",
    "......gggg......",
    "................",
    ".......gg.......",
};

// Keyed by upper-case name, as the resources have always been stored.
constexpr std::array<IconResource, 14> kResources{{
    {"A00001000001", kA00001000001},
    {"C0000100", kC0000100},
    {"C0000200", kC0000200},
    {"C0000300", kC0000300},
    {"C0000500", kC0000500},
    {"C0001600", kC0001600},
    {"C0001601", kC0001601},
    {"C0002200", kC0002200},
    {"FIRMNA", kFIRMNA},
    {"GEXIST", kGEXIST},
    {"GOODNA", kGOODNA},
    {"S", kS},
    {"SERVICE", kSERVICE},
    {"SERVICENA", kSERVICENA},
}};
// clang-format on

}  // namespace

std::shared_ptr<Picture> LoadIconResource(std::string_view name) {
  for (const auto& resource : kResources) {
    if (TextEquals(resource.name, name)) {
      return std::make_shared<Picture>(
          std::string(resource.name),
          std::vector<std::string>(resource.rows.begin(), resource.rows.end()));
    }
  }
  return nullptr;
}

std::vector<std::string> IconResourceNames() {
  std::vector<std::string> names;
  for (const auto& resource : kResources) names.emplace_back(resource.name);
  return names;
}

}  // namespace orvel
