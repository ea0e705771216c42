#pragma once

#include <memory>

#include "adapters/ObjectUIAdapter.h"
#include "adapters/ObjectUIOAdapter.h"

// The adapter pairs of the small catalogues: types that the host lists and
// other modules read, but that add nothing to the shared contract. They
// offer no menu, act on no key, have no window and answer Properties and
// Methods with a zero result. They differ only in their icon table. Units of
// measure, firm parameters and template types show the goods icon, as they
// always have. The twenty classes are one table, so they share this header.
namespace orvel {

template <class Instance>
class SmallObjectUI : public ObjectUIAdapter {
 protected:
  using ObjectUIAdapter::ObjectUIAdapter;
  std::shared_ptr<OrvelObjectUIO> NewInstance() override { return std::make_shared<Instance>(); }
};

// "O0000400": units of measure.
class UIO0000400 final : public ObjectUIOAdapter {};
class UI0000400 final : public SmallObjectUI<UIO0000400> {
 public:
  UI0000400() : SmallObjectUI({{"C", "C0000200"}}) {}
};

// "O0000500": firm accounts.
class UIO0000500 final : public ObjectUIOAdapter {};
class UI0000500 final : public SmallObjectUI<UIO0000500> {
 public:
  UI0000500() : SmallObjectUI({{"C", "C0000500"}}) {}
};

// "O0000600": prices.
class UIO0000600 final : public ObjectUIOAdapter {};
class UI0000600 final : public SmallObjectUI<UIO0000600> {
 public:
  UI0000600() : SmallObjectUI({{"C", "stdClose"}}) {}
};

// "O0000700": minimum amounts.
class UIO0000700 final : public ObjectUIOAdapter {};
class UI0000700 final : public SmallObjectUI<UIO0000700> {
 public:
  UI0000700() : SmallObjectUI({{"C", "stdClose"}}) {}
};

// "O0000800": goods template types.
class UIO0000800 final : public ObjectUIOAdapter {};
class UI0000800 final : public SmallObjectUI<UIO0000800> {
 public:
  UI0000800() : SmallObjectUI({{"C", "C0000200"}}) {}
};

// "O0002000": firm addresses.
class UIO0002000 final : public ObjectUIOAdapter {};
class UI0002000 final : public SmallObjectUI<UIO0002000> {
 public:
  UI0002000() : SmallObjectUI({}) {}
};

// "O0002100": firm contacts.
class UIO0002100 final : public ObjectUIOAdapter {};
class UI0002100 final : public SmallObjectUI<UIO0002100> {
 public:
  UI0002100() : SmallObjectUI({}) {}
};

// "O0002300": firm parameters.
class UIO0002300 final : public ObjectUIOAdapter {};
class UI0002300 final : public SmallObjectUI<UIO0002300> {
 public:
  UI0002300() : SmallObjectUI({{"C", "C0000200"}}) {}
};

// "O0002400": managers responsible for a firm.
class UIO0002400 final : public ObjectUIOAdapter {};
class UI0002400 final : public SmallObjectUI<UIO0002400> {
 public:
  UI0002400() : SmallObjectUI({}) {}
};

// "O0002500": firm activity kinds.
class UIO0002500 final : public ObjectUIOAdapter {};
class UI0002500 final : public SmallObjectUI<UIO0002500> {
 public:
  UI0002500() : SmallObjectUI({}) {}
};

}  // namespace orvel
