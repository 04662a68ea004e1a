#include <gtest/gtest.h>

#include "annotationLegacy/qvAnnotationRaster.h"
#include "annotationLegacy/qvAnnotationText.h"
#include "tests/readers/variant/variants.h"

/// The version check of the text and raster readers themselves. The shared reader refuses the same versions
/// first, so this executable's own stands in for it and lets everything pass.
bool qvLegacy::qvAnnotationInterface::loadFromVariant(qv::qvVariant::qvVariantMapImpl const&,
                                                      qv::qvStreamVersion const&, std::vector<std::string>&) {
  return true;
}

namespace {

using namespace readersTest;

template <class Annotation>
void expectItsOwnVersionCheck() {
  Annotation older;
  Outcome const refused = read(older, {{"text", "x"}, {"rastername", "x"}}, v6_16);
  EXPECT_FALSE(refused.isRead);
  EXPECT_EQ(refused.messages, Messages{"invalid version for text annotation"});
  Annotation newer;
  Outcome const accepted = read(newer, {}, v6_17);
  EXPECT_TRUE(accepted.isRead);
  EXPECT_TRUE(accepted.messages.empty());
}

TEST(RetiredVersion, IsRefusedByTheTextReaderItself) {
  expectItsOwnVersionCheck<qvLegacy::qvAnnotationText>();
}

TEST(RetiredVersion, IsRefusedByTheRasterReaderWithTheTextsMessage) {
  expectItsOwnVersionCheck<qvLegacy::qvAnnotationRaster>();
}

}  // namespace
