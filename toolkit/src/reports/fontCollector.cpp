#include "qvToolkit/reports/fontCollector.h"

#include <functional>
#include <optional>
#include <set>
#include <string_view>
#include <tuple>

#include "migration/itemWalk.h"
#include "qvAnnotation/fontOptions.h"
#include "qvSvg/text.h"
#include "text/sha256.h"
#include "text/textTable.h"
#include "text/utf8.h"

namespace qvToolkit {

namespace {

using qv::svg::FontMatch;

/// All that tells one use from another; texts are strings where it is kept and views where it is looked for.
template <class Text>
using UseKey = std::tuple<Text, bool, bool, FontMatch, Text, Text, unsigned>;

/// Of both kinds; clang 14 compares no tuples of strings with tuples of views.
struct UseOrder {
  using is_transparent = void;
  using Key = UseKey<std::string_view>;
  bool operator()(Key const& a, Key const& b) const { return a < b; }
};

UseKey<std::string_view> makeKey(qv::svg::TextSpan const& span) {
  qv::svg::GlyphSource const* const source = span.m_glyphSource.get();
  return {span.m_askedFamily,
          span.m_bold,
          span.m_italic,
          span.m_match,
          span.m_family,
          source != nullptr ? std::string_view(source->getFontFile()) : std::string_view(),
          source != nullptr ? source->getFaceIndex() : 0};
}

FontUse makeUse(qv::svg::TextSpan const& span, FontHashes& hashes) {
  FontUse use;
  use.m_askedFamily = span.m_askedFamily;
  use.m_bold = span.m_bold;
  use.m_italic = span.m_italic;
  use.m_match = span.m_match;
  use.m_family = span.m_family;
  use.m_synthesis = span.m_synthesis;
  if (span.m_glyphSource != nullptr) {
    use.m_file = span.m_glyphSource->getFontFile();
    use.m_version = span.m_glyphSource->getFontVersion();
    use.m_sha256 = hashes.get(span.m_glyphSource);
    use.m_faceIndex = span.m_glyphSource->getFaceIndex();
  }
  return use;
}

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

}  // namespace

std::string const& FontHashes::get(std::shared_ptr<qv::svg::GlyphSource const> const& source) {
  static std::string const none;
  if (source == nullptr) return none;
  Known& known = m_files[source->getFontFile()];
  if (known.m_source.expired()) known = {source, hashSha256(source->getFontData())};
  return known.m_sha256;
}

/// What was found up to now.
class FontCollector::Found {
 public:
  explicit Found(FontHashes& hashes) : m_hashes(hashes) {}

  void addView(MigratedView const& view);
  FontReport makeReport() const;

  /// For `walkItems`, with the address of the annotation around.
  std::optional<std::string const*> enter(qv::svg::ItemInterface const& item, std::string const* address);
  void leave(qv::svg::ItemInterface const&) {}

 private:
  void addSpan(qv::svg::TextSpan const& span, std::string const& address);
  void addMissing(char32_t character, std::string const& address);

  FontHashes& m_hashes;
  AnnotationMarks const* m_marks = nullptr;
  std::map<UseKey<std::string>, FontUse, UseOrder> m_uses;
  std::map<char32_t, MissingCharacter> m_missing;
  std::uint64_t m_viewsLeftOut = 0;
};

void FontCollector::Found::addView(MigratedView const& view) {
  if (view.m_view == nullptr) {
    ++m_viewsLeftOut;
    return;
  }
  m_marks = &view.m_marks;
  std::string const address = Address::ofView(view.m_index).getText();
  for (auto const& annotation : view.m_view->m_annotations) {
    bool const hasContent = annotation != nullptr && annotation->m_svgRoot != nullptr;
    if (hasContent) walkItems(*annotation->m_svgRoot, *this, &address);
  }
}

std::optional<std::string const*> FontCollector::Found::enter(qv::svg::ItemInterface const& item,
                                                              std::string const* address) {
  if (AnnotationMark const* const mark = findMark(*m_marks, &item)) address = &mark->m_address;
  if (item.getKind() == qv::svg::ItemKind::Text) {
    for (auto const& span : static_cast<qv::svg::Text const&>(item).m_spans) addSpan(span, *address);
  }
  return address;
}

void FontCollector::Found::addSpan(qv::svg::TextSpan const& span, std::string const& address) {
  auto const key = makeKey(span);
  auto use = m_uses.find(key);
  if (use == m_uses.end()) use = m_uses.emplace(key, makeUse(span, m_hashes)).first;
  use->second.m_characters += getTextWidth(span.m_text);
  for (std::string_view text = span.m_original; !text.empty();) {
    addMissing(takeUtf8(text).m_codePoint, address);
  }
}

void FontCollector::Found::addMissing(char32_t character, std::string const& address) {
  MissingCharacter& missing = m_missing[character];
  missing.m_character = character;
  missing.m_package = qv::text::findPackageWithCharacter(character);
  bool const isKnown = !missing.m_addresses.empty() && missing.m_addresses.back() == address;
  if (!isKnown) missing.m_addresses.push_back(address);
}

FontReport FontCollector::Found::makeReport() const {
  FontReport report;
  for (auto const& [key, use] : m_uses) report.m_uses.push_back(use);
  for (auto const& [character, missing] : m_missing) report.m_missing.push_back(missing);
  report.m_viewsLeftOut = m_viewsLeftOut;
  findFamilyPackages(report);
  return report;
}

FontCollector::FontCollector(FontHashes& hashes) : m_found(std::make_unique<Found>(hashes)) {
}

FontCollector::~FontCollector() = default;

void FontCollector::add(MigratedView const& view) {
  m_found->addView(view);
}

FontReport FontCollector::makeReport() const {
  return m_found->makeReport();
}

}  // namespace qvToolkit
