#include <cfloat>
#include <limits>
#include <stdexcept>

#include "annotationLegacy/qvAnnotationMigration.h"
#include "apps/qvannot/memoryBudget.h"
#include "qvToolkit/pages/svgPage.h"
#include "qvToolkit/reports/inspection.h"
#include "qvToolkit/reports/migratedJson.h"
#include "qvToolkit/stream/streamDump.h"
#include "qvToolkit/text/textEscape.h"
#include "tests/hostile/hostileDocuments.h"
#include "tests/support/streamTest.h"
#include "tests/support/stringSink.h"
#include "tests/support/xmlReader.h"

namespace qvStreamTest {

namespace {

/// Sends documents through everything that reads them, and looks at what comes out.
class HostileField : public StreamTest {
 protected:
  static void expectHarmless(std::string const& content, std::string const& what) {
    SCOPED_TRACE(what);
    Document const document = readWithinBudget(content);
    for (std::string const& line : describeFindings(document)) expectPlain(line);
    expectPlain(formatInspection(inspectDocument(document)));
    expectPlain(formatInspectionsJson({inspectDocument(document)}));
    expectPagesAreSound(document);
    EXPECT_EQ(encode(document, qvHostile::v6_27).m_bytes.substr(0, 8), "qvStream");
    static_cast<void>(dumpStream(content, std::nullopt, expectPlain));
  }

