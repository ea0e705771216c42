#include <gtest/gtest.h>

#include "orvel/OrvelObjectUI.h"
#include "orvel/OrvelObjectUIO.h"
#include "orvel/OrvelWindow.h"
#include "module/ClassFactory.h"

namespace orvel {
namespace {

TEST(ClassFactory, CreatesTheListWindowAsAHostWindow) {
  EXPECT_NE(std::dynamic_pointer_cast<OrvelWindow>(ClassFactory::Create("frmReferenceBookPreview")),
            nullptr);
}

TEST(ClassFactory, CreatesEveryAdapterAsItsInterfaceAndAFreshObjectEachTime) {
  for (const auto& name : ClassFactory::ClassNames()) {
    auto object = ClassFactory::Create(name);
    ASSERT_NE(object, nullptr) << name;
    EXPECT_NE(object, ClassFactory::Create(name)) << name;
    if (name.rfind("UIO", 0) == 0) {
      EXPECT_NE(std::dynamic_pointer_cast<OrvelObjectUIO>(object), nullptr) << name;
    } else if (name.rfind("UI", 0) == 0) {
      EXPECT_NE(std::dynamic_pointer_cast<OrvelObjectUI>(object), nullptr) << name;
    }
  }
}

TEST(ClassFactory, UnknownNamesGiveNoObject) {
  EXPECT_EQ(ClassFactory::Create("UI9999999"), nullptr);
  EXPECT_EQ(ClassFactory::Create("dllheader"), nullptr);
  EXPECT_EQ(ClassFactory::Create(""), nullptr);
}

}  // namespace
}  // namespace orvel
