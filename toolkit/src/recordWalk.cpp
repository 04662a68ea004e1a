#include "recordWalk.h"

#include "annotationLegacy/platform.h"
#include "legacyNames.h"

namespace qvToolkit {

namespace {

enum Kind : std::uint8_t { NoChild = 0, Text = 1, Raster = 2 };

void walkColor(FieldCursor& in) {
  constexpr std::string_view Digits = "0123456789ABCDEF";
  std::string value = "#";
  for (char const c : in.take("color", 3)) {
    auto const byte = static_cast<unsigned char>(c);
    value += Digits[byte >> 4];
    value += Digits[byte & 0x0FU];
  }
  in.show("color", value);
}

void walkStyle(FieldCursor& in) {
  in.named("style", [](std::uint8_t style) {
    std::string meaning(getFrameShapeName(style));
    if ((style & 0x20U) != 0) meaning += ", ignores depth";
    if ((style & 0x40U) != 0) meaning += ", scale locked";
    if ((style & 0x80U) != 0) meaning += ", frame locked";
    return meaning;
  });
}

void walkProperties(FieldCursor& in, std::string const& name) {
  FieldCursor::Inside const inProperties(in, name);
  in.text("font");
  in.number<std::uint16_t>("height");
  auto const flags = in.takeNumber<std::uint16_t>("styleFlags");
  in.show("styleFlags", std::to_string(flags) + ((flags & 1U) != 0 ? " (bold)" : "") +
                            ((flags & 2U) != 0 ? " (italic)" : ""));
}

void walkLeaders(FieldCursor& in) {
  auto const count = in.number<std::uint32_t>("leaderCount");
  for (std::uint32_t i = 0; i < count && !in.isBroken(); ++i) {
    FieldCursor::Inside const inLeader(in, "leader", i);
    in.floats("position", 3);
    if (in.has(streamGates::Heads, "head")) in.named("head", getHeadName);
  }
}

void walkMeasures(FieldCursor& in) {
  auto const count = in.number<std::uint32_t>("measureCount");
  for (std::uint32_t i = 0; i < count && !in.isBroken(); ++i) {
    FieldCursor::Inside const inMeasure(in, "measure", i);
    in.floats("pointA", 3);
    in.floats("pointB", 3);
    in.floats("offset", 3);
    if (in.has(streamGates::Arrows, "arrowDirection")) in.named("arrowDirection", getArrowDirectionName);
  }
}

void walkRun(FieldCursor& in) {
  if (in.has(streamGates::RunTypes, {})) {
    auto const length = in.number<std::uint16_t>("length");
    in.text("text", length);
    in.has(streamGates::RunTypes, {});
    in.named("type", getSegmentTypeName);
  } else {
    in.text("text");
    in.has(streamGates::RunTypes, "type");
  }
  if (in.number<std::uint8_t>("hasProperties") != 0) walkProperties(in, "properties");
}

void walkLines(FieldCursor& in) {
  auto const lines = in.number<std::uint32_t>("lineCount");
  for (std::uint32_t i = 0; i < lines && !in.isBroken(); ++i) {
    FieldCursor::Inside const inLine(in, "line", i);
    auto const runs = in.number<std::uint32_t>("runCount");
    for (std::uint32_t j = 0; j < runs && !in.isBroken(); ++j) {
      FieldCursor::Inside const inRun(in, "run", j);
      walkRun(in);
    }
  }
}

/// Before 6.15 texts have an order of their own.
void walkOldText(FieldCursor& in) {
  if (in.has(streamGates::Names, "name")) in.text("name");
  walkProperties(in, "defaultProperties");
  walkLeaders(in);
  walkLines(in);
  in.floats("position", 3);
  walkColor(in);
  if (in.has(streamGates::FrameShapes, {})) {
    walkStyle(in);
  } else {
    in.number<std::uint8_t>("hasFrame");
  }
}

/// Everything in front of the children; returns their number.
std::uint32_t walkHead(FieldCursor& in) {
  in.text("name");
  walkLeaders(in);
  if (in.has(streamGates::Measures, "measureCount")) walkMeasures(in);
  in.floats("position", 3);
  walkColor(in);
  walkStyle(in);
  return in.has(streamGates::Children, "childCount") ? in.number<std::uint32_t>("childCount") : 0;
}

/// Everything behind the children.
void walkTail(FieldCursor& in, std::uint8_t kind) {
  if (in.has(streamGates::AnnotationMetadata, "metadata")) walkVariantMap(in, "metadata");
  if (kind == Text) {
    walkProperties(in, "defaultProperties");
    walkLines(in);
  } else {
    in.text("rasterName");
    in.floats("size", 2);
  }
}

/// Anchor and kind of one child.
std::uint8_t walkNode(FieldCursor& in) {
  in.named("anchor", getAnchorName);
  auto const kind = in.takeNumber<std::uint8_t>("kind");
  if (kind > Raster) {
    in.breakHere("kind", "expected the kind of a child, 0, 1 or 2, found " + std::to_string(kind));
  } else {
    in.show("kind", std::to_string(kind) +
                        (kind == NoChild ? " (none)" : " (" + std::string(getTypeName(kind)) + ")"));
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
    path.push("sub[" + std::to_string(level.m_next++) + "]");
    std::uint8_t const kind = walkNode(in);
    if (in.isBroken() || kind == NoChild) {
      path.pop();
      continue;
    }
    std::uint32_t const count = walkHead(in);
    levels.push_back({count, kind});
  }
}

void walkAnnotations(FieldCursor& in, std::string_view name, std::uint32_t count, std::uint8_t kind) {
  bool const isOld = kind == Text && !streamGates::SharedRecord.isOpenAt(in.getVersion());
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
  if (!streamGates::Views.isOpenAt(in.getVersion())) {
    return in.breakHere("view", "expected stream version 6.13 or newer for a view, found " +
                                    qv::qvStreamVersion(in.getVersion()).toString());
  }
  in.text("name");
  in.floats("planeOrigin", 3);
  in.floats("planeNormal", 3);
  in.floats("planeXAxis", 3);
  auto const texts = in.number<std::uint32_t>("textCount");
  bool const hasRasters = in.has(streamGates::Rasters, "rasterCount");
  auto const rasters = hasRasters ? in.number<std::uint32_t>("rasterCount") : 0;
  walkAnnotations(in, "text", texts, Text);
  walkAnnotations(in, "raster", rasters, Raster);
  if (in.has(streamGates::ViewMetadata, "metadata")) walkVariantMap(in, "metadata");
}

}  // namespace qvToolkit
