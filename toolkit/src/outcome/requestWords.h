#pragma once

#include "qvToolkit/outcome/request.h"
#include "text/wordTable.h"

namespace qvToolkit {

inline constexpr WordTable<Action, 6> ActionWords = {{
    {Action::Inspect, "inspect"},
    {Action::Migrate, "migrate"},
    {Action::Encode, "encode"},
    {Action::Transform, "transform"},
    {Action::Dump, "dump"},
    {Action::Fonts, "fonts"},
}};

inline constexpr WordTable<TextMode, 3> TextModeWords = {{
    {TextMode::Live, "live"},
    {TextMode::Outline, "outline"},
    {TextMode::Both, "both"},
}};

inline constexpr WordTable<PageFormat, 3> PageFormatWords = {{
    {PageFormat::Svg, "svg"},
    {PageFormat::Png, "png"},
    {PageFormat::Pdf, "pdf"},
}};

}  // namespace qvToolkit
