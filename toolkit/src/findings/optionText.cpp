#include <cstddef>

#include "qvToolkit/findings/catalogue.h"
#include "text/wordTable.h"

namespace qvToolkit {

namespace {

constexpr WordTable<OptionKey, 20> OptionWords = {{
    {OptionKey::DropViewMetadata, "dropViewMetadata"},
    {OptionKey::DropKnownMetadata, "dropKnownMetadata"},
    {OptionKey::DropUnknownMetadata, "dropUnknownMetadata"},
    {OptionKey::Rasters, "rasters"},
    {OptionKey::FontFolder, "fontFolder"},
    {OptionKey::FontReplacement, "fontReplacement"},
    {OptionKey::Offset, "offset"},
    {OptionKey::Force, "force"},
    {OptionKey::MaxMemory, "maxMemory"},
    {OptionKey::MaxTime, "maxTime"},
    {OptionKey::MaxInput, "maxInput"},
    {OptionKey::MaxFailedReads, "maxFailedReads"},
    {OptionKey::MaxStack, "maxStack"},
    {OptionKey::MaxJsonDepth, "maxJsonDepth"},
    {OptionKey::MaxDepth, "maxDepth"},
    {OptionKey::MaxNodes, "maxNodes"},
    {OptionKey::MaxOutput, "maxOutput"},
    {OptionKey::MaxOutputFile, "maxOutputFile"},
    {OptionKey::MaxRaster, "maxRaster"},
    {OptionKey::MaxViews, "maxViews"},
}};

/// In the order of the keys, behind the one that stands for none.
constexpr bool standInOrder() {
  for (std::size_t i = 0; i < OptionWords.size(); ++i) {
    if (static_cast<std::size_t>(OptionWords[i].m_value) != i + 1) return false;
  }
  return OptionWords.back().m_value == OptionKey::MaxViews;
}
static_assert(standInOrder());

}  // namespace

std::string_view getOptionText(OptionKey key) {
  return getWord(OptionWords, key);
}

std::optional<OptionKey> findOption(std::string_view text) {
  return findValue(OptionWords, text);
}

}  // namespace qvToolkit
