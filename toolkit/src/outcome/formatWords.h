#pragma once

#include <array>
#include <cstdint>

#include "qvToolkit/json/jsonKey.h"
#include "qvToolkit/model/legacyCounts.h"
#include "qvToolkit/model/source.h"
#include "text/wordTable.h"

namespace qvToolkit {

inline constexpr WordTable<Format, 2> EncodingWords = {{
    {Format::Json, "json"},
    {Format::ObjectStream, "objectStream"},
}};

/// A count of a view and its name in JSON.
struct CountWord {
  JsonKey m_key;
  std::uint64_t LegacyCounts::*m_count;
};

inline constexpr std::array CountWords = {
    CountWord{"annotations", &LegacyCounts::m_annotations},
    CountWord{"children", &LegacyCounts::m_children},
    CountWord{"depth", &LegacyCounts::m_depth},
    CountWord{"leaders", &LegacyCounts::m_leaders},
    CountWord{"lines", &LegacyCounts::m_lines},
    CountWord{"measures", &LegacyCounts::m_measures},
    CountWord{"ownProperties", &LegacyCounts::m_ownProperties},
    CountWord{"raster", &LegacyCounts::m_raster},
    CountWord{"segments", &LegacyCounts::m_segments},
    CountWord{"text", &LegacyCounts::m_text},
    CountWord{"textBytes", &LegacyCounts::m_textBytes},
};
static_assert(sizeof(LegacyCounts) == CountWords.size() * sizeof(std::uint64_t));

}  // namespace qvToolkit
