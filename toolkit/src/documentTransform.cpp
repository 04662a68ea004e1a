#include "toolkit/documentTransform.h"

#include <unordered_set>

namespace qvToolkit {

namespace {

using qvLegacy::qvAnnotationInterface;
using Transformation = qv::qvGenericTransformation<float>;

/// An annotation to move, and whether its position is an offset from its parent.
struct Task {
  qvAnnotationInterface* m_annotation;
  bool m_isOffset;
};

/// Moves annotation trees from a work list, so that depth costs no stack.
class TreeMover {
 public:
  explicit TreeMover(Transformation const& transformation) : m_transformation(transformation) {}

  void move(qvLegacy::qvAnnotationView& view) {
    if (!m_moved.insert(&view).second) return;
    view.transform(m_transformation);
    for (auto const& annotation : view.m_annotations) m_tasks.push_back({annotation.get(), false});
    while (!m_tasks.empty()) {
      Task const task = m_tasks.back();
      m_tasks.pop_back();
      if (task.m_annotation != nullptr && m_moved.insert(task.m_annotation).second) move(task);
    }
  }

 private:
  void move(Task const& task) {
    qvAnnotationInterface& annotation = *task.m_annotation;
    Wm4::Vector3<float> const offset = annotation.m_position;
    annotation.transform(m_transformation);
    if (task.m_isOffset) annotation.m_position = m_transformation.ApplyForward(offset, false);
    for (auto const& sub : annotation.getSubAnnots()) {
      m_tasks.push_back({sub.m_annot.get(), sub.m_anchor == qvAnnotationInterface::Free});
    }
  }

  Transformation const& m_transformation;
  std::vector<Task> m_tasks;
  std::unordered_set<qv::qvObject const*> m_moved;  // looked up only: its order reaches no output
};

}  // namespace

void transformDocument(Document& document, Transformation const& transformation) {
  TreeMover mover(transformation);
  for (LoadedView const& loaded : document.m_views) {
    if (loaded.m_view != nullptr) mover.move(*loaded.m_view);
  }
}

}  // namespace qvToolkit
