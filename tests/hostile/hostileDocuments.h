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

/// An object stream that a reader takes without complaint, and where its counts and lengths are.
struct CountedDocument {
  std::string m_bytes;
  std::vector<CountField> m_counts;
};

/// One metadata object and one view with a text and a raster, each with one of everything.
CountedDocument makeCountedDocument(std::uint32_t version);

/// The document with another number in the 32-bit field, and nothing else changed.
std::string replaceCount(CountedDocument const& document, CountField const& field, std::uint32_t count);
/// The same, with nothing behind the field.
std::string cutBehindCount(CountedDocument const& document, CountField const& field, std::uint32_t count);

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
