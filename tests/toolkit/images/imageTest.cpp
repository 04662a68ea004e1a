#include "qvToolkit/images/image.h"

#include <gtest/gtest.h>

#include "tests/support/exportSupport.h"

namespace qvToolkit {

namespace {

TEST(Image, TellsItsFormatAndHash) {
  Image const image(qvTest::makePng());
  EXPECT_EQ(image.getBytes(), qvTest::makePng());
  EXPECT_EQ(image.getMediaType(), "image/png");
  EXPECT_TRUE(image.isShowable());
  EXPECT_EQ(Image("foobar").getHash(), "85944171f73967e8");
}

TEST(Image, IsNotShowableWithoutAnyPixelOrFormat) {
  EXPECT_FALSE(Image().isShowable());
  EXPECT_TRUE(Image("<svg/>").getMediaType().empty());
  EXPECT_FALSE(Image("<svg/>").isShowable());
  Image const empty(std::string("GIF89a\0\0\0\0", 10));
  EXPECT_EQ(empty.getMediaType(), "image/gif");
  EXPECT_FALSE(empty.isShowable());
}

}  // namespace

}  // namespace qvToolkit