 private:
  /// A byte may make the reader take the next ones for a count.
  static Document readWithinBudget(std::string const& content) {
    qvannot::setMemoryBudget(qvannot::getAllocatedBytes() + (std::uint64_t{1} << 20));
    OpenLimits limits;
    limits.m_maxFailedReads = 1000;
    Document document = readDocument(content, "f", limits);
    qvannot::setMemoryBudget(~std::uint64_t{0});
    return document;
  }
  /// Valid UTF-8 of which a terminal obeys nothing but the line feed. What XML forbids beyond that may stay.
  static void expectPlain(std::string_view bytes) {
    std::string text(bytes);
    for (std::string_view const noCharacter : {"\uFFFE", "\uFFFF"}) {
      for (std::size_t at = 0; (at = text.find(noCharacter, at)) != std::string::npos;) {
        text.erase(at, noCharacter.size());
      }
    }
    bool isRepaired = false;
    static_cast<void>(repairUtf8(text, &isRepaired));
    EXPECT_FALSE(isRepaired) << text;
    EXPECT_EQ(text.find_first_of("\t\r"), std::string::npos) << text;
  }
  static void expectPagesAreSound(Document const& document) {
    MigrationOptions options;
    options.m_dropped = qvLegacy::qvAnnotationMigration::DropViewMetadata |
                        qvLegacy::qvAnnotationMigration::DropKnownMetadata |
                        qvLegacy::qvAnnotationMigration::DropUnknownMetadata;
    MigrationSession session(options,
                             [](Finding const& finding) { expectPlain(formatFinding("f", finding)); });
    std::vector<MigratedView> const views = session.migrate(document);
    for (MigratedView const& view : views) {
      if (view.m_view == nullptr) continue;
      qvTest::StringSink page;
      static_cast<void>(writeSvgPage(view, page));
      expectPageIsSound(page.m_text);
    }
    expectPlain(formatMigratedDocument(document, session, views, std::vector<std::string>(views.size()), {}));
  }
  static void expectPageIsSound(std::string const& page) {
    qvTest::XmlElement root;
    ASSERT_NO_THROW(root = qvTest::parseXml(page)) << page;
    for (qvTest::XmlElement const* element : root.getAll()) {
      EXPECT_NE(element->m_name, "script");
      EXPECT_NE(element->m_name, "foreignObject");
      for (auto const& [name, value] : element->m_attributes) {
        EXPECT_FALSE(name.starts_with("on")) << name;
        bool const isNumber =
            value.find("nan") == std::string::npos && value.find("inf") == std::string::npos;
        EXPECT_TRUE(isNumber || name.starts_with("data-") || name == "font-family") << name << "=" << value;
      }
    }
  }
};

TEST_F(HostileField, TextsOfAnyBytesStayTexts) {
  std::vector<std::string> const texts = {
      "",
      "x",
      std::string(65535, 'x'),
      std::string(65536, 'y'),
      std::string("a\0.svg\0.exe", 11),
      "\xff\xfe\xc0\xbc\xe0\x80\xbc\xf8\x88\x80\x80\xbc\xed\xa0\x80\xf4\x90\x80\x80\xe2\x82",
      "\x01\x02\x03\x08\x0b\x0c\x0e\x1f\x7f\xc2\x80\xc2\x9f\xef\xbf\xbe\xef\xbf\xbf\t\r\n",
      "</title></text></style><script>alert(1)</script><!--]]><![CDATA[&lt;&#60;\"' onload='alert(1)",
      "\"><image href=\"http://example.org/x\" onerror=\"alert(1)\"/><foreignObject>",
      "x;}</style>url(javascript:alert(1));@import 'http://example.org'; expression(1)\\27",
      "../../../etc/passwd",
      "/dev/zero",
      "\x1b]0;title\x07\x1b[2J\x1b[31m\xc2\x9b"
      "31m\r\nforged: error: [line]\n",
      "\xe2\x80\xaegvs.exe\xe2\x81\xa6\xe2\x80\xa8\xe2\x80\xa9\xef\xbb\xbf",
      "=1+1;%s%n%x{}",
  };
  for (std::uint32_t const version : {qvHostile::v6_16, qvHostile::v6_27}) {
    auto const document = qvHostile::makeCountedDocument(version);
    for (auto const& field : document.m_texts) {
      for (std::size_t i = 0; i < texts.size(); ++i) {
        expectHarmless(qvHostile::replaceText(document, field, texts[i]),
                       field.m_name + " " + std::to_string(i));
      }
    }
  }
}

TEST_F(HostileField, NumbersOfAnyValueMakeNoPageUnreadable) {
  using Limits = std::numeric_limits<float>;
  for (std::uint32_t const version : {qvHostile::v6_16, qvHostile::v6_27}) {
    auto const document = qvHostile::makeCountedDocument(version);
    EXPECT_GT(document.m_numbers.size(), 20U);
    for (std::size_t const offset : document.m_numbers) {
      for (float const number : {Limits::quiet_NaN(), Limits::infinity(), -Limits::infinity(), 0.F, -0.F,
                                 Limits::denorm_min(), FLT_MIN, FLT_MAX, -FLT_MAX, 1e9F}) {
        expectHarmless(qvHostile::replaceNumber(document, offset, number),
                       std::to_string(offset) + ": " + std::to_string(number));
      }
    }
  }
}

TEST_F(HostileField, BytesOfAnyValueAreTakenAsTheyAre) {
  auto const document = qvHostile::makeCountedDocument(qvHostile::v6_22);
  EXPECT_GT(document.m_flags.size(), 10U);
  for (std::size_t const offset : document.m_flags) {
    for (unsigned byte = 0; byte < 256; ++byte) {
      expectHarmless(qvHostile::replaceByte(document, offset, static_cast<std::uint8_t>(byte)),
                     std::to_string(offset) + ": " + std::to_string(byte));
    }
  }
}

TEST_F(HostileField, VersionsOfAnyNumberAreReadAsFarAsTheyGo) {
  std::vector<std::uint32_t> versions = {0, 1, 0x5FFFF, 0x60000, 0x6FFFF, 0x70000, 0x80000000, 0xFFFFFFFF};
  for (std::uint32_t version = 0x6000C; version <= 0x6001C; ++version) versions.push_back(version);
  for (std::uint32_t const written : {qvHostile::v6_16, qvHostile::v6_22, qvHostile::v6_27}) {
    auto const document = qvHostile::makeCountedDocument(written);
    for (std::uint32_t const version : versions) {
      expectHarmless(qvHostile::replaceVersion(document, version), qv::qvStreamVersion(version).toString());
    }
  }
}

}  // namespace

}  // namespace qvStreamTest
