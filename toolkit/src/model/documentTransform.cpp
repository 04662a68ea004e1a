#include "qvToolkit/model/documentTransform.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <optional>
#include <unordered_map>
#include <utility>
#include <vector>

#include "qvToolkit/findings/address.h"
#include "text/svgNumber.h"

namespace qvToolkit {

namespace {

using qvLegacy::qvAnnotationInterface;
using qvLegacy::qvAnnotationView;
using Vector3f = Wm4::Vector3<float>;
using Vector3d = Wm4::Vector3<double>;

/// A view of the document, or an annotation below one.
struct Part {
  qvAnnotationView* m_view;             ///< null for an annotation
  qvAnnotationInterface* m_annotation;  ///< null for a view
  std::size_t m_owner;                  ///< index of the part that holds it; no part for a view
  std::size_t m_index;                  ///< within the owner, empty entries counted
  bool m_isPlaced;                      ///< its position places it, somewhere in the document
};

/// The views and annotations of a document, each once, owners before what they hold. Depth costs no stack.
class Parts {
 public:
  explicit Parts(Document const& document) {
    for (std::size_t i = 0; i < document.m_views.size(); ++i) {
      if (document.m_views[i].m_view != nullptr) addView(*document.m_views[i].m_view, i);
    }
    for (std::size_t owner = 0; owner < m_parts.size(); ++owner) addChildren(owner);
  }

  std::vector<Part> const& get() const { return m_parts; }

  std::string getAddress(Part const& part) const {
    std::vector<std::size_t> indices = {part.m_index};
    for (Part const* at = &part; at->m_view == nullptr; indices.push_back(at->m_index)) {
      at = &m_parts[at->m_owner];
    }
    std::ranges::reverse(indices);
    return Address::ofIndices(indices).getText();
  }

 private:
  void addView(qvAnnotationView& view, std::size_t index) {
    if (m_indices.emplace(&view, m_parts.size()).second) m_parts.push_back({&view, nullptr, 0, index, false});
  }

  void addAnnotation(qvAnnotationInterface* annotation, std::size_t owner, std::size_t index, bool isPlaced) {
    if (annotation == nullptr) return;
    auto const [known, isNew] = m_indices.emplace(annotation, m_parts.size());
    if (isNew) {
      m_parts.push_back({nullptr, annotation, owner, index, isPlaced});
    } else if (isPlaced) {
      m_parts[known->second].m_isPlaced = true;
    }
  }

  void addChildren(std::size_t owner) {
    std::size_t index = 0;
    if (qvAnnotationView const* const view = m_parts[owner].m_view; view != nullptr) {
      for (auto const& annotation : view->m_annotations)
        addAnnotation(annotation.get(), owner, index++, true);
      return;
    }
    for (auto const& sub : m_parts[owner].m_annotation->getSubAnnots()) {
      addAnnotation(sub.m_annot.get(), owner, index++, sub.m_anchor == qvAnnotationInterface::Free);
    }
  }

  std::vector<Part> m_parts;
  std::unordered_map<qv::qvObject const*, std::size_t>
      m_indices;  // looked up only: its order reaches no output
};

bool isFinite(Vector3f const& v) {
  return std::isfinite(v[0]) && std::isfinite(v[1]) && std::isfinite(v[2]);
}

bool isFinite(qvAnnotationView const& view) {
  return isFinite(view.m_planeOrigin) && isFinite(view.m_planeNormal) && isFinite(view.m_planeXAxis);
}

Vector3d widen(Vector3f const& v) {
  return {static_cast<double>(v[0]), static_cast<double>(v[1]), static_cast<double>(v[2])};
}

/// What is not finite is not lost by being stored.
bool fits(double number) {
  return !std::isfinite(number) || std::abs(number) <= static_cast<double>(std::numeric_limits<float>::max());
}

/// Reads all vectors that a transformation changes, and what each becomes; computed in double precision, so
/// that a number is rounded once.
class Mover {
 public:
  explicit Mover(Similarity const& transformation) : m_transformation(transformation) {}

