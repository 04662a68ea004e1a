#include "tests/hostile/hostileDocuments.h"

#include <algorithm>
#include <cstring>
#include <iterator>

namespace qvHostile {

namespace {

constexpr std::string_view ViewType = "qvCore.qvAnnotationView";
constexpr std::string_view MetadataType = "qvCore.qvAnnotationMetadata";

/// Bytes put together by hand, little-endian, with the counts noted.
class Writer {
 public:
  template <class Number>
  Writer& number(Number value) {
    char bytes[sizeof(value)];
    std::memcpy(bytes, &value, sizeof(value));
    m_document.m_bytes.append(bytes, sizeof(value));
    return *this;
  }
  Writer& u8(std::uint8_t value) {
    m_document.m_flags.push_back(m_document.m_bytes.size());
    return number(value);
  }
  /// The coordinates 1, 2, 3 and so on.
  Writer& floats(std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) f32(static_cast<float>(i + 1));
    return *this;
  }
  Writer& f32(float value) {
    m_document.m_numbers.push_back(m_document.m_bytes.size());
    return number(value);
  }
  Writer& u16(std::uint16_t value) { return number(value); }
  Writer& u32(std::uint32_t value) { return number(value); }
  Writer& zeros(std::size_t count) {
    m_document.m_bytes.append(count, '\0');
    return *this;
  }
  Writer& raw(std::string_view bytes) {
    m_document.m_bytes += bytes;
    return *this;
  }
  Writer& count(std::string_view name, std::uint32_t value) {
    m_document.m_counts.push_back({std::string(name), m_document.m_bytes.size()});
    return u32(value);
  }
  Writer& text(std::string_view name, std::string_view bytes) {
    noteText(name, 4, bytes);
    return count(name, static_cast<std::uint32_t>(bytes.size())).raw(bytes);
  }
  Writer& shortText(std::string_view name, std::string_view bytes) {
    noteText(name, 2, bytes);
    return u16(static_cast<std::uint16_t>(bytes.size())).raw(bytes);
  }
  /// An object with the payload that `write` writes.
  template <class Write>
  Writer& object(std::uint32_t id, std::string_view type, Write write) {
    u32(id).u32(static_cast<std::uint32_t>(type.size())).raw(type);
    std::size_t const place = m_document.m_bytes.size();
    m_document.m_sizes.push_back(place);
    number(std::uint64_t{0});
    write();
    std::uint64_t const size = m_document.m_bytes.size() - place - sizeof(size);
    std::memcpy(m_document.m_bytes.data() + place, &size, sizeof(size));
    return *this;
  }
  CountedDocument take() { return std::move(m_document); }

 private:
  void noteText(std::string_view name, std::size_t lengthBytes, std::string_view bytes) {
    m_document.m_texts.push_back({std::string(name), m_document.m_bytes.size(), lengthBytes, bytes.size()});
  }

  CountedDocument m_document;
};

Writer beginDocument(std::uint32_t version, std::uint32_t objects) {
  Writer out;
  out.raw("qvStream").u32(version).count("objects", objects);
  return out;
}

void writePlane(Writer& out) {
  for (float const number : {0.F, 0.F, 0.F, 0.F, 0.F, 1.F, 1.F, 0.F, 0.F}) out.f32(number);
}

void writeMetadata(Writer& out) {
  out.count("metadata entries", 1).text("metadata key", "k").u8(3).text("metadata string", "v");
}

/// Everything that texts and rasters have in common, with `writeChild` for the one child.
template <class WriteChild>
void writeShared(Writer& out, std::uint32_t version, WriteChild writeChild) {
  out.text("annotation name", "name").count("leaders", 1).floats(3);
  if (version >= v6_22) out.u8(1);
  if (version > v6_16) out.count("measures", 1).floats(9);
  if (version >= v6_22) out.u8(0);
  out.floats(3).zeros(3).u8(0);
  if (version < v6_22) return;
  writeChild();
  writeMetadata(out);
}

void writeRaster(Writer& out, std::uint32_t version) {
  writeShared(out, version, [&] { out.count("children", 0); });
  out.text("raster name", "logo").f32(4.F).f32(2.F);
}

void writeText(Writer& out, std::uint32_t version) {
  writeShared(out, version, [&] {
    out.count("children", 1).u8(1).u8(2);
    writeRaster(out, version);
  });
  out.text("font name", "Arial").u32(100).count("lines", 1).count("runs", 1);
  if (version > v6_16) {
    out.shortText("run text", "abc").u8(0).u8(0);
  } else {
    out.text("run text", "abc").u8(0);
  }
}

/// What stands in front of a text's children.
void writeHeadOfText(Writer& out) {
  out.u32(0).u32(0).u32(0).zeros(16);
}

/// What stands behind them: no metadata, a font without name, no line.
void writeTailOfText(Writer& out) {
  out.u32(0).u32(0).u32(100).u32(0);
}

constexpr std::string_view JsonHead =
    R"({"views":[{"ver":"6.27","name":"v","origin":[0,0,0],"normal":[0,0,1],"axis":[1,0,0],"metadata":{},"annotations":[)";
constexpr std::string_view JsonTail = "]}]}";

std::string joinJson(std::size_t count, std::string_view element) {
  std::string text(JsonHead);
  for (std::size_t i = 0; i < count; ++i) {
    if (i > 0) text += ',';
    text += element;
  }
  return text.append(JsonTail);
}

}  // namespace

CountedDocument makeCountedDocument(std::uint32_t version) {
  Writer out = beginDocument(version, 2);
  out.object(1, MetadataType, [&] { out.text("object name", "").u32(5).count("views", 1).u32(2); });
  out.object(2, ViewType, [&] {
    out.text("view name", "view");
    writePlane(out);
    out.count("texts", 1).count("rasters", 1);
    writeText(out, version);
    writeRaster(out, version);
    if (version >= v6_27) writeMetadata(out);
  });
  return out.take();
}

