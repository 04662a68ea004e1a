#pragma once

#include <memory>

#include "qvAnnotation/textArea.h"
#include "qvSvg/node.h"
#include "qvSystem/export.h"
#include "wm4/vector2.h"

namespace qv::text {

/// Lays text out as SVG text items. Keeps fonts and buffers between calls: not for two threads at once.
class QV_EXPORT TextSegmentToSvgConverter {
 public:
  TextSegmentToSvgConverter();
  ~TextSegmentToSvgConverter();
  TextSegmentToSvgConverter(TextSegmentToSvgConverter const&) = delete;
  TextSegmentToSvgConverter& operator=(TextSegmentToSvgConverter const&) = delete;

  /// Appends the laid-out text to `node`, in layout coordinates: y up, the left end of the first baseline at
  /// the origin, further lines below it. Items set no fill, so the node's fill is the text colour, and no
  /// stroke
  /// ("none"). `size`, when not null, receives the width and height of the text's box; `name` becomes the
  /// class text of the items' group. Runs without characters yield nothing. False when no font at all can be
  /// loaded.
  bool convertTextAreaToSvg(TextArea const& area, svg::Node& node, Wm4::Vector2<float>* size,
                            char const* name);

 private:
  struct Impl;
  std::unique_ptr<Impl> m_impl;
};

}  // namespace qv::text
