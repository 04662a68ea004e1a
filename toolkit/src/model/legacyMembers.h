#pragma once

#include <tuple>

#include "annotationLegacy/qvAnnotationRaster.h"
#include "annotationLegacy/qvAnnotationText.h"
#include "rules/fields.h"

/// Where the legacy model keeps the fields of the persisted records, in the order of an object stream.
namespace qvToolkit::members {

namespace rules = qvLegacy::rules;
using Annotation = qvLegacy::qvAnnotationInterface;
using Text = qvLegacy::qvAnnotationText;
using Raster = qvLegacy::qvAnnotationRaster;

/// A field and the member that holds it.
template <class Record, class Value>
struct Member {
  rules::Field const& field;
  Value Record::*member;
};

inline constexpr std::tuple leader{
    Member{rules::leader::position, &Annotation::Leader::m_position},
    Member{rules::leader::head, &Annotation::Leader::m_head},
};

inline constexpr std::tuple measure{
    Member{rules::measure::pointA, &Annotation::MeasureLeader::m_pointA},
    Member{rules::measure::pointB, &Annotation::MeasureLeader::m_pointB},
    Member{rules::measure::offset, &Annotation::MeasureLeader::m_offset},
    Member{rules::measure::arrowDirection, &Annotation::MeasureLeader::m_arrowDir},
};

/// What stands in front of an annotation's children.
inline constexpr std::tuple head{
    Member{rules::annotation::name, &Annotation::m_name},
    Member{rules::annotation::leaders, &Annotation::m_leaders},
    Member{rules::annotation::measures, &Annotation::m_measures},
    Member{rules::annotation::position, &Annotation::m_position},
    Member{rules::annotation::color, &Annotation::m_color},
    Member{rules::annotation::style, &Annotation::m_style},
};

inline constexpr std::tuple properties{
    Member{rules::properties::font, &Text::TextProperties::m_fontName},
    Member{rules::properties::height, &Text::TextProperties::m_height},
    Member{rules::properties::styleFlags, &Text::TextProperties::m_styleFlags},
};

inline constexpr std::tuple text{
    Member{rules::text::defaultProperties, &Text::m_defaultTextProperties},
    Member{rules::text::lines, &Text::m_lines},
};

inline constexpr std::tuple raster{
    Member{rules::raster::name, &Raster::m_rasterName},
    Member{rules::raster::size, &Raster::m_size},
};

}  // namespace qvToolkit::members
