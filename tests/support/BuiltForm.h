#pragma once

#include <memory>
#include <vector>

#include "ui/Form.h"

namespace orvel {

// A test form whose controls are made, captioned and registered in one line
// each, in the order they are declared:
//   Label& lblCode = Add<Label>("lblCode", "Kodas:");
class BuiltForm : public Form {
 public:
  using Form::Form;

  template <class C>
  C& Add(const char* name, const char* caption = nullptr) {
    auto& control = static_cast<C&>(*owned_.emplace_back(std::make_unique<C>(name)));
    if constexpr (requires { control.SetCaption(""); }) {
      if (caption) control.SetCaption(caption);
    }
    Register(control);
    return control;
  }

 private:
  std::vector<std::unique_ptr<Control>> owned_;
};

}  // namespace orvel
