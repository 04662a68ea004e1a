#include "qvToolkit/reports/fontReport.h"

#include <algorithm>
#include <map>
#include <optional>
#include <set>
#include <tuple>

#include "migration/itemWalk.h"
#include "qvAnnotation/fontOptions.h"
#include "qvSvg/text.h"
#include "text/textTable.h"
#include "text/utf8.h"

namespace qvToolkit {

namespace {

using qv::svg::FontMatch;

auto makeKey(FontUse const& use) {
  return std::tuple(use.m_askedFamily, use.m_bold, use.m_italic, use.m_match, use.m_family, use.m_file,
                    use.m_faceIndex);
}

FontUse makeUse(qv::svg::TextSpan const& span) {
  FontUse use;
  use.m_askedFamily = span.m_askedFamily;
  use.m_bold = span.m_bold;
  use.m_italic = span.m_italic;
  use.m_match = span.m_match;
  use.m_family = span.m_family;
  use.m_synthesis = span.m_synthesis;
  if (span.m_glyphSource != nullptr) {
    use.m_file = span.m_glyphSource->getFontFile();
    use.m_faceIndex = span.m_glyphSource->getFaceIndex();
  }
  return use;
}

class FontCollector {
 public:
  void addView(MigratedView const& view) {
    if (view.m_view == nullptr) return;
    m_marks = &view.m_marks;
    std::string const address = Address::ofView(view.m_index).getText();
    for (auto const& annotation : view.m_view->m_annotations) {
      bool const hasContent = annotation != nullptr && annotation->m_svgRoot != nullptr;
      if (hasContent) walkItems(*annotation->m_svgRoot, *this, &address);
    }
  }

  /// For `walkItems`, with the address of the annotation around.
  std::optional<std::string const*> enter(qv::svg::ItemInterface const& item, std::string const* address) {
    if (AnnotationMark const* const mark = findMark(*m_marks, &item)) address = &mark->m_address;
    if (item.getKind() == qv::svg::ItemKind::Text) {
      for (auto const& span : static_cast<qv::svg::Text const&>(item).m_spans) addSpan(span, *address);
    }
    return address;
  }
  void leave(qv::svg::ItemInterface const&) {}

  FontReport takeReport() {
    FontReport report;
    for (auto& [key, use] : m_uses) report.m_uses.push_back(std::move(use));
    for (auto& [character, missing] : m_missing) report.m_missing.push_back(std::move(missing));
    return report;
  }

 private:
  void addSpan(qv::svg::TextSpan const& span, std::string const& address) {
    FontUse use = makeUse(span);
    auto key = makeKey(use);
    FontUse& known = m_uses.try_emplace(std::move(key), std::move(use)).first->second;
    known.m_characters += getTextWidth(span.m_text);
    for (std::string_view text = span.m_original; !text.empty();) {
      addMissing(takeUtf8(text).m_codePoint, address);
    }
  }

  void addMissing(char32_t character, std::string const& address) {
    MissingCharacter& missing = m_missing[character];
    missing.m_character = character;
    missing.m_package = qv::text::findPackageWithCharacter(character);
    bool const isKnown = !missing.m_addresses.empty() && missing.m_addresses.back() == address;
    if (!isKnown) missing.m_addresses.push_back(address);
  }

  AnnotationMarks const* m_marks = nullptr;
  std::map<decltype(makeKey(FontUse())), FontUse> m_uses;
  std::map<char32_t, MissingCharacter> m_missing;
};

/// A family is there when any text in it is drawn with it or with one as wide; other fonts then only lend
/// their signs.
void findFamilyPackages(FontReport& report) {
  std::set<std::string> present;
  for (FontUse const& use : report.m_uses) {
    if (use.m_match <= FontMatch::MetricCompatible) present.insert(use.m_askedFamily);
  }
  for (FontUse& use : report.m_uses) {
    if (!present.contains(use.m_askedFamily))
      use.m_package = qv::text::findPackageWithFamily(use.m_askedFamily);
  }
}

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
  FontCollector collector;
  for (MigratedView const& view : views) collector.addView(view);
  FontReport report = collector.takeReport();
  report.m_viewsLeftOut =
      static_cast<std::uint64_t>(std::ranges::count(views, nullptr, &MigratedView::m_view));
  findFamilyPackages(report);
  return report;
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
