#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

#include "annotationLegacy/qvAnnotationInterface.h"
#include "annotationLegacy/qvAnnotationText.h"

/// The names that variant documents use for the values of closed sets. Names are compared exactly, case
/// included.
namespace qvLegacy::readers {

template <class Value>
struct Name {
  std::string_view text;
  Value value;
};

/// The value that `text` names, `otherwise` for a text that is not in the table.
template <class Value, std::size_t size>
constexpr Value valueOf(std::array<Name<Value>, size> const& table, std::string_view text, Value otherwise) {
  auto const entry =
      std::find_if(table.begin(), table.end(), [&](auto const& name) { return name.text == text; });
  return entry == table.end() ? otherwise : entry->value;
}

template <class Value, std::size_t size>
constexpr bool namesAreDistinct(std::array<Name<Value>, size> const& table) {
  for (std::size_t i = 0; i < size; ++i) {
    for (std::size_t j = 0; j < i; ++j) {
      if (table[i].text == table[j].text) return false;
    }
  }
  return true;
}

using Annotation = qvAnnotationInterface;
using Segment = qvAnnotationText::TextSegment;

inline constexpr std::array<Name<Annotation::Type>, 2> annotationTypes{{
    {"text", Annotation::Text},
    {"raster", Annotation::Raster},
}};

inline constexpr std::array<Name<Annotation::LeaderHead>, 6> leaderHeads{{
    {"square", Annotation::SquareHead},
    {"circle", Annotation::CircleHead},
    {"arrow", Annotation::ArrowHead},
    {"plus", Annotation::PlusHead},
    {"cross", Annotation::CrossHead},
    {"triangle", Annotation::TriangleHead},
}};

inline constexpr std::array<Name<Annotation::MeasureArrowDirection>, 3> arrowDirections{{
    {"outout", Annotation::OutOut},
    {"inout", Annotation::InOut},
    {"outin", Annotation::OutIn},
}};

inline constexpr std::array<Name<Annotation::AnchorLocation>, 12> anchors{{
    {"rt", Annotation::RightTop},
    {"rc", Annotation::RightCenter},
    // KEEP: "rb" was always read as right top; documents were laid out by that. No name gives right bottom.
    {"rb", Annotation::RightTop},
    {"lt", Annotation::LeftTop},
    {"lc", Annotation::LeftCenter},
    {"lb", Annotation::LeftBottom},
    {"tr", Annotation::TopRight},
    {"tc", Annotation::TopCenter},
    {"tl", Annotation::TopLeft},
    {"br", Annotation::BottomRight},
    {"bc", Annotation::BottomCenter},
    {"bl", Annotation::BottomLeft},
}};

inline constexpr std::array<Name<Annotation::FrameShape>, 15> frameShapes{{
    {"rectangle", Annotation::Rectangle},
    {"square", Annotation::Square},
    {"diamond", Annotation::Diamond},
    {"triangle", Annotation::Triangle},
    {"flagright", Annotation::FlagRight},
    {"flagleft", Annotation::FlagLeft},
    {"flagboth", Annotation::FlagBoth},
    {"parallelogram", Annotation::Parallelogram},
    {"hexagon", Annotation::Hexagon},
    {"pentagon", Annotation::Pentagon},
    {"circle", Annotation::Circle},
    {"oblong", Annotation::Oblong},
    {"oblongleft", Annotation::OblongLeft},
    {"oblongright", Annotation::OblongRight},
    {"noframe", Annotation::NoFrame},
}};

inline constexpr std::array<Name<Segment::SegmentType>, 2> segmentTypes{{
    {"sub", Segment::Subscript},
    {"sup", Segment::Superscript},
}};

static_assert(namesAreDistinct(annotationTypes) && namesAreDistinct(leaderHeads) &&
              namesAreDistinct(arrowDirections) && namesAreDistinct(anchors) &&
              namesAreDistinct(frameShapes) && namesAreDistinct(segmentTypes));
static_assert(valueOf(anchors, "rb", Annotation::Free) == 12 &&
              valueOf(anchors, "rt", Annotation::Free) == 12);
static_assert(std::none_of(anchors.begin(), anchors.end(),
                           [](auto const& name) { return name.value == Annotation::RightBottom; }));

}  // namespace qvLegacy::readers
