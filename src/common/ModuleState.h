#pragma once

#include <map>
#include <memory>
#include <typeindex>

namespace orvel {

class OrvelHostClasses;
class OrvelServices;
class Ui;

// The module's state, held once for the whole module: what the host lends it
// when it loads it (its classes and Ui, see Platform; its services, see
// OrvelS) and the pieces a window opens or calls that a host or a test may
// replace: the detail dialog, the goods dialogs, the rate service's client
// and settings, each kept here by the layer that owns its type.
//
// Setting a piece replaces it; a piece that holds values (the rate service's
// settings) is never changed in place. A copy of the state is therefore a
// snapshot of what is in force, and ModuleState::Scope puts a whole snapshot
// back, whatever a test or a nested host set in between.
class ModuleState {
 public:
  std::shared_ptr<OrvelHostClasses> classes;
  std::shared_ptr<orvel::Ui> ui;
  std::shared_ptr<OrvelServices> services;

  // The piece of type T; null when none is set.
  template <class T>
  std::shared_ptr<T> Piece() const {
    auto found = pieces_.find(std::type_index(typeid(T)));
    return found == pieces_.end() ? nullptr : std::static_pointer_cast<T>(found->second);
  }
  // Sets the piece of type T (null clears it); returns the one it replaced.
  template <class T>
  std::shared_ptr<T> SetPiece(std::shared_ptr<T> piece) {
    auto previous = Piece<T>();
    if (piece) {
      pieces_[std::type_index(typeid(T))] = std::move(piece);
    } else {
      pieces_.erase(std::type_index(typeid(T)));
    }
    return previous;
  }

  // Saves the module's whole state and puts it back when it ends.
  class Scope {
   public:
    Scope();
    ~Scope();
    Scope(const Scope&) = delete;
    Scope& operator=(const Scope&) = delete;

   private:
    std::unique_ptr<ModuleState> saved_;
  };

 private:
  std::map<std::type_index, std::shared_ptr<void>> pieces_;
};

// The state in force.
ModuleState& TheModuleState();

}  // namespace orvel
