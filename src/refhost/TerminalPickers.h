#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "orvel/OrvelGroupSelect.h"
#include "orvel/OrvelObjectSelect.h"

namespace orvel {

class OrvelObjectManager;
class Prompter;

// The group picker of the terminal host: lists the groups of the root type,
// depth first and indented, and asks for one.
class TerminalGroupSelect : public OrvelGroupSelect {
 public:
  TerminalGroupSelect(Prompter& prompter, std::shared_ptr<OrvelObjectManager> objects)
      : prompter_(prompter), objects_(std::move(objects)) {}

  std::string ResultName() override { return resultName_; }
  void SetCaption(const std::string& caption) override { caption_ = caption; }
  void Show() override;
  void SetRootOType(const std::string& otype) override { root_ = otype; }
  void SetSelectKind(const std::string& kind) override { kind_ = kind; }
  std::string ResultOIDR() override { return resultOidr_; }
  std::string ResultOType() override { return resultOType_; }
  void SetOType(const std::string& otype) override { otype_ = otype; }
  void SetExcludeTypes(const std::string& types) override { exclude_ = types; }

 private:
  Prompter& prompter_;
  std::shared_ptr<OrvelObjectManager> objects_;
  std::string caption_, root_, kind_, otype_, exclude_;
  std::string resultName_, resultOidr_, resultOType_;
};

// The search dialog of the terminal host: asks for the text to look for.
class TerminalObjectSelect : public OrvelObjectSelect {
 public:
  explicit TerminalObjectSelect(Prompter& prompter) : prompter_(prompter) {}

  void SetColumnCaption(const std::string& caption) override { caption_ = caption; }
  void SetOType(const std::string&) override {}
  void SetMultiSelect(bool) override {}
  uint8_t SearchOption1() override { return 0; }
  uint8_t SearchOption2() override { return 0; }
  std::string Show() override;

 private:
  Prompter& prompter_;
  std::string caption_ = "Paieška";
};

}  // namespace orvel