std::string replaceCount(CountedDocument const& document, CountField const& field, std::uint32_t count) {
  std::string bytes = document.m_bytes;
  std::memcpy(bytes.data() + field.m_offset, &count, sizeof(count));
  return bytes;
}

std::string replaceText(CountedDocument const& document, TextField const& field, std::string_view text) {
  std::string bytes = document.m_bytes;
  text = text.substr(0, field.m_lengthBytes == 2 ? 65535 : text.size());
  auto const size = static_cast<std::uint32_t>(text.size());
  std::memcpy(bytes.data() + field.m_offset, &size, field.m_lengthBytes);
  bytes.replace(field.m_offset + field.m_lengthBytes, field.m_size, text);
  // The object is the last one that begins in front of the field.
  auto const behind = std::ranges::upper_bound(document.m_sizes, field.m_offset);
  char* const place = bytes.data() + *std::prev(behind);
  std::uint64_t payload = 0;
  std::memcpy(&payload, place, sizeof(payload));
  payload = payload + text.size() - field.m_size;
  std::memcpy(place, &payload, sizeof(payload));
  return bytes;
}

std::string replaceNumber(CountedDocument const& document, std::size_t offset, float number) {
  std::string bytes = document.m_bytes;
  std::memcpy(bytes.data() + offset, &number, sizeof(number));
  return bytes;
}

std::string replaceByte(CountedDocument const& document, std::size_t offset, std::uint8_t byte) {
  std::string bytes = document.m_bytes;
  bytes[offset] = static_cast<char>(byte);
  return bytes;
}

std::string replaceVersion(CountedDocument const& document, std::uint32_t version) {
  std::string bytes = document.m_bytes;
  std::memcpy(bytes.data() + 8, &version, sizeof(version));
  return bytes;
}

std::string cutBehindCount(CountedDocument const& document, CountField const& field, std::uint32_t count) {
  return replaceCount(document, field, count).substr(0, field.m_offset + sizeof(count));
}

std::string makeNestedStream(std::size_t levels) {
  Writer out = beginDocument(v6_22, 1);
  out.object(1, ViewType, [&] {
    out.u32(0);
    writePlane(out);
    out.u32(1).u32(0);
    for (std::size_t level = 0; level < levels; ++level) {
      writeHeadOfText(out);
      out.u32(1).u8(1).u8(1);
    }
    writeHeadOfText(out);
    out.u32(0);
    for (std::size_t level = 0; level <= levels; ++level) writeTailOfText(out);
  });
  return out.take().m_bytes;
}

std::string makeNestedJson(std::size_t levels) {
  std::string text(JsonHead);
  for (std::size_t level = 0; level < levels; ++level) text += R"({"type":"text","children":[)";
  text += R"({"type":"text"})";
  for (std::size_t level = 0; level < levels; ++level) text += "]}";
  return text.append(JsonTail);
}

std::string makePhantoms(std::uint32_t texts, std::uint32_t rasters) {
  Writer out = beginDocument(v6_22, 1);
  out.object(1, ViewType, [&] {
    out.u32(0);
    writePlane(out);
    out.u32(texts).u32(rasters);
  });
  return out.take().m_bytes;
}

std::string makeLinks(std::size_t count) {
  Writer out = beginDocument(v6_22, 2);
  out.object(1, MetadataType, [&] {
    out.u32(0).u32(5).u32(static_cast<std::uint32_t>(count));
    for (std::size_t i = 0; i < count; ++i) out.u32(2);
  });
  out.object(2, ViewType, [&] {
    out.u32(0);
    writePlane(out);
    out.u32(1).u32(0);
    writeHeadOfText(out);
    out.u32(0);
    writeTailOfText(out);
  });
  return out.take().m_bytes;
}

std::string makeLeaders(std::size_t count) {
  Writer out = beginDocument(v6_22, 1);
  out.object(1, ViewType, [&] {
    out.u32(0);
    writePlane(out);
    out.u32(1).u32(0).u32(0).u32(static_cast<std::uint32_t>(count));
    for (std::size_t i = 0; i < count; ++i) {
      out.number(static_cast<float>(i)).number(static_cast<float>(i % 7)).number(0.F).u8(1);
    }
    out.u32(0).zeros(16).u32(0);
    writeTailOfText(out);
  });
  return out.take().m_bytes;
}

std::string makeMetadataChain(std::size_t count) {
  Writer out = beginDocument(v6_22, static_cast<std::uint32_t>(count));
  for (std::size_t i = 0; i < count; ++i) {
    auto const id = static_cast<std::uint32_t>(i + 1);
    out.object(id, MetadataType, [&] { out.u32(0).u32(5).u32(1).u32(id + 1); });
  }
  return out.take().m_bytes;
}

std::string makeManyTexts(std::size_t count) {
  return joinJson(count, R"({"type":"text","position":[1,2,0],"lines":[[{"text":"plain text"}]]})");
}

std::string makeWrongLines(std::size_t count) {
  std::string lines;
  for (std::size_t i = 0; i < count; ++i) lines += i == 0 ? "[7]" : ",[7]";
  return std::string(JsonHead) + R"({"type":"text","lines":[)" + lines + "]}" + std::string(JsonTail);
}

std::string makeManyRasters(std::size_t count, std::string_view name) {
  return joinJson(count, R"({"type":"raster","position":[1,2,0],"size":[10,10],"rastername":")" +
                             std::string(name) + "\"}");
}

}  // namespace qvHostile
