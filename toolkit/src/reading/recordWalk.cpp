#include "reading/recordWalk.h"

#include <string_view>
#include <tuple>

#include "annotationLegacy/platform.h"
#include "annotationLegacy/qvAnnotationText.h"
#include "rules/fields.h"
#include "text/hexadecimal.h"

namespace qvToolkit {

namespace {

namespace rules = qvLegacy::rules;
using rules::Form;
using rules::Since;

using qvLegacy::qvAnnotationInterface;
using qvLegacy::qvAnnotationText;

void walkField(FieldCursor& in, rules::Field const& field);
void walkFields(FieldCursor& in, rules::Rows fields);

void walkColor(FieldCursor& in, std::string_view name) {
  std::string_view const bytes = in.take(name, 3);
  in.show(name, '#' + toHexBytes(bytes, HexCase::Upper));
}

void walkStyle(FieldCursor& in, std::string_view name) {
  in.named(name, [](std::uint8_t style) {
    std::string meaning(rules::frameShapes.nameOf(style & qvAnnotationInterface::FrameShapeMask));
    if ((style & qvAnnotationInterface::IgnoreZTest) != 0) meaning += ", ignores depth";
    if ((style & qvAnnotationInterface::ScaleLocked) != 0) meaning += ", scale locked";
    if ((style & qvAnnotationInterface::FrameLocked) != 0) meaning += ", frame locked";
    return meaning;
  });
}

void walkStyleFlags(FieldCursor& in, std::string_view name) {
  auto const flags = in.takeNumber<std::uint16_t>(name);
  in.show(name, std::to_string(flags) +
                    ((flags & qvAnnotationText::TextProperties::Bold) != 0 ? " (bold)" : "") +
                    ((flags & qvAnnotationText::TextProperties::Italic) != 0 ? " (italic)" : ""));
}

void walkProperties(FieldCursor& in, std::string_view name) {
  FieldCursor::Inside const inProperties(in, std::string(name));
  walkFields(in, rules::properties::fields);
}

void walkRun(FieldCursor& in) {
  auto const& [text, type] = std::tie(rules::run::text, rules::run::type);
  // What came with the types changed the text before them, too.
  if (in.has(type.inStreams, {})) {
    auto const length = in.number<std::uint16_t>("length");
    in.text(text.name, length);
    in.has(type.inStreams, {});
    walkField(in, type);
  } else {
    in.text(text.name);
    in.has(type.inStreams, type.name);
  }
  if (in.number<std::uint8_t>("hasProperties") != 0) walkProperties(in, "properties");
}

/// A count and that many elements.
template <class WalkElement>
void walkList(FieldCursor& in, std::string_view name, WalkElement walkElement) {
  auto const count = in.number<std::uint32_t>(std::string(name) + "Count");
  for (std::uint32_t i = 0; i < count && !in.isBroken(); ++i) {
    FieldCursor::Inside const inElement(in, name, i);
    walkElement(in);
  }
}

void walkLine(FieldCursor& in) {
  walkList(in, "run", walkRun);
}

bool isList(Form form) {
  return form == Form::Leaders || form == Form::Measures || form == Form::Lines;
}

/// The content of one field, which the version has. Lists of annotations do not stand in the order of the
/// other fields: they are walked by those who know where they stand.
void walkField(FieldCursor& in, rules::Field const& field) {
  switch (field.form) {
    case Form::Text:
      in.text(field.name);
      return;
    case Form::Vector:
      return in.floats(field.name, 3);
    case Form::Size:
      return in.floats(field.name, 2);
    case Form::Height:
      in.number<std::uint16_t>(field.name);
      return;
    case Form::Named:
      in.named(field.name, [&field](std::uint8_t value) { return field.names->nameOf(value); });
      return;
    case Form::Color:
      return walkColor(in, field.name);
    case Form::Style:
      return walkStyle(in, field.name);
    case Form::StyleFlags:
      return walkStyleFlags(in, field.name);
    case Form::Properties:
      return walkProperties(in, field.name);
    case Form::Metadata:
      return walkVariantMap(in, std::string(field.name));
    case Form::Leaders:
      return walkList(in, field.name, [](auto& list) { walkFields(list, rules::leader::fields); });
    case Form::Measures:
      return walkList(in, field.name, [](auto& list) { walkFields(list, rules::measure::fields); });
    case Form::Lines:
      return walkList(in, field.name, walkLine);
    default:
      return;
  }
}

/// Whether the version has a field that came later than views; shows one that it does not have.
bool isOpen(FieldCursor& in, rules::Field const& field) {
  return in.has(field.inStreams, std::string(field.name) + (isList(field.form) ? "Count" : ""));
}

void walkGated(FieldCursor& in, rules::Field const& field) {
  if (field.inStreams == Since::views || isOpen(in, field)) walkField(in, field);
}

void walkFields(FieldCursor& in, rules::Rows fields) {
  for (rules::Field const* const field : fields) {
    if (!field->name.empty()) walkGated(in, *field);
  }
}

/// Before 6.15 texts have an order of their own.
void walkOldText(FieldCursor& in) {
  if (in.has(Since::annotationNames, rules::annotation::name.name)) walkField(in, rules::annotation::name);
  walkField(in, rules::text::defaultProperties);
  walkField(in, rules::annotation::leaders);
  walkField(in, rules::text::lines);
  walkField(in, rules::annotation::position);
  walkField(in, rules::annotation::color);
  if (in.has(Since::frameShapes, {})) {
    walkField(in, rules::annotation::style);
  } else {
    in.number<std::uint8_t>("hasFrame");
  }
}

/// Everything in front of the children; returns their number.
std::uint32_t walkHead(FieldCursor& in) {
  walkFields(in, rules::annotation::head);
  return in.has(rules::annotation::children.inStreams, "childCount") ? in.number<std::uint32_t>("childCount")
                                                                     : 0;
}

/// Everything behind the children.
void walkTail(FieldCursor& in, std::uint8_t kind) {
  walkGated(in, rules::annotation::metadata);
  walkFields(in,
             kind == qvAnnotationInterface::Text ? rules::Rows(rules::text::fields) : rules::raster::fields);
}

/// Anchor and kind of one child.
std::uint8_t walkNode(FieldCursor& in) {
  walkField(in, rules::annotation::anchor);
  std::string_view const name = rules::annotation::type.name;
  auto const kind = in.takeNumber<std::uint8_t>(name);
  if (kind > qvAnnotationInterface::Raster) {
    in.breakHere(name, "expected the kind of a child, 0, 1 or 2, found " + std::to_string(kind));
  } else {
    in.show(name,
            std::to_string(kind) + (kind == qvAnnotationInterface::Unknown
                                        ? " (none)"
                                        : " (" + std::string(rules::annotationTypes.nameOf(kind)) + ")"));
  }
  return kind;
}

/// A record whose children are being walked.
struct Level {
  std::uint32_t m_count;
  std::uint8_t m_kind;
  std::uint32_t m_next = 0;
};

/// Walks a record with all its children; depth costs no call stack.
void walkTree(FieldCursor& in, std::uint8_t rootKind) {
  std::vector<Level> levels = {{walkHead(in), rootKind}};
  FieldPath& path = in.editPath();
  while (!levels.empty()) {
    Level& level = levels.back();
    if (level.m_next == level.m_count || in.isBroken()) {
      walkTail(in, level.m_kind);
      levels.pop_back();
      if (!levels.empty()) path.pop();
      continue;
    }
    path.push(std::string(rules::annotation::children.name) + "[" + std::to_string(level.m_next++) + "]");
    std::uint8_t const kind = walkNode(in);
    if (in.isBroken() || kind == qvAnnotationInterface::Unknown) {
      path.pop();
      continue;
    }
    std::uint32_t const count = walkHead(in);
    levels.push_back({count, kind});
  }
}

void walkAnnotations(FieldCursor& in, std::string_view name, std::uint32_t count, std::uint8_t kind) {
  bool const isOld =
      kind == qvAnnotationInterface::Text && !rules::reaches(in.getVersion(), Since::sharedRecord);
  for (std::uint32_t i = 0; i < count && !in.isBroken(); ++i) {
    FieldCursor::Inside const inAnnotation(in, name, i);
    if (isOld) {
      walkOldText(in);
    } else {
      walkTree(in, kind);
    }
  }
}

}  // namespace

void walkMetadataRecord(FieldCursor& in) {
  in.text("name");
  in.number<std::uint32_t>("metadataType");
  auto const count = in.number<std::uint32_t>("viewCount");
  for (std::uint32_t i = 0; i < count && !in.isBroken(); ++i) {
    FieldCursor::Inside const inLinks(in, "view", i);
    auto const id = in.takeNumber<std::uint32_t>("link");
    in.show("link", id == 0 ? "none" : "object of id " + std::to_string(id));
  }
}

void walkViewRecord(FieldCursor& in) {
  if (!rules::reaches(in.getVersion(), Since::views)) {
    return in.breakHere("view", "expected stream version 6.13 or newer for a view, found " +
                                    qv::qvStreamVersion(in.getVersion()).toString());
  }
  namespace view = rules::view;
  for (rules::Field const& field : {view::name, view::origin, view::normal, view::axis}) walkField(in, field);
  auto const texts = in.number<std::uint32_t>("textCount");
  bool const hasRasters = in.has(view::rasters.inStreams, "rasterCount");
  auto const rasters = hasRasters ? in.number<std::uint32_t>("rasterCount") : 0;
  walkAnnotations(in, view::texts.name, texts, qvAnnotationInterface::Text);
  walkAnnotations(in, view::rasters.name, rasters, qvAnnotationInterface::Raster);
  walkGated(in, view::metadata);
}

}  // namespace qvToolkit