  /// Calls `visit(Vector3f&, Vector3d const& image)` for each vector of the part.
  template <class Visit>
  void forEachVector(Part const& part, Visit visit) const {
    if (part.m_view != nullptr) return visitPlane(*part.m_view, visit);
    auto const scale = [&](Vector3f& v) { visit(v, widen(v) * m_transformation.m_scale); };
    for (qvAnnotationInterface::Leader& leader : part.m_annotation->m_leaders) scale(leader.m_position);
    for (qvAnnotationInterface::MeasureLeader& measure : part.m_annotation->m_measures) {
      scale(measure.m_pointA);
      scale(measure.m_pointB);
      scale(measure.m_offset);
    }
    if (part.m_isPlaced) scale(part.m_annotation->m_position);
  }

 private:
  template <class Visit>
  void visitPlane(qvAnnotationView& view, Visit visit) const {
    if (!isFinite(view)) return;
    Vector3d const origin = turn(view.m_planeOrigin) * m_transformation.m_scale;
    visit(view.m_planeOrigin, origin + m_transformation.m_translation);
    visit(view.m_planeNormal, turn(view.m_planeNormal));
    visit(view.m_planeXAxis, turn(view.m_planeXAxis));
  }

  Vector3d turn(Vector3f const& v) const { return m_transformation.m_rotation * widen(v); }

  Similarity const& m_transformation;
};

/// A place where a number would leave single precision.
std::optional<Finding> findOverflow(Parts const& parts, Mover const& mover) {
  for (Part const& part : parts.get()) {
    bool isHeld = true;
    mover.forEachVector(part, [&](Vector3f const&, Vector3d const& image) {
      isHeld = isHeld && fits(image[0]) && fits(image[1]) && fits(image[2]);
    });
    if (isHeld) continue;
    return makeFinding(
        FindingCode::TransformOverflow,
        "the document is not moved, since a coordinate would be larger than single precision holds, "
        "3.4e38; move it less far or scale it less",
        parts.getAddress(part));
  }
  return std::nullopt;
}

void store(Vector3f& v, Vector3d const& image) {
  v = {static_cast<float>(image[0]), static_cast<float>(image[1]), static_cast<float>(image[2])};
}

void reportKeptPlanes(Parts const& parts, Findings& findings) {
  for (Part const& part : parts.get()) {
    if (part.m_view == nullptr || isFinite(*part.m_view)) continue;
    findings.push_back(
        makeFinding(FindingCode::TransformPlaneKept,
                    "the plane of view '" + part.m_view->m_name +
                        "' stays as it is, since one of its numbers is not finite; mend the plane first",
                    parts.getAddress(part)));
  }
}

void reportKeptSizes(Parts const& parts, double scale, Findings& findings) {
  auto const isAnnotation = [](Part const& part) { return part.m_annotation != nullptr; };
  if (scale == 1 || std::none_of(parts.get().begin(), parts.get().end(), isAnnotation)) return;
  std::string factor;
  appendNumber(factor, scale);
  findings.push_back(
      makeFinding(FindingCode::TransformSizeKept,
                  "places are scaled by " + factor +
                      "; texts, images, frames and heads keep their size, and anchored sub-annotations "
                      "their place at their parents"));
}

}  // namespace

TransformOutcome transformDocument(Document& document, Similarity const& transformation) {
  Parts const parts(document);
  Mover const mover(transformation);
  if (auto const overflow = findOverflow(parts, mover)) return {false, {*overflow}};
  TransformOutcome outcome;
  reportKeptPlanes(parts, outcome.m_findings);
  reportKeptSizes(parts, transformation.m_scale, outcome.m_findings);
  for (Part const& part : parts.get()) mover.forEachVector(part, store);
  return outcome;
}

}  // namespace qvToolkit
