#include "tests/support/exportSupport.h"

namespace qvTest {

std::string makePng() {
  static constexpr unsigned char Bytes[] = {
      0x89, 0x50, 0x4E, 0x47, 0x0D, 0x0A, 0x1A, 0x0A, 0x00, 0x00, 0x00, 0x0D, 0x49, 0x48,
      0x44, 0x52, 0x00, 0x00, 0x00, 0x01, 0x00, 0x00, 0x00, 0x01, 0x08, 0x06, 0x00, 0x00,
      0x00, 0x1F, 0x15, 0xC4, 0x89, 0x00, 0x00, 0x00, 0x0D, 0x49, 0x44, 0x41, 0x54, 0x78,
      0x9C, 0x63, 0x60, 0x60, 0x60, 0xF8, 0x0F, 0x00, 0x01, 0x04, 0x01, 0x00, 0x5F, 0xE5,
      0xC3, 0x4B, 0x00, 0x00, 0x00, 0x00, 0x49, 0x45, 0x4E, 0x44, 0xAE, 0x42, 0x60, 0x82};
  return {reinterpret_cast<char const*>(Bytes), sizeof Bytes};
}

qvToolkit::MigratedView makeView() {
  qvToolkit::MigratedView view;
  view.m_view = new qv::qvCadAnnotationView;
  addAnnotation(view, "note");
  return view;
}

qv::qvCadAnnotation& addAnnotation(qvToolkit::MigratedView& view, std::string const& name) {
  auto& list = view.m_view->m_annotations;
  std::string const address = "view/0/annot/" + std::to_string(list.size());
  qv::qvCadAnnotation& annotation = *list.emplace_back(new qv::qvCadAnnotation);
  annotation.SetName(name);
  annotation.m_svgRoot = std::make_shared<qv::svg::Node>();
  view.m_marks[annotation.m_svgRoot.get()] = {name, address};
  return annotation;
}

qv::svg::Text& addText(qv::svg::Node& node, std::string const& text) {
  auto& group = addItem(node, std::make_shared<qv::svg::Node>());
  group.m_transform = Wm4::Matrix3<float>(1, 0, 0, 0, -1, 0, 0, 0, 1);
  auto& item = addItem(group, std::make_shared<qv::svg::Text>());
  item.m_size = 3.5F;
  item.m_box = {{0.0F, -1.0F}, {10.0F, 3.0F}};
  qv::svg::TextSpan span;
  span.m_text = text;
  span.m_family = "Liberation Sans";
  span.m_advance = 10.0F;
  item.m_spans.push_back(span);
  return item;
}

qv::svg::Image& addImage(qvToolkit::MigratedView& view, std::string bytes) {
  auto& item = addItem(*getAnnotation(view).m_svgRoot, std::make_shared<qv::svg::Image>());
  item.m_data = "raster " + std::to_string(view.m_images.size());
  view.m_images.emplace(item.m_data, std::make_shared<qvToolkit::Image const>(std::move(bytes)));
  return item;
}

std::string writePage(qvToolkit::MigratedView const& view, qvToolkit::Findings* findings) {
  StringSink sink;
  qvToolkit::Findings found = writeSvgPage(view, sink);
  if (findings != nullptr) *findings = std::move(found);
  return sink.m_text;
}

XmlElement parsePage(qvToolkit::MigratedView const& view, qvToolkit::Findings* findings) {
  return parseXml(writePage(view, findings));
}

qv::qvPointer<qvLegacy::qvAnnotationView> makeLegacyView() {
  qv::qvPointer<qvLegacy::qvAnnotationView> view = new qvLegacy::qvAnnotationView;
  view->SetName("front");
  return view;
}

qv::qvPointer<qvLegacy::qvAnnotationText> makeLegacyText(std::string const& text) {
  qv::qvPointer<qvLegacy::qvAnnotationText> annotation = new qvLegacy::qvAnnotationText;
  annotation->SetName("note");
  annotation->setText(text);
  return annotation;
}

qvToolkit::Document makeDocument(qv::qvPointer<qvLegacy::qvAnnotationView> const& view) {
  qvToolkit::Document document;
  document.m_path = "part.json";
  document.m_views.push_back(
      {view, qv::qvStreamVersion(6, 27), view == nullptr ? "gone" : view->GetName(), {}});
  return document;
}

Migrated migrate(qvToolkit::Document const& document, qvToolkit::MigrationOptions const& options) {
  Migrated migrated;
  auto const tell = [&](qvToolkit::Finding finding) { migrated.m_findings.push_back(std::move(finding)); };
  qvToolkit::MigrationSession session(options, tell);
  static_cast<qvToolkit::MigratedView&>(migrated) = std::move(session.migrate(document).front());
  return migrated;
}

Migrated migrate(qv::qvPointer<qvLegacy::qvAnnotationView> const& view,
                 qvToolkit::MigrationOptions const& options) {
  return migrate(makeDocument(view), options);
}

qvToolkit::Findings select(qvToolkit::Findings const& findings, qvToolkit::FindingCode code) {
  qvToolkit::Findings selected;
  for (auto const& finding : findings) {
    if (finding.m_code == code) selected.push_back(finding);
  }
  return selected;
}

}  // namespace qvTest
