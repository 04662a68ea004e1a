#include "images/imageFormat.h"

#include <gtest/gtest.h>

#include "tests/support/exportSupport.h"
#include "text/base64.h"

namespace qvToolkit {

namespace {

using namespace std::string_view_literals;

void expectHeader(std::string_view bytes, std::string_view mediaType, std::uint32_t width,
                  std::uint32_t height) {
  ImageHeader const header = readImageHeader(bytes);
  EXPECT_EQ(header.m_mediaType, mediaType);
  EXPECT_EQ(header.m_width, width);
  EXPECT_EQ(header.m_height, height);
}

TEST(ImageFormat, ReadsTheSizeOfEachKnownFormat) {
  expectHeader(qvTest::makePng(), "image/png", 1, 1);
  expectHeader("GIF89a\x10\x00\x20\x01"sv, "image/gif", 16, 288);
  expectHeader("\xFF\xD8\xFF\xE0\x00\x04??\xFF\xC0\x00\x11\x08\x00\x02\x00\x03...."sv, "image/jpeg", 3, 2);
  expectHeader("RIFF\0\0\0\0WEBPVP8X\0\0\0\0\0\0\0\0\x0F\0\0\x07\0\0"sv, "image/webp", 16, 8);
  expectHeader("RIFF\0\0\0\0WEBPVP8L\0\0\0\0/\x0F\xC0\x01\0"sv, "image/webp", 16, 8);
  expectHeader("RIFF\0\0\0\0WEBPVP8 \0\0\0\0\0\0\0\x9d\x01\x2a\x10\0\x08\0"sv, "image/webp", 16, 8);
}

TEST(ImageFormat, ShowsNothingElse) {
  for (std::string_view const bytes :
       {"", "<svg onload='x'/>", "<html>", "javascript:1", "BM", "http://a/b.png"}) {
    EXPECT_FALSE(isShowable(readImageHeader(bytes))) << bytes;
  }
}

TEST(ImageFormat, RefusesAnImageOfMoreThan64Megapixels) {
  std::string png = qvTest::makePng();
  png.replace(16, 8, "\0\1\x86\xA0\0\1\x86\xA0"sv);  // 100,000 by 100,000
  EXPECT_FALSE(isShowable(readImageHeader(png)));
  png.replace(16, 8, "\0\0\x1F\x40\0\0\x1F\x40"sv);  // 8,000 by 8,000
  EXPECT_TRUE(isShowable(readImageHeader(png)));
}

TEST(ImageFormat, RefusesAHeaderThatIsCutOff) {
  std::string const png = qvTest::makePng();
  for (std::size_t size = 0; size < 24; ++size) {
    EXPECT_FALSE(isShowable(readImageHeader(std::string_view(png).substr(0, size)))) << size;
  }
}

TEST(Base64, PadsWhatIsNoMultipleOfThree) {
  EXPECT_EQ(encodeBase64(""), "");
  EXPECT_EQ(encodeBase64("f"), "Zg==");
  EXPECT_EQ(encodeBase64("fo"), "Zm8=");
  EXPECT_EQ(encodeBase64("foobar"), "Zm9vYmFy");
  EXPECT_EQ(encodeBase64("\xFB\xFF\xFE"), "+//+");
}

}  // namespace

}  // namespace qvToolkit
