#include <gtest/gtest.h>

#include "host/ParamList.h"

namespace orvel {
namespace {

struct SplitCase {
  std::string param;
  std::optional<std::vector<std::string>> args;
};

class SplitParamsTest : public ::testing::TestWithParam<SplitCase> {};

TEST_P(SplitParamsTest, Splits) { EXPECT_EQ(SplitParams(GetParam().param), GetParam().args); }

using Args = std::vector<std::string>;

INSTANTIATE_TEST_SUITE_P(
    Params, SplitParamsTest,
    ::testing::Values(SplitCase{"", Args{}}, SplitCase{"   ", Args{}},
                      SplitCase{"'O00003005'", Args{"O00003005"}},
                      SplitCase{"O00003005", Args{"O00003005"}},
                      SplitCase{"'O0000300',''", Args{"O0000300", ""}},
                      SplitCase{"'O0000300','seb',1,0", Args{"O0000300", "seb", "1", "0"}},
                      SplitCase{" 'a' , 12 ,'b' ", Args{"a", "12", "b"}},
                      // Nothing is escaped: a text ends at the apostrophe that ends the argument.
                      SplitCase{"'O'Brien'", Args{"O'Brien"}},
                      SplitCase{"'a,b','c'", Args{"a,b", "c"}},
                      SplitCase{"'Šiaulių'", Args{"Šiaulių"}}, SplitCase{"1,", Args{"1", ""}},
                      SplitCase{"'open", std::nullopt}, SplitCase{"'a'b", std::nullopt},
                      SplitCase{"'", std::nullopt}));

}  // namespace
}  // namespace orvel
