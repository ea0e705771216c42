#include "module/ClassFactory.h"

#include <functional>
#include <map>

#include "adapters/SmallAdapters.h"
#include "adapters/UI0000100.h"
#include "adapters/UI0000200.h"
#include "adapters/UI0000300.h"
#include "adapters/UI0001600.h"
#include "adapters/UI0002200.h"
#include "lists/frmReferenceBookPreview.h"
#include "module/DLLHeader.h"
#include "module/SecurityHeader.h"

namespace orvel {

namespace {

using Creator = std::function<std::shared_ptr<Object>()>;

template <class T>
Creator Make() {
  return [] { return std::make_shared<T>(); };
}

const std::map<std::string, Creator, std::less<>>& Classes() {
  static const std::map<std::string, Creator, std::less<>> classes{
      {"DLLHeader", Make<DLLHeader>()},
      {"SecurityHeader", Make<SecurityHeader>()},
      // The list window of any type, for hosts that show a type's table.
      {"frmReferenceBookPreview", Make<frmReferenceBookPreview>()},
      {"UI0000100", Make<UI0000100>()},
      {"UIO0000100", Make<UIO0000100>()},
      {"UI0000200", Make<UI0000200>()},
      {"UIO0000200", Make<UIO0000200>()},
      {"UI0000300", Make<UI0000300>()},
      {"UIO0000300", Make<UIO0000300>()},
      {"UI0001600", Make<UI0001600>()},
      {"UIO0001600", Make<UIO0001600>()},
      {"UI0002200", Make<UI0002200>()},
      {"UIO0002200", Make<UIO0002200>()},
      {"UI0000400", Make<UI0000400>()},
      {"UIO0000400", Make<UIO0000400>()},
      {"UI0000500", Make<UI0000500>()},
      {"UIO0000500", Make<UIO0000500>()},
      {"UI0000600", Make<UI0000600>()},
      {"UIO0000600", Make<UIO0000600>()},
      {"UI0000700", Make<UI0000700>()},
      {"UIO0000700", Make<UIO0000700>()},
      {"UI0000800", Make<UI0000800>()},
      {"UIO0000800", Make<UIO0000800>()},
      {"UI0002000", Make<UI0002000>()},
      {"UIO0002000", Make<UIO0002000>()},
      {"UI0002100", Make<UI0002100>()},
      {"UIO0002100", Make<UIO0002100>()},
      {"UI0002300", Make<UI0002300>()},
      {"UIO0002300", Make<UIO0002300>()},
      {"UI0002400", Make<UI0002400>()},
      {"UIO0002400", Make<UIO0002400>()},
      {"UI0002500", Make<UI0002500>()},
      {"UIO0002500", Make<UIO0002500>()},
  };
  return classes;
}

}  // namespace

std::shared_ptr<Object> ClassFactory::Create(std::string_view className) {
  auto it = Classes().find(className);
  if (it == Classes().end()) return CreateReferenceBookAdapter(className);  // every book
  return it->second();
}

std::vector<std::string> ClassFactory::ClassNames() {
  std::vector<std::string> names;
  for (const auto& [name, creator] : Classes()) names.push_back(name);
  return names;
}

}  // namespace orvel
