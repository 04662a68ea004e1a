#include "qvToolkit/model/legacyCounts.h"

#include "tests/support/exportSupport.h"
#include "tests/support/openTest.h"

namespace {

using namespace qvToolkit;

class LegacyCountsTest : public OpenTest {
 protected:
  static LegacyCounts count(std::string const& members) {
    Document const document = read(makeView("6.22", members));
    return countView(*document.m_views.at(0).m_view);
  }
};

TEST_F(LegacyCountsTest, TellTheOwnAnnotationsOfAViewFromThoseBelowThem) {
  LegacyCounts expected;
  expected.m_annotations = 2;
  expected.m_children = 3;
  expected.m_depth = 2;
  expected.m_leaders = 1;
  expected.m_lines = 4;
  expected.m_measures = 1;
  expected.m_ownProperties = 1;
  expected.m_raster = 1;
  expected.m_segments = 5;
  expected.m_text = 1;
  expected.m_textBytes = 13;
  EXPECT_EQ(count(R"("annotations":[
      {"type":"text","text":"one\ntwo","leaders":[{"pos":[1,2,3]}],
       "children":[{"type":"raster","rastername":"img.png"},
                   {"type":"text","lines":[[{"text":"b","bold":true},{"text":"cd"}]],
                    "children":[{"type":"text","text":"deep"}]}]},
      {"type":"raster","measures":[{"A":[0,0,0],"B":[1,0,0],"V":[0,1,0]}]}])"),
            expected);
}

TEST_F(LegacyCountsTest, AreZeroForAViewOfNothing) {
  EXPECT_EQ(count(R"("annotations":[])"), LegacyCounts());
}

TEST_F(LegacyCountsTest, CountEmptyEntriesAndSharedAnnotationsAtEachPlace) {
  qvLegacy::qvAnnotationView view;
  qv::qvPointer<qvLegacy::qvAnnotationText> const shared = new qvLegacy::qvAnnotationText;
  shared->editSubAnnots().emplace_back();
  for (auto* const annotation : {shared.get(), shared.get()}) view.m_annotations.emplace_back(annotation);
  view.m_annotations.emplace_back(nullptr);
  LegacyCounts expected;
  expected.m_annotations = 3;
  expected.m_children = 2;
  expected.m_depth = 1;
  expected.m_text = 2;
  EXPECT_EQ(countView(view), expected);
}

}  // namespace
