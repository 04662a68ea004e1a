#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "qvSceneGraph/qvObject.h"
#include "qvToolkit/reading/openDocument.h"
#include "qvToolkit/stream/streamEncoder.h"
#include "qvToolkit/work/session.h"
#include "tests/support/byteBuilder.h"
#include "tests/support/temporaryFolder.h"

namespace qvStreamTest {

using namespace qvToolkit;

/// Every stream version that can be written.
inline std::vector<std::uint32_t> getVersions() {
  std::vector<std::uint32_t> versions;
  for (std::uint32_t version = 0x6000D; version <= 0x6001B; ++version) versions.push_back(version);
  return versions;
}

/// Keeps a library session during a test, and holds that no object outlives it.
class StreamTest : public testing::Test {
 protected:
  void TearDown() override { EXPECT_EQ(qv::qvObject::GetLiveObjects(), m_objectsBefore); }

  Session const m_session;
  std::size_t const m_objectsBefore = qv::qvObject::GetLiveObjects();
};

using Bytes = qvTest::ByteBuilder;

/// Mark, version and object count of a document.
inline Bytes beginDocument(std::uint32_t version, std::uint32_t objects) {
  return Bytes().raw("qvStream").u32(version).u32(objects);
}

inline std::string makeObject(std::uint32_t id, std::string_view type, std::string const& payload) {
  return Bytes().u32(id).text(type).u64(payload.size()).raw(payload).get();
}

/// Size of what stands in front of an object's payload.
inline std::uint64_t getHeaderSize(std::string_view type) {
  return 4 + 4 + type.size() + 8;
}

inline std::string makeMetadata(std::vector<std::uint32_t> const& links) {
  Bytes bytes;
  bytes.text("").u32(5).u32(static_cast<std::uint32_t>(links.size()));
  for (std::uint32_t const link : links) bytes.u32(link);
  return bytes.get();
}

/// A view without annotations, for 6.15 to 6.26.
inline std::string makeEmptyView(std::string_view name) {
  return Bytes().text(name).point(0, 0, 0).point(0, 0, 1).point(1, 0, 0).u32(0).u32(0).get();
}

constexpr std::string_view ViewType = "qvCore.qvAnnotationView";
constexpr std::string_view MetadataType = "qvCore.qvAnnotationMetadata";

inline Document read(std::string const& content) {
  return readDocument(content, "f");
}

/// The document as a user is told of it: one line for each finding.
inline std::vector<std::string> describeFindings(Document const& document) {
  std::vector<std::string> lines;
  for (Finding const& finding : document.m_findings) lines.push_back(formatFinding("f", finding));
  return lines;
}

using qvTest::readFile;

/// The findings of an encoding that are about something lost.
inline std::size_t countLosses(Findings const& findings) {
  std::size_t count = 0;
  for (Finding const& finding : findings) count += finding.m_code == FindingCode::EncodingLoss ? 1U : 0U;
  return count;
}

inline EncodedDocument encode(Document const& document, std::uint32_t version, bool viewsOnly = false) {
  return encodeDocument(document, {version, viewsOnly});
}

}  // namespace qvStreamTest
