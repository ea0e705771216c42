#pragma once

#include <memory>
#include <type_traits>
#include <vector>

#include "ui/Form.h"
#include "ui/Menu.h"

namespace orvel {

// A test form whose controls are made, captioned and registered in one line
// each, in the order they are declared:
//   Label& lblCode = Add<Label>("lblCode", "Kodas:");
class BuiltForm : public Form {
 public:
  using Form::Form;

  template <class C>
  C& Add(const char* name, const char* caption = nullptr) {
    std::unique_ptr<C> made;
    if constexpr (std::is_same_v<C, Menu>) {
      made = std::make_unique<C>(name, caption ? caption : "");
    } else {
      made = std::make_unique<C>(name);
      if constexpr (requires { made->SetCaption(""); }) {
        if (caption) made->SetCaption(caption);
      }
    }
    C& control = *made;
    owned_.push_back(std::move(made));
    Register(control);
    return control;
  }

 private:
  std::vector<std::unique_ptr<Control>> owned_;
};

}  // namespace orvel
