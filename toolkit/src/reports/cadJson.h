#pragma once

#include <memory>
#include <optional>
#include <string>

#include "qvAnnotation/qvCadAnnotationView.h"
#include "qvSvg/itemInterface.h"
#include "qvToolkit/json/jsonWriter.h"
#include "qvToolkit/migration/migratedView.h"

namespace qvToolkit {

/// Writes CAD annotations and their SVG trees as JSON values.
class CadJson {
 public:
  /// `view` must not be null.
  CadJson(JsonWriter& json, MigratedView const& view) : m_json(json), m_view(view) {}

  /// The members of the view's object that the migration made: plane and annotations.
  void writeViewMembers();

  /// For `walkItems`: writes an item up to its children, and what stands behind them.
  struct Nothing {};
  std::optional<Nothing> enter(qv::svg::ItemInterface const& item, Nothing);
  void leave(qv::svg::ItemInterface const& item);

 private:
  void writeAnnotation(qv::qvCadAnnotation const& annotation);
  void writeLeaders(qv::qvCadAnnotation const& annotation);
  void writeFlags(std::uint8_t flags);
  void writeItem(std::shared_ptr<qv::svg::Node> const& root);
  void writeContent(qv::svg::ItemInterface const& item);
  void writeImage(qv::svg::ItemInterface const& item);
  void writePath(qv::svg::ItemInterface const& item);
  void writeText(qv::svg::ItemInterface const& item);
  void writePoint(JsonKey key, Wm4::Vector2<float> const& point);
  void writePoint(JsonKey key, Wm4::Vector3<float> const& point);
  /// Which annotation a group is the root of; null for none.
  void writeMark(AnnotationMark const* mark);

  JsonWriter& m_json;
  MigratedView const& m_view;
};

}  // namespace qvToolkit
