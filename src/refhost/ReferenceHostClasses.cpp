#include "refhost/ReferenceHostClasses.h"

#include "hostkit/ComponentRegistry.h"
#include "refhost/Prompter.h"
#include "refhost/TerminalPickers.h"

namespace orvel {

std::shared_ptr<OrvelComponentRegistry> ReferenceHostClasses::NewComponentRegistry() {
  return std::make_shared<ComponentRegistry>(catalogue_);
}

std::shared_ptr<OrvelGroupSelect> ReferenceHostClasses::NewGroupSelect() {
  return std::make_shared<TerminalGroupSelect>(prompter_, objects_);
}

std::shared_ptr<OrvelObjectSelect> ReferenceHostClasses::NewObjectSelect() {
  return std::make_shared<TerminalObjectSelect>(prompter_);
}

std::shared_ptr<OrvelPrintDoc> ReferenceHostClasses::NewPrintDoc() {
  if (renderer_) return std::make_shared<PrintDocument>(renderer_);
  return std::make_shared<PrintDocument>([this](const PrintDocument::Content& content, bool) {
    prompter_.Say(RenderAsText(content));
  });
}

}  // namespace orvel
