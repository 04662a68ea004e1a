/// What is written of a migrated document: pages parse as strict XML of the allowed elements only, JSON as
/// JSON, and all of it is the same twice.

#include <algorithm>

#include "qvToolkit/pages/svgPage.h"
#include "qvToolkit/reports/migratedJson.h"
#include "support/modelChecks.h"
#include "support/modelFromInput.h"
#include "support/target.h"
#include "tests/support/xmlReader.h"

namespace qvFuzz {

namespace {

using qvToolkit::MigratedView;
using qvToolkit::MigrationSession;
using qvToolkit::TextMode;
using qvToolkit::TextSink;

constexpr std::array<std::string_view, 12> Elements{"svg",  "title", "desc",  "g",    "path", "rect",
                                                    "text", "tspan", "image", "defs", "use",  "symbol"};
constexpr std::array<TextMode, 3> Modes{TextMode::Live, TextMode::Outline, TextMode::Both};

void requireSafe(qvTest::XmlElement const& page) {
  for (qvTest::XmlElement const* element : page.getAll()) {
    require(std::ranges::find(Elements, element->m_name) != Elements.end(), "pages hold known elements only");
    for (auto const& [name, value] : element->m_attributes) {
      require(!name.starts_with("on") && name != "style", "pages hold no script and no style");
      if (name == "href" || name == "xlink:href")
        require(value.starts_with("#") || value.starts_with("data:image/"), "pages refer to nothing outside");
    }
  }
}

std::string writePage(MigratedView const& view, TextMode mode) {
  TextSink sink;
  static_cast<void>(qvToolkit::writeSvgPage(view, sink, mode));
  return std::move(sink.m_text);
}

void checkPages(MigratedView const& view, TextMode mode) {
  std::string const page = writePage(view, mode);
  FaultPause const pause;
  requireSafe(qvTest::parseXml(page));
  require(writePage(view, mode) == page, "equal views give equal pages");
}

}  // namespace

void runTarget(InputCursor& input) {
  TextMode const mode = input.takeOneOf(Modes);
  qvToolkit::MigrationOptions options;
  options.m_dropped = 7;
  options.m_headSize = input.takeReal();
  qvToolkit::Document const document = makeDocument(takeView(input));
  requireReports(document);
  qvToolkit::Findings findings;
  MigrationSession session(
      options, [&findings](qvToolkit::Finding finding) { findings.push_back(std::move(finding)); });
  auto const views = [&] {
    FaultPause const pause;  // a log record that cannot be written ends the process
    return session.migrate(document);
  }();
  std::vector<std::string> const names(views.size());
  for (MigratedView const& view : views) {
    require(view.m_view != nullptr || !findings.empty(), "what is not migrated has a reason");
    if (view.m_view != nullptr) checkPages(view, mode);
  }
  for (qvToolkit::Finding const& finding : findings) {
    requirePrintable(qvToolkit::formatFinding("input", finding));
  }
  requireJson(qvToolkit::formatMigratedDocument(document, session, views, names, findings));
}

}  // namespace qvFuzz
