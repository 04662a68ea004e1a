#include "optionNames.h"

#include <array>
#include <cstddef>

namespace qvannot {

namespace {

using qvToolkit::OptionKey;

struct Spelling {
  OptionKey m_key;
  char const* m_text;
};

constexpr std::array Spellings = {
    Spelling{OptionKey::DropViewMetadata, option::DropViewMetadata},
    Spelling{OptionKey::DropKnownMetadata, option::DropKnownMetadata},
    Spelling{OptionKey::DropUnknownMetadata, option::DropUnknownMetadata},
    Spelling{OptionKey::Rasters, option::Rasters},
    Spelling{OptionKey::FontFolder, option::FontDir},
    Spelling{OptionKey::FontReplacement, option::FontMap},
    Spelling{OptionKey::Offset, option::At},
    Spelling{OptionKey::Force, option::Force},
    Spelling{OptionKey::MaxMemory, option::MaxMemory},
    Spelling{OptionKey::MaxTime, option::MaxTime},
    Spelling{OptionKey::MaxInput, option::MaxInput},
    Spelling{OptionKey::MaxFailedReads, option::MaxFailedReads},
    Spelling{OptionKey::MaxStack, option::MaxStack},
    Spelling{OptionKey::MaxJsonDepth, option::MaxJsonDepth},
    Spelling{OptionKey::MaxDepth, option::MaxDepth},
    Spelling{OptionKey::MaxNodes, option::MaxNodes},
    Spelling{OptionKey::MaxOutput, option::MaxOutput},
    Spelling{OptionKey::MaxOutputFile, option::MaxOutputFile},
    Spelling{OptionKey::MaxRaster, option::MaxRaster},
    Spelling{OptionKey::MaxViews, option::MaxViews},
};

/// In the order of the keys, behind the one that stands for none.
constexpr bool standInOrder() {
  for (std::size_t i = 0; i < Spellings.size(); ++i) {
    if (static_cast<std::size_t>(Spellings[i].m_key) != i + 1) return false;
  }
  return Spellings.back().m_key == OptionKey::MaxViews;
}
static_assert(standInOrder());

}  // namespace

std::string_view spellOption(OptionKey key) {
  return Spellings[static_cast<std::size_t>(key) - 1].m_text;
}

}  // namespace qvannot
