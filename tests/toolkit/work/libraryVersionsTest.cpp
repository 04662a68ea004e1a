#include "qvToolkit/work/libraryVersions.h"

#include <gtest/gtest.h>

#include <regex>

namespace qvToolkit {

namespace {

TEST(LibraryVersions, NameEachLibraryOnceAndThoseOfTheTextLayoutFirst) {
  std::vector<std::string> names;
  for (LibraryVersion const& library : listLibraryVersions()) {
    names.push_back(library.m_name);
    EXPECT_TRUE(std::regex_match(library.m_version, std::regex(R"(\d+(\.\d+)+)"))) << library.m_version;
  }
  EXPECT_EQ(names, (std::vector<std::string>{"HarfBuzz", "fontconfig", "FriBidi", "simdjson", "nettle"}));
}

}  // namespace

}  // namespace qvToolkit
