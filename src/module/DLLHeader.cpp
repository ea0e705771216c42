#include "module/DLLHeader.h"

#include <string>

#include "common/Boundary.h"
#include "common/Platform.h"
#include "common/Registration.h"
#include "orvel/OrvelComponentRegistry.h"
#include "orvel/OrvelHostClasses.h"
#include "orvel/RuntimeError.h"
#include "module/IconResources.h"

namespace orvel {

namespace {

std::string Str(std::string_view s) { return std::string(s); }

std::shared_ptr<Picture> Icon(std::string_view resource) {
  auto picture = LoadIconResource(resource);
  if (!picture) {
    throw RuntimeError(RuntimeError::kItemNotFound,
                       "Nerastas paveikslėlio išteklius: " + std::string(resource));
  }
  return picture;
}

}  // namespace

OrvelStatus DLLHeader::DllInicialize() {
  return GuardedStatus([] { Register(); });
}

void DLLHeader::Register() {
  auto registry = Platform::Classes().NewComponentRegistry();
  if (!registry) {
    throw RuntimeError(RuntimeError::kInvalidCall, "Pagrindinė programa nepateikė registracijos objekto");
  }

  const auto& g = kCatalogueGroup;
  auto group = registry->AddGroup(Str(g.key), Str(g.iconKey), Str(g.caption), Str(g.rightKey));
  if (!group) {
    throw RuntimeError(RuntimeError::kInvalidCall,
                       "Pagrindinė programa nesukūrė komponentų grupės " + Str(g.key));
  }
  for (const auto& row : ComponentTable()) {
    auto component = group->AddComponent(Str(row.otype), Str(row.caption), Str(row.rightKey));
    if (!component) {
      throw RuntimeError(RuntimeError::kInvalidCall,
                         "Pagrindinė programa nesukūrė komponento " + Str(row.otype));
    }
    component->SetOType(Str(row.otype));
  }

  for (const auto& row : ObjectTypeTable()) {
    registry->AddObjectType(Str(kModuleName), Str(row.otype), Str(row.caption));
  }

  for (auto key : RegisteredIconKeys()) registry->AddObjectIcon(Str(key), Icon(key));

  // The group shares the firm icon.
  registry->AddIcon(Str(g.key), Icon("C0000100"));
  for (auto key : RegisteredIconKeys()) registry->AddIcon(Str(key), Icon(key));
}

}  // namespace orvel
