#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "annotationLegacy/qvAnnotationText.h"

namespace {

using TextProperties = qvLegacy::qvAnnotationText::TextProperties;

TEST(TextProperties, AreArialOfHeightOneByDefault) {
  TextProperties const properties;
  EXPECT_EQ(properties.m_fontName, "Arial");
  EXPECT_EQ(properties.m_height, 100);
  EXPECT_EQ(properties.m_styleFlags, 0);
}

TEST(TextProperties, MadeFromFontAndHeightHaveNoStyle) {
  TextProperties const properties("Some Font", 12.5F);
  EXPECT_EQ(properties.m_fontName, "Some Font");
  EXPECT_EQ(properties.m_height, 1250);
  EXPECT_EQ(properties.m_styleFlags, 0);
}

TEST(TextProperties, CopiesCarryAllStyleBits) {
  TextProperties source("F", 2.0F);
  source.m_styleFlags = 0xFFFD;
  TextProperties copy(source);
  EXPECT_EQ(copy.m_styleFlags, 0xFFFD);
  TextProperties const& same = copy;
  copy = same;
  EXPECT_EQ(copy.m_fontName, "F");
  EXPECT_EQ(copy.m_height, 200);
}

TEST(TextHeight, IsCutToHundredthsInSinglePrecision) {
  struct Case {
    float m_height;
    int m_hundredths;
  };
  for (Case const& c : {Case{12.5F, 1250}, Case{1.0F, 100}, Case{1.1F, 110}, Case{0.29F, 29}, Case{0.57F, 57},
                        Case{1.15F, 115}, Case{4.35F, 435}, Case{8.2F, 820}, Case{9.95F, 995},
                        Case{0.004F, 0}, Case{0.01F, 1}, Case{655.0F, 65500}}) {
    EXPECT_EQ(TextProperties::quantizeHeight(c.m_height), c.m_hundredths) << c.m_height;
  }
}

TEST(TextHeight, IsAtMost65534) {
  for (float const height :
       {655.34F, 655.35F, 655.36F, 700.0F, 1e9F, std::numeric_limits<float>::infinity()}) {
    EXPECT_EQ(TextProperties::quantizeHeight(height), 65534) << height;
  }
}

TEST(TextHeight, ThatIsNegativeOrNoNumberIsZero) {
  for (float const height : {-3.0F, -0.0F, 0.0F, -std::numeric_limits<float>::infinity(), std::nanf("")}) {
    EXPECT_EQ(TextProperties::quantizeHeight(height), 0) << height;
  }
}

TEST(TextHeight, LosesAHundredthForCertainHeightsWhenItIsTakenAgain) {
  int changed = 0;
  for (int hundredths = 0; hundredths <= 65535; ++hundredths) {
    int const again = TextProperties::quantizeHeight(static_cast<float>(hundredths) / 100.0F);
    if (again == hundredths) continue;
    EXPECT_EQ(again, hundredths - 1);
    ++changed;
  }
  EXPECT_GT(changed, 0);
}

}  // namespace
