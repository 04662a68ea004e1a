#include "json/jsonLocator.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using namespace qvToolkit;

/// The columns at which the pointers lead in a text of one line; 0 where they lead nowhere.
std::vector<std::uint64_t> locate(std::string const& text, std::vector<std::string> const& pointers) {
  Findings findings;
  for (std::string const& pointer : pointers) {
    findings.emplace_back();
    findings.back().m_place.m_jsonPointer = pointer;
  }
  locateFindings(text, findings);
  std::vector<std::uint64_t> columns;
  for (Finding const& finding : findings) columns.push_back(finding.m_place.m_column.value_or(0));
  for (std::size_t i = 0; i < pointers.size(); ++i) EXPECT_EQ(findings[i].m_place.m_jsonPointer, pointers[i]);
  return columns;
}

using Columns = std::vector<std::uint64_t>;

TEST(JsonLocator, FindsElementsAndMembers) {
  std::string const text = R"({"a":[1,{"b":"]}"},[[2]]],"c":{"d":null}})";
  EXPECT_EQ(locate(text, {"/a", "/a/0", "/a/1", "/a/1/b", "/a/2/0/0", "/c/d"}),
            (Columns{6, 7, 9, 14, 22, 36}));
}

TEST(JsonLocator, LeavesFindingsWhosePointerLeadsNowhere) {
  EXPECT_EQ(locate("[1,[2]]", {"/2", "/0/0", "/1/x", "/1/0"}), (Columns{0, 0, 0, 5}));
}

TEST(JsonLocator, TakesTheLastOfEqualKeys) {
  EXPECT_EQ(locate(R"({"a":1,"a":2})", {"/a"}), Columns{12});
}

TEST(JsonLocator, ComparesKeysWithoutTheirEscapes) {
  EXPECT_EQ(locate(R"({"a\/b":1,"\u00e9~\n":2,"\ud83d\ude00":3})", {"/a~1b", "/\u00e9~0\n", "/\U0001F600"}),
            (Columns{9, 23, 40}));
}

TEST(JsonLocator, StepsOverEscapesInStrings) {
  EXPECT_EQ(locate(R"(["\"]\\",{"x":"\\\"","y":[]}])", {"/1/y"}), Columns{26});
}

TEST(JsonLocator, CountsLinesAndSkipsAByteOrderMark) {
  Findings findings(1);
  findings[0].m_place.m_jsonPointer = "/1";
  locateFindings("\xEF\xBB\xBF[1,\n  2]", findings);
  EXPECT_EQ(findings[0].m_place.m_line, 2U);
  EXPECT_EQ(findings[0].m_place.m_column, 3U);
  EXPECT_EQ(findings[0].m_place.m_byteOffset, 9U);
}

TEST(JsonLocator, KeepsAPlaceThatIsKnown) {
  Findings findings(1);
  findings[0].m_place = {7, 3, 2, "/0"};
  locateFindings("[1]", findings);
  EXPECT_EQ(findings[0].m_place.m_line, 3U);
}

}  // namespace
