#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "annotationLegacy/qvAnnotationText.h"
#include "qvAnnotation/qvCadAnnotationView.h"
#include "qvSvg/rect.h"
#include "qvSvg/text.h"
#include "qvToolkit/findings/finding.h"
#include "qvToolkit/migration/migrationSession.h"
#include "qvToolkit/model/document.h"
#include "qvToolkit/pages/svgPage.h"
#include "tests/support/stringSink.h"
#include "tests/support/temporaryFolder.h"
#include "tests/support/xmlReader.h"

namespace qvTest {

/// The smallest PNG: one black pixel.
std::string makePng();

/// A migrated view with one empty annotation named "note" at "view/0/annot/0".
qvToolkit::MigratedView makeView();
/// Appends another empty annotation.
qv::qvCadAnnotation& addAnnotation(qvToolkit::MigratedView& view, std::string const& name);
inline qv::qvCadAnnotation& getAnnotation(qvToolkit::MigratedView const& view) {
  return *view.m_view->m_annotations.front();
}
template <class Item>
Item& addItem(qv::svg::Node& node, std::shared_ptr<Item> item) {
  node.editChildren().push_back(item);
  return *item;
}
/// A text item of one span in an upright group.
qv::svg::Text& addText(qv::svg::Node& node, std::string const& text);

/// An image item in the first annotation, with an image of its own of these bytes.
qv::svg::Image& addImage(qvToolkit::MigratedView& view, std::string bytes);

std::string writePage(qvToolkit::MigratedView const& view, qvToolkit::Findings* findings = nullptr);
XmlElement parsePage(qvToolkit::MigratedView const& view, qvToolkit::Findings* findings = nullptr);

/// A legacy view and annotations as a document of one view.
qv::qvPointer<qvLegacy::qvAnnotationView> makeLegacyView();
qv::qvPointer<qvLegacy::qvAnnotationText> makeLegacyText(std::string const& text);
qvToolkit::Document makeDocument(qv::qvPointer<qvLegacy::qvAnnotationView> const& view);
/// A migrated view, and what was told of it.
struct Migrated : qvToolkit::MigratedView {
  qvToolkit::Findings m_findings;
};
/// Migrates the first view of a document, and those behind it.
Migrated migrate(qvToolkit::Document const& document, qvToolkit::MigrationOptions const& options = {});
/// Migrates the view as the only one of a document.
Migrated migrate(qv::qvPointer<qvLegacy::qvAnnotationView> const& view,
                 qvToolkit::MigrationOptions const& options = {});

/// The findings of one code.
qvToolkit::Findings select(qvToolkit::Findings const& findings, qvToolkit::FindingCode code);

}  // namespace qvTest
