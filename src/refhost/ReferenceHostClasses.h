#pragma once

#include <memory>

#include "orvel/OrvelHostClasses.h"
#include "hostkit/PrintDocument.h"

namespace orvel {

class OrvelObjectManager;
class Prompter;
struct RegisteredCatalogue;

// The creatable classes of the terminal host: registration into the host's
// catalogue, the terminal pickers, and print documents rendered as text
// through the Prompter.
class ReferenceHostClasses : public OrvelHostClasses {
 public:
  ReferenceHostClasses(Prompter& prompter, std::shared_ptr<RegisteredCatalogue> catalogue)
      : prompter_(prompter), catalogue_(std::move(catalogue)) {}

  void SetObjectManager(std::shared_ptr<OrvelObjectManager> objects) {
    objects_ = std::move(objects);
  }
  // What a print document does with a finished printout; by default it is
  // written out as text.
  void SetPrintRenderer(PrintDocument::Renderer renderer) { renderer_ = std::move(renderer); }

  std::shared_ptr<OrvelComponentRegistry> NewComponentRegistry() override;
  std::shared_ptr<OrvelGroupSelect> NewGroupSelect() override;
  std::shared_ptr<OrvelObjectSelect> NewObjectSelect() override;
  std::shared_ptr<OrvelPrintDoc> NewPrintDoc() override;

 private:
  Prompter& prompter_;
  std::shared_ptr<RegisteredCatalogue> catalogue_;
  std::shared_ptr<OrvelObjectManager> objects_;
  PrintDocument::Renderer renderer_;
};

}  // namespace orvel
