#include "text/sha256.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <string_view>

using qvToolkit::hashSha256;
using qvToolkit::Sha256;

TEST(Sha256, HasThePublishedValues) {
  EXPECT_EQ(hashSha256(""), "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
  EXPECT_EQ(hashSha256("abc"), "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
  EXPECT_EQ(hashSha256("abcdbcdecdefdefgefghfghighijhijkijkljklmklmnlmnomnopnopq"),
            "248d6a61d20638b8e5c026930c3e6039a33ce45964ff2167f6ecedd419db06c1");
  EXPECT_EQ(hashSha256(std::string(1'000'000, 'a')),
            "cdc76e5c9914fb9281a1c7e284d73e67f1809a48a497200e046d39ccc7112cd0");
}

TEST(Sha256, IsTheSameHoweverTheBytesAreCut) {
  std::string text;
  for (std::size_t i = 0; i < 200; ++i) text += static_cast<char>(i);
  for (std::size_t cut = 0; cut <= text.size(); ++cut) {
    Sha256 hash;
    hash.add(std::string_view(text).substr(0, cut));
    hash.add(std::string_view(text).substr(cut));
    EXPECT_EQ(hash.takeText(), hashSha256(text)) << cut;
  }
}

TEST(Sha256, BeginsAnewOnceItWasTaken) {
  Sha256 hash;
  hash.add("something else");
  hash.takeText();
  hash.add("abc");
  EXPECT_EQ(hash.takeText(), hashSha256("abc"));
}
