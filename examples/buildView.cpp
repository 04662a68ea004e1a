// Builds a view by hand, turns it by 90 degrees, and migrates it: buildView

#include <iostream>
#include <string>

#include "annotationLegacy/library.h"
#include "annotationLegacy/qvAnnotationMigration.h"
#include "qvAnnotation/qvCadAnnotationView.h"
#include "transform/qvGenericTransformation.h"

using qvLegacy::qvAnnotationText;

/// A framed label at a point of the view plane, with one leader.
qv::qvPointer<qvAnnotationText> makeLabel(std::string const& text, Wm4::Vector3<float> const& position) {
  qv::qvPointer<qvAnnotationText> const label = new qvAnnotationText;
  label->SetName("label " + text);
  label->setText(text);
  label->m_position = position;
  label->m_color = {0, 80, 160};
  label->m_leaders.emplace_back(Wm4::Vector3<float>(0.0F, 0.0F, 0.0F)).m_head = qvAnnotationText::ArrowHead;
  return label;
}

void work() {
  qv::qvPointer<qvLegacy::qvAnnotationView> const view = new qvLegacy::qvAnnotationView;
  view->SetName("By hand");
  qv::qvPointer<qvAnnotationText> const label = makeLabel("12 x M8", {40.0F, 25.0F, 0.0F});
  auto& child = label->editSubAnnots().emplace_back();
  child.m_annot = makeLabel("see sheet 2", {});
  child.m_annot->m_leaders.clear();
  child.m_anchor = qvAnnotationText::RightCenter;
  view->m_annotations.emplace_back(label.get());

  qv::qvGenericTransformation<float> quarterTurn;  // about the X axis of the model
  quarterTurn.SetRotate({1.0F, 0.0F, 0.0F, 0.0F, 0.0F, -1.0F, 0.0F, 1.0F, 0.0F});
  view->transform(quarterTurn);
  Wm4::Vector3<float> const& normal = view->m_planeNormal;
  std::cout << "normal: " << normal.X() << ' ' << normal.Y() << ' ' << normal.Z() << '\n';

  qvLegacy::qvAnnotationMigration migration(0, nullptr, nullptr, 3.0F);
  qv::qvPointer<qv::qvCadAnnotationView> cad;
  if (!migration.migrateAnnotationView(view, cad)) return;
  for (auto const& annotation : cad->m_annotations) {
    std::cout << annotation->GetName() << ": " << annotation->m_svgRoot->getChildren().size()
              << " SVG items, " << annotation->m_lineSegments.size() << " leader lines, "
              << annotation->m_shapes.size() << " leader heads\n";
  }
}

int main() {
  qv::initializeQvAnnotationLegacyLibrary();
  work();  // what it makes is gone before the library is
  qv::terminateQvAnnotationLegacyLibrary();
}
