#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// Makers of documents that are out to harm their reader. All are small; what is large is what they ask for.
namespace qvHostile {

constexpr std::uint32_t v6_16 = 0x60010;
constexpr std::uint32_t v6_22 = 0x60016;
constexpr std::uint32_t v6_27 = 0x6001B;

/// A count or length field of a document.
struct CountField {
  std::string m_name;
  std::size_t m_offset;
};

/// A text field of a document: a length of two or four bytes, and that many characters.
struct TextField {
  std::string m_name;
  std::size_t m_offset;
  std::size_t m_lengthBytes;
  std::size_t m_size;
};

/// An object stream that a reader takes without complaint, and where its fields are.
struct CountedDocument {
  std::string m_bytes;
  std::vector<CountField> m_counts;
  std::vector<TextField> m_texts;
  std::vector<std::size_t> m_numbers;  ///< offsets of the 32-bit floating-point numbers
  std::vector<std::size_t> m_flags;    ///< offsets of single bytes: styles, heads, directions, anchors, kinds
  std::vector<std::size_t> m_sizes;    ///< offsets of the 64-bit sizes of the objects
};

/// One metadata object and one view with a text and a raster, each with one of everything.
CountedDocument makeCountedDocument(std::uint32_t version);

/// The document with another number in the 32-bit field, and nothing else changed.
std::string replaceCount(CountedDocument const& document, CountField const& field, std::uint32_t count);
/// The same, with nothing behind the field.
std::string cutBehindCount(CountedDocument const& document, CountField const& field, std::uint32_t count);

/// The document with another text in the field, as far as its length can tell. All sizes fit it.
std::string replaceText(CountedDocument const& document, TextField const& field, std::string_view text);
/// The document with another number, byte or version at its place.
std::string replaceNumber(CountedDocument const& document, std::size_t offset, float number);
std::string replaceByte(CountedDocument const& document, std::size_t offset, std::uint8_t byte);
std::string replaceVersion(CountedDocument const& document, std::uint32_t version);

/// A view of one text with `levels` levels of sub-annotations, as an object stream of 6.22.
std::string makeNestedStream(std::size_t levels);
/// The same as JSON.
std::string makeNestedJson(std::size_t levels);
/// A view of 6.22 that announces texts and rasters and holds none.
std::string makePhantoms(std::uint32_t texts, std::uint32_t rasters);
/// A metadata object that links to one and the same view again and again.
std::string makeLinks(std::size_t count);
/// A view of one text with that many leaders.
std::string makeLeaders(std::size_t count);
/// Objects that refer to each other in a row: metadata objects, each linking the next.
std::string makeMetadataChain(std::size_t count);

/// A JSON document of one view with that many plain texts.
std::string makeManyTexts(std::size_t count);
/// A JSON document of one view with one text of that many lines, all of them wrong.
std::string makeWrongLines(std::size_t count);
/// A JSON document of one view with that many rasters of one name.
std::string makeManyRasters(std::size_t count, std::string_view name);

}  // namespace qvHostile
