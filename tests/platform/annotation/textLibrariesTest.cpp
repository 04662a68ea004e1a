#include "qvAnnotation/textLibraries.h"

#include <gtest/gtest.h>

#include <regex>

namespace qv::text {
namespace {

TEST(TextLibraries, AreNamedWithTheVersionsThatAreLoaded) {
  std::vector<std::string_view> names;
  for (TextLibrary const& library : listTextLibraries()) {
    names.push_back(library.m_name);
    EXPECT_TRUE(std::regex_match(library.m_version, std::regex(R"(\d+\.\d+\.\d+)"))) << library.m_version;
  }
  EXPECT_EQ(names, (std::vector<std::string_view>{"HarfBuzz", "fontconfig", "FriBidi"}));
}

}  // namespace
}  // namespace qv::text
