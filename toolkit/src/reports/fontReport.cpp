#include "qvToolkit/reports/fontReport.h"

#include <algorithm>
#include <iterator>
#include <set>

#include "qvToolkit/reports/fontCollector.h"

namespace qvToolkit {

namespace {

bool isAboutFonts(FindingCode code) {
  switch (code) {
    case FindingCode::FontNone:
    case FindingCode::FontMetricCompatible:
    case FindingCode::FontSubstituted:
    case FindingCode::FontReplaced:
    case FindingCode::FontSynthesized:
    case FindingCode::GlyphMissing:
    case FindingCode::TextRepaired:
    case FindingCode::ViewNotMigrated:
      return true;
    default:
      return false;
  }
}

}  // namespace

FontReport reportFonts(std::vector<MigratedView> const& views) {
  FontHashes hashes;
  FontCollector collector(hashes);
  for (MigratedView const& view : views) collector.add(view);
  return collector.makeReport();
}

std::vector<std::string> listPackages(FontReport const& report) {
  std::set<std::string> packages;
  for (FontUse const& use : report.m_uses) packages.insert(use.m_package);
  for (MissingCharacter const& missing : report.m_missing) packages.insert(missing.m_package);
  packages.erase(std::string());
  return {packages.begin(), packages.end()};
}

Findings selectFontFindings(Findings const& findings) {
  Findings selected;
  std::ranges::copy_if(findings, std::back_inserter(selected), isAboutFonts, &Finding::m_code);
  return selected;
}

}  // namespace qvToolkit
