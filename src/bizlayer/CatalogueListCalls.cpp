// The list calls of the firm and goods catalogues: the standard
// "Orvel_GetObjectList" with the catalogue's list settings and the search
// options of the host's search dialog behind the OIDR and the text.
//
// Firms send
//   '<OIDR>'[,'<text>']                     every member (a refresh, a picker)
//   '<OIDR>','',<Active>,<NotActive>,<CodeMode>
//                                           a group's members by the settings
//   '','<text>',<F>,<S>                     a search through the whole type
// and goods, always with nine arguments (or the first two alone),
//   '<OIDR>','',<Active>,<NotActive>,<Code>,'<warehouse OIDR>',<ByWarehouse>,<ByCode>,<WithRest>
//   '','<text>',<F>,<S>,<Code>,'<warehouse OIDR>',<ByWarehouse>,<ByCode>,<WithRest>
// A search sends its two options where the list sends Active and NotActive,
// so a text tells which of the two came. F says where the text is looked
// for: 0 the name, 1 the code; S how: 0 anywhere in it, 1 at its start. A
// search shows records in use and out of use alike. Settings that ask for
// neither show those in use, as the settings dialog then shows them.
#include <charconv>
#include <string>

#include "bizlayer/CallArgs.h"
#include "bizlayer/CatalogueCalls.h"
#include "bizlayer/TableBusinessObject.h"
#include "host/Convert.h"
#include "host/MemoryRecordset.h"
#include "orvel/RuntimeError.h"

namespace orvel {

namespace {

using Args = TableBusinessObject::Args;
using Options = TableBusinessObject::ListOptions;

constexpr const char* kWarehouses = "O0001605";

[[noreturn]] void Refuse(const std::string& text) {
  throw RuntimeError(TableBusinessObject::kBadCall, text);
}

// A whole number from 0 to `highest`, blanks around allowed.
int Choice(const std::string& text, int highest, const char* refusal) {
  const size_t first = text.find_first_not_of(' ');
  const size_t last = text.find_last_not_of(' ');
  int value = -1;
  if (first != std::string::npos) {
    const char* begin = text.data() + first;
    const char* end = text.data() + last + 1;
    auto [stop, ec] = std::from_chars(begin, end, value);
    if (ec != std::errc() || stop != end) value = -1;
  }
  if (value < 0 || value > highest) Refuse(refusal + text);
  return value;
}

constexpr const char* kBadSetting = "Netinkamas sąrašo nustatymas: ";
constexpr const char* kBadOption = "Netinkama paieškos parinktis: ";

bool Flag(const std::string& text) { return Choice(text, 1, kBadSetting) == 1; }

void Search(const std::string& where, const std::string& how, Options& options) {
  options.searchCode = Choice(where, 1, kBadOption) == 1;
  options.searchFromStart = Choice(how, 1, kBadOption) == 1;
}

void Shown(const std::string& active, const std::string& inactive, Options& options) {
  options.active = Flag(active);
  options.inactive = Flag(inactive);
  if (!options.active && !options.inactive) options.active = true;
}

std::string ListOidr(const TableBusinessObject& object, const Args& args) {
  return args.empty() ? object.Catalogue().oid : args[0];
}

void RefuseCount(const Args& args) {
  Refuse("Netinkamas sąrašo nustatymų skaičius: " + std::to_string(args.size() - 2));
}

// The type word of a goods row, which the goods adapters turn into its
// icon: a group, a service or a good, with "NA" when it is out of use.
constexpr const char* kGoodsOtype =
    "CASE WHEN GroupFlag = 1 THEN CASE WHEN COALESCE(Active, 1) <> 0 THEN 'Group' ELSE 'GroupNA'"
    " END WHEN GoodType = 1 THEN CASE WHEN COALESCE(Active, 1) <> 0 THEN 'Service'"
    " ELSE 'ServiceNA' END WHEN COALESCE(Active, 1) <> 0 THEN 'GEXIST' ELSE 'GoodNA' END AS Otype";

// The warehouse's name, which the lots of the goods carry in Store.
std::string WarehouseName(TableBusinessObject& goods, const std::string& oidr) {
  const std::string oid = kWarehouses;
  int64_t id = 0;
  const char* first = oidr.data() + oid.size();
  const char* last = oidr.data() + oidr.size();
  if (oidr.size() <= oid.size() || oidr.compare(0, oid.size(), oid) != 0 || *first == '0' ||
      std::from_chars(first, last, id).ptr != last) {
    Refuse(kBadSetting + oidr);
  }
  auto rs = goods.Query("SELECT Name FROM book_locations WHERE ID = ? AND GroupFlag = 0",
                        {Variant(id)});
  if (rs->RecordCount() == 0) Refuse("Sandėlis nerastas: " + oidr);
  return ConcatText(rs->Fields("Name").Value());
}

}  // namespace

void AddFirmListCall(TableBusinessObject& firms) {
  firms.OnRead("Orvel_GetObjectList", [&firms](const Args& args) {
    Options options;
    if (args.size() == 4) {
      Search(args[2], args[3], options);
    } else if (args.size() == 5) {
      Shown(args[2], args[3], options);
      // 0 no code, by name; 1 the code shown, by name; 2 the code shown, by code.
      options.byCode = Choice(args[4], 2, kBadSetting) == 2;
    } else if (args.size() > 2) {
      RefuseCount(args);
    }
    return firms.GetObjectList(ListOidr(firms, args), callargs::At(args, 1), options);
  });
}

void AddGoodsListCall(TableBusinessObject& goods) {
  goods.OnRead("Orvel_GetObjectList", [&goods](const Args& args) {
    Options options;
    options.columns = kGoodsOtype;
    const std::string& text = callargs::At(args, 1);
    if (args.size() == 9) {
      if (text.empty()) {
        Shown(args[2], args[3], options);
      } else {
        Search(args[2], args[3], options);
      }
      Flag(args[4]);  // the code column is the window's matter
      const bool byWarehouse = Flag(args[6]);
      options.byCode = Flag(args[7]);
      const bool withRest = Flag(args[8]);
      // No warehouse chosen is every warehouse.
      const std::string store =
          byWarehouse && !args[5].empty() ? WarehouseName(goods, args[5]) : std::string();
      const bool restricted = !store.empty();
      // A good in the warehouse is one whose lots went through it; with rest
      // it still holds some there.
      if (withRest) {
        options.memberCondition =
            std::string("(SELECT SUM(l.Rest) FROM document_lines l WHERE l.GoodID = goods.ID") +
            (restricted ? " AND l.Store = ?" : "") + ") > 0";
      } else if (restricted) {
        options.memberCondition =
            "EXISTS (SELECT 1 FROM document_lines l WHERE l.GoodID = goods.ID AND l.Store = ?)";
      }
      if (restricted) options.memberValues.emplace_back(store);
    } else if (args.size() > 2) {
      RefuseCount(args);
    }
    return goods.GetObjectList(ListOidr(goods, args), text, options);
  });
}

}  // namespace orvel
