#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <tuple>

#include "rules/gates.h"
#include "rules/messages.h"
#include "rules/valueNames.h"

/// The fields of each persisted record: a row stands for a field in both encodings. Readers name rows; what
/// walks whole records (audit, dump, encoder) iterates them.
namespace qvLegacy::rules {

/// What a field holds.
enum class Form : std::uint8_t {
  Version,      ///< a text, "MAJOR.MINOR"
  Text,         ///< a text
  RunText,      ///< the text of a run, which has a limit
  Vector,       ///< 3 reals
  Size,         ///< 2 reals
  Color,        ///< 3 bytes; six hexadecimal digits
  Style,        ///< a byte: frame shape and flags
  StyleFlags,   ///< 16 bits: bold and italic
  Flag,         ///< a bool
  Height,       ///< 16 bits, hundredths of an em; a number of ems
  Named,        ///< a byte; one of `names`
  Metadata,     ///< a variant map
  Properties,   ///< a record of text properties
  Leaders,      ///< a list of leaders
  Measures,     ///< a list of measure leaders
  Lines,        ///< a list of lists of runs
  Texts,        ///< a list of text annotations
  Rasters,      ///< a list of raster annotations
  Annotations,  ///< a list of annotations that name their types
};

/// One field of a record.
struct Field {
  std::string_view name;  ///< in a stream, where fields have places only; empty for a field that it lacks
  std::string_view key;   ///< in a variant map; empty for a field that it lacks
  Form form;
  Since inStreams = Since::views;
  Since inVariants = Since::variantMaps;
  std::optional<Since> outOfVariants{};  ///< the change that retired the key
  ValueNames const* names = nullptr;
  Cost cost = Cost::Look;  ///< of a value that is not read as it stands
  /// Of the reader about a value of another form, where an absent one is none.
  Message const* message = nullptr;
  std::string_view absent{};  ///< what is taken for a value of another form, where it is not neutral
  std::string_view noun{};    ///< one value of it in a sentence, where an older stream leaves values out
  bool isMissed = false;      ///< where an older variant map has the key, which its readers do not look at

