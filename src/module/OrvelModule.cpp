#include "module/TheModule.h"

#include "common/Catalogue.h"
#include "common/Platform.h"
#include "module/ClassFactory.h"

namespace orvel {

namespace {

class LoadedModule final : public OrvelModule {
 public:
  void Attach(std::shared_ptr<OrvelHostClasses> classes, std::shared_ptr<Ui> ui) override {
    Platform::Attach(std::move(classes), std::move(ui));
  }

  std::shared_ptr<Object> CreateObject(const std::string& className) override {
    try {
      return ClassFactory::Create(className);
    } catch (...) {
      return nullptr;
    }
  }

  void Detach() override {
    ResetOrvelS();
    Platform::Detach();
  }
};

}  // namespace

OrvelModule& TheModule() {
  static LoadedModule module;
  return module;
}

}  // namespace orvel
