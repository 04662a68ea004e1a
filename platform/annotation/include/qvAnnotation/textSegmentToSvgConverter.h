#pragma once

#include <memory>

#include "qvAnnotation/textArea.h"
#include "qvSvg/node.h"
#include "qvSystem/export.h"
#include "wm4/vector2.h"

namespace qv::text {

/// Lays text out as SVG text items. Keeps buffers between calls: not for two threads at once. Converters
/// share the fonts of the process and the runs that were shaped with them, so several threads may each use
/// their own.
///
/// Lines run in the direction of their first strong character and all begin at the left end of the text,
/// which knows no alignment; directions are mixed by the Unicode bidirectional algorithm. A tab leads to the
/// next stop, one at every eighth blank of the run's font, counted from where the line begins. Blanks count
/// at both ends of a line. Characters that cannot be shown become U+FFFD.
class QV_EXPORT TextSegmentToSvgConverter {
 public:
  TextSegmentToSvgConverter();
  ~TextSegmentToSvgConverter();
  TextSegmentToSvgConverter(TextSegmentToSvgConverter const&) = delete;
  TextSegmentToSvgConverter& operator=(TextSegmentToSvgConverter const&) = delete;

  /// Appends the laid-out text to `node`, in layout coordinates: y up, the left end of the first baseline at
  /// the origin, further lines below it. Items set no fill, so the node's fill is the text colour, and the
  /// stroke "none". `size`, when not null, receives the width and height of the text's box; `name` becomes
  /// the class text of the items' group. Runs without characters yield nothing. False when no font at all can
  /// be loaded. Throws `std::bad_alloc` when memory runs out, in the font libraries, too; the node is as
  /// before then, and a later call starts with fonts read anew.
  bool convertTextAreaToSvg(TextArea const& area, svg::Node& node, Wm4::Vector2<float>* size,
                            char const* name);

 private:
  struct Impl;
  std::unique_ptr<Impl> m_impl;
};

}  // namespace qv::text