  /// Whether a variant map of the packed `version` has the field.
  constexpr bool isInVariants(std::uint32_t version) const noexcept {
    return reaches(version, inVariants) && !(outOfVariants && reaches(version, *outOfVariants));
  }
};

/// The rows of a record, in the order of the stream.
using Rows = std::span<Field const* const>;

namespace view {
inline constexpr Field version{.name = {}, .key = "ver", .form = Form::Version};
inline constexpr Field name{.name = "name", .key = "name", .form = Form::Text, .cost = Cost::Content};
inline constexpr Field origin{.name = "planeOrigin",
                              .key = "origin",
                              .form = Form::Vector,
                              .cost = Cost::Content,
                              .message = &messages::invalidOrigin,
                              .absent = "(0, 0, 0)"};
inline constexpr Field normal{.name = "planeNormal",
                              .key = "normal",
                              .form = Form::Vector,
                              .cost = Cost::Content,
                              .message = &messages::invalidNormal,
                              .absent = "(0, 0, 1)"};
inline constexpr Field axis{.name = "planeXAxis",
                            .key = "axis",
                            .form = Form::Vector,
                            .cost = Cost::Content,
                            .message = &messages::invalidAxis,
                            .absent = "(1, 0, 0)"};
inline constexpr Field texts{.name = "text",
                             .key = "textannotations",
                             .form = Form::Texts,
                             .outOfVariants = Since::oneAnnotationList,
                             .cost = Cost::Content};
inline constexpr Field rasters{.name = "raster",
                               .key = "rasterannotations",
                               .form = Form::Rasters,
                               .inStreams = Since::rasters,
                               .outOfVariants = Since::oneAnnotationList,
                               .cost = Cost::Content};
inline constexpr Field annotations{.name = {},
                                   .key = "annotations",
                                   .form = Form::Annotations,
                                   .inVariants = Since::oneAnnotationList,
                                   .cost = Cost::Content};
inline constexpr Field metadata{.name = "metadata",
                                .key = "metadata",
                                .form = Form::Metadata,
                                .inStreams = Since::viewMetadata,
                                .inVariants = Since::viewMetadata};

inline constexpr std::array fields{&version, &name,    &origin,      &normal,  &axis,
                                   &texts,   &rasters, &annotations, &metadata};
}  // namespace view

/// What text and raster annotations share.
namespace annotation {
inline constexpr Field name{.name = "name", .key = "name", .form = Form::Text, .cost = Cost::Content};
inline constexpr Field leaders{.name = "leader",
                               .key = "leaders",
                               .form = Form::Leaders,
                               .cost = Cost::Content,
                               .message = &messages::invalidLeaders};
inline constexpr Field measures{.name = "measure",
                                .key = "measures",
                                .form = Form::Measures,
                                .inStreams = Since::measures,
                                .cost = Cost::Content,
                                .message = &messages::invalidMeasures};
inline constexpr Field position{.name = "position",
                                .key = "position",
                                .form = Form::Vector,
                                .cost = Cost::Content,
                                .message = &messages::invalidPosition};
inline constexpr Field color{.name = "color",
                             .key = "color",
                             .form = Form::Color,
                             .message = &messages::invalidColor,
                             .absent = "#FFFFFF"};
inline constexpr Field style{.name = "style", .key = {}, .form = Form::Style};
inline constexpr Field frameShape{
    .name = {}, .key = "frameshape", .form = Form::Named, .names = &frameShapes};
inline constexpr Field frameLocked{.name = {}, .key = "isframelocked", .form = Form::Flag};
inline constexpr Field scaleLocked{.name = {}, .key = "isscalelocked", .form = Form::Flag};
inline constexpr Field ignoreZTest{.name = {}, .key = "isignoreztest", .form = Form::Flag};
inline constexpr Field children{.name = "sub",
                                .key = "children",
                                .form = Form::Annotations,
                                .inStreams = Since::children,
                                .inVariants = Since::children,
                                .cost = Cost::Content};
/// The key that the first documents with children have; it counts only where the other one is absent.
inline constexpr Field childs{.name = {},
                              .key = "childs",
                              .form = Form::Annotations,
                              .inVariants = Since::children,
                              .cost = Cost::Content};
inline constexpr Field metadata{.name = "metadata",
                                .key = "metadata",
                                .form = Form::Metadata,
                                .inStreams = Since::annotationMetadata,
                                .inVariants = Since::annotationMetadata};
/// The kind of an element in a list of annotations that name their types.
inline constexpr Field type{.name = "kind",
                            .key = "type",
                            .form = Form::Named,
                            .inStreams = Since::children,
                            .inVariants = Since::oneAnnotationList,
                            .names = &annotationTypes,
                            .cost = Cost::Content};
/// The place of a child on its parent.
inline constexpr Field anchor{.name = "anchor",
                              .key = "anchorloc",
                              .form = Form::Named,
                              .inStreams = Since::children,
                              .inVariants = Since::children,
                              .names = &anchors};

/// In a stream these stand in front of the children, metadata behind them.
inline constexpr std::array head{&name, &leaders, &measures, &position, &color, &style};

inline constexpr std::array fields{&name,     &leaders,    &measures,    &position,    &color,
                                   &style,    &frameShape, &frameLocked, &scaleLocked, &ignoreZTest,
                                   &children, &childs,     &metadata,    &type,        &anchor};
}  // namespace annotation

namespace text {
inline constexpr Field defaultProperties{.name = "defaultProperties",
                                         .key = "defaulttextprop",
                                         .form = Form::Properties,
                                         .message = &messages::invalidDefaultProperties,
                                         .absent = "Arial of 1 em"};
inline constexpr Field lines{.name = "line", .key = "lines", .form = Form::Lines, .cost = Cost::Content};
/// A whole text, where there are no lines.
inline constexpr Field plain{.name = {}, .key = "text", .form = Form::Text, .cost = Cost::Content};

inline constexpr std::array fields{&defaultProperties, &lines, &plain};
}  // namespace text

namespace raster {
inline constexpr Field name{
    .name = "rasterName", .key = "rastername", .form = Form::Text, .cost = Cost::Content};
inline constexpr Field size{.name = "size",
                            .key = "sizeem",
                            .form = Form::Size,
                            .cost = Cost::Content,
                            .message = &messages::invalidSize};

inline constexpr std::array fields{&name, &size};
}  // namespace raster

namespace properties {
inline constexpr Field font{.name = "font", .key = "font", .form = Form::Text};
inline constexpr Field height{.name = "height", .key = "heightem", .form = Form::Height};
inline constexpr Field styleFlags{.name = "styleFlags", .key = {}, .form = Form::StyleFlags};
inline constexpr Field bold{.name = {}, .key = "bold", .form = Form::Flag};
inline constexpr Field italic{.name = {}, .key = "italic", .form = Form::Flag};

inline constexpr std::array fields{&font, &height, &styleFlags, &bold, &italic};
}  // namespace properties

/// Runs have the fields of text properties beside these.
namespace run {
inline constexpr Field text{.name = "text", .key = "text", .form = Form::RunText, .cost = Cost::Content};
inline constexpr Field type{.name = "type",
                            .key = "type",
                            .form = Form::Named,
                            .inStreams = Since::segmentTypes,
                            .names = &segmentTypes};

inline constexpr std::array fields{&text, &type};
}  // namespace run

/// In variants before heads a leader is its position alone, without a key.
namespace leader {
inline constexpr Field position{.name = "position",
                                .key = "pos",
                                .form = Form::Vector,
                                .inVariants = Since::heads,
                                .cost = Cost::Content,
                                .absent = "(0, 0, 0)"};
inline constexpr Field head{.name = "head",
                            .key = "head",
                            .form = Form::Named,
                            .inStreams = Since::heads,
                            .inVariants = Since::heads,
                            .names = &leaderHeads,
                            .noun = "leader head"};

inline constexpr std::array fields{&position, &head};
}  // namespace leader

namespace measure {
inline constexpr Field pointA{.name = "pointA", .key = "A", .form = Form::Vector, .cost = Cost::Content};
inline constexpr Field pointB{.name = "pointB", .key = "B", .form = Form::Vector, .cost = Cost::Content};
inline constexpr Field offset{.name = "offset", .key = "V", .form = Form::Vector, .cost = Cost::Content};
inline constexpr Field arrowDirection{.name = "arrowDirection",
                                      .key = "arrowdir",
                                      .form = Form::Named,
                                      .inStreams = Since::arrowDirections,
                                      .inVariants = Since::arrowDirections,
                                      .names = &arrowDirections,
                                      .noun = "arrow direction",
                                      .isMissed = true};

inline constexpr std::array fields{&pointA, &pointB, &offset, &arrowDirection};
}  // namespace measure

/// A kind of record in a variant map: its own fields and those that it shares with another kind.
struct Record {
  std::string_view name;  ///< in the plural
  Rows own;
  Rows shared;

