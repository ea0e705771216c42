#pragma once

namespace orvel {

/// Base of every reference-counted thing that travels through a Variant or a
/// host interface: record sets, windows, adapters, pictures. "No object" is a
/// null std::shared_ptr<Object>.
class Object {
 public:
  virtual ~Object() = default;

 protected:
  Object() = default;
  Object(const Object&) = default;
  Object& operator=(const Object&) = default;
};

}  // namespace orvel
