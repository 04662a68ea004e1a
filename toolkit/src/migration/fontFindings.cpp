#include "migration/fontFindings.h"

#include <algorithm>
#include <cstddef>

#include "qvAnnotation/fontOptions.h"
#include "qvToolkit/text/textEscape.h"
#include "text/characterName.h"
#include "text/countText.h"
#include "text/hexadecimal.h"
#include "text/utf8.h"
#include "text/visibleText.h"

namespace qvToolkit {

namespace {

constexpr std::size_t MaxShownPieces = 5;

std::string foldName(std::string_view name) {
  std::string folded;
  for (char const c : name) {
    if (c != ' ') folded += c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  }
  return folded;
}

/// "'DejaVu Sans' (/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf)".
std::string nameFont(qv::svg::TextSpan const& span) {
  std::string text = "'" + shortenText(span.m_family) + "'";
  if (span.m_glyphSource != nullptr) text += " (" + span.m_glyphSource->getFontFile() + ")";
  return text;
}

void reportMissing(std::string_view text, std::string const& address, FindingList& findings) {
  while (!text.empty()) {
    char32_t const character = takeUtf8(text).m_codePoint;
    std::string const package(qv::text::findPackageWithCharacter(character));
    findings.add(FindingCode::GlyphMissing,
                 "no font has the character " + describeCharacter(character) +
                     "; a replacement sign is drawn; install " +
                     (package.empty() ? "a font that has it" : "the package " + package),
                 address);
  }
}

/// The family that the font options name for the one that is asked for; empty when they name none.
std::string findReplacement(std::string_view askedFamily) {
  std::string const asked = foldName(askedFamily);
  for (qv::text::FontReplacement const& each : qv::text::getFontOptions().m_replacements) {
    if (foldName(each.m_family) == asked) return each.m_replacement;
  }
  return {};
}

/// A family that the font options replace counts as asked for, but is not the document's.
void reportReplacement(qv::svg::TextSpan const& span, std::string const& fonts, std::string const& address,
                       FindingList& findings) {
  bool const isReplaced =
      foldName(span.m_askedFamily) != foldName(span.m_family) && !findReplacement(span.m_askedFamily).empty();
  if (!isReplaced) return;
  findings.add(FindingCode::FontReplaced, fonts + ", as was asked for", address);
}

/// Options that cannot be followed must not be passed over in silence.
void reportMissingReplacement(qv::svg::TextSpan const& span, std::string const& fonts,
                              std::string const& address, FindingList& findings) {
  std::string const replacement = findReplacement(span.m_askedFamily);
  if (replacement.empty() || qv::text::hasFontFamily(replacement)) return;
  findings.add(withOptions(
      makeFinding(FindingCode::FontSubstituted,
                  fonts + ", since the font '" + replacement + "' that is named instead is not there",
                  address),
      {OptionKey::FontReplacement}));
}

void reportMatch(qv::svg::TextSpan const& span, std::string const& address, FindingList& findings) {
  std::string const fonts =
      "text in font '" + shortenText(span.m_askedFamily) + "' is drawn with " + nameFont(span);
  reportMissingReplacement(span, fonts, address, findings);
  switch (span.m_match) {
    case qv::svg::FontMatch::Asked:
      return reportReplacement(span, fonts, address, findings);
    case qv::svg::FontMatch::MetricCompatible:
      findings.add(FindingCode::FontMetricCompatible, fonts + ", which is as wide", address);
      return;
    case qv::svg::FontMatch::Substitute:
      findings.add(FindingCode::FontSubstituted, fonts + ", which is not as wide", address);
      return;
    case qv::svg::FontMatch::Missing:
      return reportMissing(span.m_original, address, findings);
  }
}

void reportSynthesis(qv::svg::TextSpan const& span, std::string const& address, FindingList& findings) {
  std::string const font = "the font " + nameFont(span);
  if (span.m_synthesis.m_bold) {
    findings.add(FindingCode::FontSynthesized, font + " has no bold face; bold is made up by a stroke",
                 address);
  }
  if (span.m_synthesis.m_oblique) {
    findings.add(FindingCode::FontSynthesized, font + " has no italic face; italic is made up by a slant",
                 address);
  }
}

/// A font may have characters without drawing anything for them.
void reportNoInk(qv::svg::TextSpan const& span, std::string const& address, FindingList& findings) {
  if (span.m_glyphSource == nullptr || !span.m_glyphs.empty()) return;
  std::size_t const count = countVisibleCharacters(span.m_text);
  if (count == 0) return;
  findings.add(withOptions(
      makeFinding(FindingCode::GlyphMissing,
                  "the font " + nameFont(span) + " draws nothing for " + formatCount(count, "character") +
                      " of the text; remove it, or name another one",
                  address),
      {OptionKey::FontReplacement}));
}

/// "U+001B" for a character, "the bytes FF FE" for what is none.
std::string describePiece(std::string_view bytes) {
  Utf8Step const step = decodeUtf8(bytes);
  if (step.m_length == bytes.size() && (step.m_isValid || isSurrogate(step.m_codePoint))) {
    return formatCodePoint(step.m_codePoint);
  }
  std::string text = formatNoun(bytes.size(), "the byte");
  for (char const byte : bytes) text += ' ' + toHexBytes({&byte, 1}, HexCase::Upper);
  return text;
}

void reportUnshowable(qv::svg::TextSpan const& span, std::string const& address, FindingList& findings) {
  if (span.m_unshowable.empty()) return;
  std::string text = "the text holds ";
  std::size_t const shown = std::min(span.m_unshowable.size(), MaxShownPieces);
  for (std::size_t i = 0; i < shown; ++i) {
    if (i > 0) text += ", ";
    text += describePiece(span.m_unshowable[i]);
  }
  if (shown < span.m_unshowable.size()) {
    text += " and " + std::to_string(span.m_unshowable.size() - shown) + " more";
  }
  findings.add(FindingCode::TextRepaired, text + ": control characters and invalid UTF-8 are shown as U+FFFD",
               address);
}

}  // namespace

void reportSpan(qv::svg::TextSpan const& span, std::string const& address, FindingList& findings) {
  reportMatch(span, address, findings);
  reportSynthesis(span, address, findings);
  reportUnshowable(span, address, findings);
  reportNoInk(span, address, findings);
}

}  // namespace qvToolkit
