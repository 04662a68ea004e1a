#pragma once

#include "qvToolkit/export.h"
#include "qvToolkit/files/outputSink.h"
#include "qvToolkit/findings/finding.h"
#include "qvToolkit/migration/migratedView.h"
#include "qvToolkit/outcome/request.h"

namespace qvToolkit {

/// Writes the SVG page of a migrated view, which must not be null: 1 unit of the page is 1 mm on paper.
/// @code
/// MigrationSession session(MigrationOptions{});
/// OutputSet pages("pages", /*force*/ false);
/// for (MigratedView const& view : session.migrate(openDocument("bracket.json"))) {
///   if (view.m_view == nullptr || !pages.open(getPageName("bracket", view.m_index))) continue;
///   writeSvgPage(view, pages, TextMode::Both);
/// }
/// if (!pages.commit()) std::cerr << pages.getProblem().m_text << '\n';
/// @endcode
/// x runs to the right, y downwards. A view that would be longer than 2 m on paper is shown smaller. The page
/// leaves in pieces; its images are not copied.
///
/// The leaders of all annotations lie at the back, their contents in front, so that no leader crosses a text
/// out. Lines of width 1 are hairlines: 0.25 mm where a renderer scales every stroke, one pixel where it can
/// keep strokes from scaling. The page holds only elements and attributes of a fixed list, no script, no
/// style sheet and no reference to anything outside. Equal views give equal bytes.
///
/// Live text has one `<text>` for each baseline and size and one `<tspan>` for each font really used, placed
/// by its own x, so that every renderer with the same fonts draws it alike. Text items that no layout made
/// have no outlines and stay live.
///
/// Returns a finding for each annotation with an item that is left out, because one of its numbers is not
/// finite or beyond 10^9. A sink that fails ends the page early; it knows why itself.
QVT_EXPORT Findings writeSvgPage(MigratedView const& view, OutputSink& sink, TextMode mode = TextMode::Live);

}  // namespace qvToolkit
