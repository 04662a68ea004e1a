#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "qvSceneGraph/qvObject.h"
#include "qvSvg/node.h"
#include "wm4/vector2.h"
#include "wm4/vector3.h"

namespace qv {

/// A current CAD annotation: SVG content at a position of the view plane, with leader lines in 3D.
///
/// Positions are view-plane coordinates: x along the view's X axis, y along normal x axis, z along the
/// normal. SVG content is y-down, in SVG units.
class QV_EXPORT qvCadAnnotation : public qvObject {
 public:
  static qvRtti const TYPE;

  /// A straight leader or dimension line between two points.
  struct LineSegment {
    LineSegment(Wm4::Vector3<float> const& from, Wm4::Vector3<float> const& to) : m_from(from), m_to(to) {}
    Wm4::Vector3<float> m_from;
    Wm4::Vector3<float> m_to;
  };

  /// SVG content at a point of its own, such as a leader head.
  struct Shape {
    Shape(std::shared_ptr<svg::Node> node, Wm4::Vector3<float> const& point)
        : m_node(std::move(node)), m_point(point) {}
    std::shared_ptr<svg::Node> m_node;
    Wm4::Vector3<float> m_point;
  };

  /// Where a leader meets the annotation: in the view plane, and as an offset in the SVG content.
  struct SvgLeaderAnchors {
    SvgLeaderAnchors(Wm4::Vector3<float> const& origin, Wm4::Vector2<float> const& offset)
        : m_origin(origin), m_offset(offset) {}
    Wm4::Vector3<float> m_origin;
    Wm4::Vector2<float> m_offset;
  };

  /// Bits of `m_flags`.
  enum Flag : std::uint8_t {
    ScaleWithModel = 0x10,   ///< the content scales with the model
    IgnoreDepthTest = 0x20,  ///< drawn in front of the model
    ScaleLocked = 0x40,      ///< the content keeps its size on screen
    FrameUnlocked = 0x80,    ///< the content turns towards the viewer
  };

  qvCadAnnotation();
  ~qvCadAnnotation() override;

  qvRtti const& GetType() const override;
  void SetName(std::string const& name) override;
  std::string const& GetName() const override;

  std::shared_ptr<svg::Node> m_svgRoot;
  std::vector<LineSegment> m_lineSegments;
  std::vector<Shape> m_shapes;
  std::vector<SvgLeaderAnchors> m_leaderAnchors;
  Wm4::Vector3<float> m_position;
  float m_rotationAngle = 0.0F;  ///< radians, counter-clockwise in the view plane
  float m_scale = 1.0F;
  Wm4::Vector3<unsigned char> m_color;  ///< of everything that sets no colour itself; black by default
  std::uint8_t m_flags = 0;

 private:
  std::string m_name;
};

}  // namespace qv
