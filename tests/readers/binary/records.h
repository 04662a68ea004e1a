#pragma once

#include "tests/readers/binary/byteStream.h"

/// Good records at any version, laid out as documents hold them. A version that does not have a field leaves
/// it out.
namespace readersTest {

constexpr std::string_view pointsHex =  // (1,0,0), (0,1,0), (0,0,1)
    "00 00 80 3F 00 00 00 00 00 00 00 00 | 00 00 00 00 00 00 80 3F 00 00 00 00 |"
    "00 00 00 00 00 00 00 00 00 00 80 3F";

inline Bytes leaderRecord(std::uint32_t version, std::uint8_t head) {
  Bytes bytes;
  bytes.point(1, 2, 3);
  if (version >= v6_22) bytes.u8(head);
  return bytes;
}

inline Bytes measureRecord(std::uint32_t version, std::uint8_t direction) {
  Bytes bytes(pointsHex);
  if (version >= v6_22) bytes.u8(direction);
  return bytes;
}

/// One entry: `key` with the integer 7.
inline Bytes metadataRecord(std::string_view key) {
  return Bytes().u32(1).text(key).u8(1).append(Bytes("07 00 00 00 00 00 00 00"));
}

/// Two leaders, one measure leader, the given child records, one metadata entry.
inline Bytes baseRecord(std::uint32_t version, std::string_view name,
                        std::vector<Bytes> const& children = {}) {
  Bytes bytes;
  bytes.text(name).u32(2).append(leaderRecord(version, 3)).append(leaderRecord(version, 6));
  if (version >= v6_17) bytes.u32(1).append(measureRecord(version, 2));
  bytes.point(4, 5, 6).u8(10).u8(20).u8(30).u8(0x25);
  if (version >= v6_22) {
    bytes.u32(static_cast<std::uint32_t>(children.size()));
    for (Bytes const& child : children) bytes.append(child);
    bytes.append(metadataRecord("k"));
  }
  return bytes;
}

inline Bytes propertiesRecord(std::string_view font, std::uint16_t height, std::uint16_t flags) {
  return Bytes().text(font).u16(height).u16(flags);
}

/// A run without properties of its own.
inline Bytes runRecord(std::uint32_t version, std::string_view text, std::uint8_t type) {
  if (version < v6_17) return Bytes().text(text).u8(0);
  return Bytes().u16(static_cast<std::uint16_t>(text.size())).raw(text).u8(type).u8(0);
}

inline Bytes runRecord(std::uint32_t version, std::string_view text, std::uint8_t type,
                       Bytes const& properties) {
  Bytes const plain = runRecord(version, text, type);
  return plain.prefix(plain.size() - 1).u8(1).append(properties);
}

/// Two lines: one of two runs, the second with properties of its own, and one without runs.
inline Bytes linesRecord(std::uint32_t version) {
  Bytes bytes;
  bytes.u32(2).u32(2).append(runRecord(version, "ab", 0));
  bytes.append(runRecord(version, "c", 2, propertiesRecord("Mono", 50, 1)));
  return bytes.u32(0);
}

/// A text at 6.15 and later.
inline Bytes textRecord(std::uint32_t version, std::string_view name,
                        std::vector<Bytes> const& children = {}) {
  return baseRecord(version, name, children)
      .append(propertiesRecord("Times", 250, 2))
      .append(linesRecord(version));
}

/// A text before 6.15.
inline Bytes oldTextRecord(std::uint32_t version, std::string_view name, std::uint8_t lastByte) {
  Bytes bytes;
  if (version >= v6_14) bytes.text(name);
  bytes.append(propertiesRecord("Times", 250, 2))
      .u32(1)
      .append(leaderRecord(version, 0))
      .append(linesRecord(version));
  return bytes.point(4, 5, 6).u8(10).u8(20).u8(30).u8(lastByte);
}

inline Bytes rasterRecord(std::uint32_t version, std::string_view name,
                          std::vector<Bytes> const& children = {}) {
  return baseRecord(version, name, children).text("logo").f32(4).f32(2);
}

/// The children of a tree that uses every kind: a raster, no child, a text that has a text child.
inline std::vector<Bytes> childRecords(std::uint32_t version) {
  Bytes const grandchild = Bytes().u8(9).u8(1).append(textRecord(version, "grandchild"));
  return {Bytes().u8(3).u8(2).append(rasterRecord(version, "raster child")), Bytes().u8(5).u8(0),
          Bytes().u8(12).u8(1).append(textRecord(version, "text child", {grandchild}))};
}

/// A view with two texts and, where there are rasters, one raster.
inline Bytes viewRecord(std::uint32_t version, std::string_view name) {
  Bytes bytes;
  bytes.text(name).point(7, 8, 9).point(0, 1, 0).point(0, 0, 1).u32(2);
  if (version >= v6_15) bytes.u32(1);
  for (std::string_view const text : {"t1", "t2"}) {
    bytes.append(version >= v6_15 ? textRecord(version, text) : oldTextRecord(version, text, 1));
  }
  if (version >= v6_15) bytes.append(rasterRecord(version, "r1"));
  if (version >= v6_27) bytes.append(metadataRecord("view"));
  return bytes;
}

}  // namespace readersTest