  /// The row of a key; null for one that no version's reader looks at.
  constexpr Field const* find(std::string_view key) const noexcept {
    Field const* const field = findIn(own, key);
    return field != nullptr ? field : findIn(shared, key);
  }

 private:
  static constexpr Field const* findIn(Rows rows, std::string_view key) noexcept {
    if (key.empty()) return nullptr;
    for (Field const* const field : rows) {
      // Most rows differ from the key in length or first letter.
      std::string_view const other = field->key;
      if (other.size() == key.size() && other[0] == key[0] && other == key) return field;
    }
    return nullptr;
  }
};

namespace records {
/// From the outermost to the innermost.
inline constexpr std::array all{
    Record{"views", view::fields, {}},
    Record{"text annotations", text::fields, annotation::fields},
    Record{"raster annotations", raster::fields, annotation::fields},
    Record{"text properties", rules::properties::fields, {}},
    Record{"text runs", run::fields, rules::properties::fields},
    Record{"leaders", leader::fields, {}},
    Record{"measure leaders", measure::fields, {}},
};
inline constexpr Record const& views = all[0];
inline constexpr Record const& texts = all[1];
inline constexpr Record const& rasters = all[2];
inline constexpr Record const& properties = all[3];
inline constexpr Record const& runs = all[4];
inline constexpr Record const& leaders = all[5];
inline constexpr Record const& measures = all[6];
}  // namespace records

/// Where a model keeps the fields of the records, in the order of the stream. Told for every model whose
/// members have these names, so that the rules know none.
namespace members {
/// A field and the member that holds it.
template <class Record, class Value>
struct Member {
  Field const& field;
  Value Record::*member;
};
template <class Record, class Value>
Member(Field const&, Value Record::*) -> Member<Record, Value>;

template <class Leader>
inline constexpr std::tuple leader{
    Member{rules::leader::position, &Leader::m_position},
    Member{rules::leader::head, &Leader::m_head},
};

template <class Measure>
inline constexpr std::tuple measure{
    Member{rules::measure::pointA, &Measure::m_pointA},
    Member{rules::measure::pointB, &Measure::m_pointB},
    Member{rules::measure::offset, &Measure::m_offset},
    Member{rules::measure::arrowDirection, &Measure::m_arrowDir},
};

/// What stands in front of an annotation's children.
template <class Annotation>
inline constexpr std::tuple head{
    Member{annotation::name, &Annotation::m_name},
    Member{annotation::leaders, &Annotation::m_leaders},
    Member{annotation::measures, &Annotation::m_measures},
    Member{annotation::position, &Annotation::m_position},
    Member{annotation::color, &Annotation::m_color},
    Member{annotation::style, &Annotation::m_style},
};

template <class Properties>
inline constexpr std::tuple properties{
    Member{rules::properties::font, &Properties::m_fontName},
    Member{rules::properties::height, &Properties::m_height},
    Member{rules::properties::styleFlags, &Properties::m_styleFlags},
};

template <class Text>
inline constexpr std::tuple text{
    Member{rules::text::defaultProperties, &Text::m_defaultTextProperties},
    Member{rules::text::lines, &Text::m_lines},
};

template <class Raster>
inline constexpr std::tuple raster{
    Member{rules::raster::name, &Raster::m_rasterName},
    Member{rules::raster::size, &Raster::m_size},
};
}  // namespace members

}  // namespace qvLegacy::rules
