#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iterator>
#include <string>
#include <string_view>

#include "annotationLegacy/qvAnnotationText.h"
#include "migration/migrationFindings.h"
#include "rules/colors.h"
#include "rules/valueNames.h"
#include "rules/values.h"
#include "text/colorText.h"
#include "text/countText.h"
#include "text/visibleText.h"

namespace qvToolkit {

namespace {

using qvLegacy::qvAnnotationText;

namespace rules = qvLegacy::rules;
using Line = qvAnnotationText::Line;
using Run = qvAnnotationText::TextSegment;
using Color = Wm4::Vector3<unsigned char>;

/// Of the contrast ratio of web pages, which runs from 1 to 21. Small print is asked to have 4.5.
constexpr float MinContrast = 2.0F;

std::string_view getRunText(Run const& run) {
  return run.m_text == nullptr ? std::string_view() : std::string_view(run.m_text.get(), run.m_length);
}

/// Skipped by the migration: empty, or of blanks only.
bool isSkipped(Run const& run) {
  return rules::isBlankRun(getRunText(run));
}

bool isBlankLine(Line const& line) {
  return std::all_of(line.begin(), line.end(), isSkipped);
}

void reportBlankLines(qvAnnotationText const& text, std::string const& address, FindingList& findings) {
  auto const total = static_cast<std::ptrdiff_t>(text.m_lines.size());
  auto blank = std::count_if(text.m_lines.begin(), text.m_lines.end(), isBlankLine);
  // A text without anything else keeps one line, with a single blank.
  if (blank == total) --blank;
  if (blank <= 0) return;
  findings.add(FindingCode::BlankLineSkipped,
               formatCountIs(static_cast<std::uint64_t>(blank), "blank line") + " left out", address);
}

/// Runs of blanks in front of a text of the same line, which moves closer to what stands before it.
std::size_t countBlanksBeforeText(Line const& line) {
  auto const isText = [](Run const& run) { return !isSkipped(run); };
  auto const isBlank = [](Run const& run) { return run.m_length > 0 && isSkipped(run); };
  auto const last = std::find_if(line.rbegin(), line.rend(), isText);
  return static_cast<std::size_t>(std::count_if(last, line.rend(), isBlank));
}

void reportBlankRuns(qvAnnotationText const& text, std::string const& address, FindingList& findings) {
  std::size_t count = 0;
  for (Line const& line : text.m_lines) count += countBlanksBeforeText(line);
  if (count == 0) return;
  findings.add(FindingCode::BlankRunSkipped,
               formatCount(count, "run") + " of blanks within lines left out; what follows moves closer",
               address);
}

void reportFontNames(qvAnnotationText const& text, std::string const& address, FindingList& findings) {
  reportRepair(text.m_defaultTextProperties.m_fontName, "font name", address, findings);
  for (Line const& line : text.m_lines) {
    for (Run const& run : line) {
      if (run.m_textProperties != nullptr) {
        reportRepair(run.m_textProperties->m_fontName, "font name", address, findings);
      }
    }
  }
}

std::size_t countUnseen(qvAnnotationText const& text) {
  std::size_t count = 0;
  for (Line const& line : text.m_lines) {
    for (Run const& run : line) {
      auto const& properties =
          run.m_textProperties != nullptr ? *run.m_textProperties : text.m_defaultTextProperties;
      if (properties.m_height == 0) count += countVisibleCharacters(getRunText(run));
    }
  }
  return count;
}

void reportHeight(qvAnnotationText const& text, std::string const& address, FindingList& findings) {
  std::size_t const count = countUnseen(text);
  if (count == 0) return;
  findings.add(
      makeFinding(FindingCode::TextNoHeight,
                  formatCount(count, "character") +
                      " of height 0 not drawn; a height below 0.01, or one that is no number, counts as 0",
                  address));
}

void reportRunTypes(qvAnnotationText const& text, std::string const& address, FindingList& findings) {
  for (Line const& line : text.m_lines) {
    for (Run const& run : line) {
      auto const type = static_cast<unsigned>(run.m_type);
      if (!rules::segmentTypes.nameOf(type).empty()) continue;
      findings.add(
          FindingCode::ValueUnknown,
          "run type " + std::to_string(type) + " is unknown, expected 0 to 2; the run is a normal one",
          address);
    }
  }
}

float linearize(unsigned char part) {
  float const share = static_cast<float>(part) / 255.0F;
  return share <= 0.04045F ? share / 12.92F : std::pow((share + 0.055F) / 1.055F, 2.4F);
}

/// Of black on the colour.
float getContrast(Color const& color) {
  float const luminance =
      0.2126F * linearize(color.X()) + 0.7152F * linearize(color.Y()) + 0.0722F * linearize(color.Z());
  return (luminance + 0.05F) / 0.05F;
}

void reportContrast(qvAnnotationText const& text, std::string const& address, FindingList& findings) {
  Color const& color = text.m_color;
  if (rules::takesWhiteText(color.X(), color.Y(), color.Z()) || getContrast(color) >= MinContrast) return;
  auto const isVisible = [](Run const& run) { return countVisibleCharacters(getRunText(run)) > 0; };
  auto const hasText = [&](Line const& line) { return std::any_of(line.begin(), line.end(), isVisible); };
  if (std::none_of(text.m_lines.begin(), text.m_lines.end(), hasText)) return;
  findings.add(FindingCode::TextLowContrast, "the text is hard to see: black on " + formatColor(color),
               address);
}

}  // namespace

void reportText(AnnotationPair const& pair, FindingList& findings) {
  auto const* const text = dynamic_cast<qvAnnotationText const*>(pair.m_legacy);
  if (text == nullptr) return;
  reportBlankLines(*text, pair.m_address, findings);
  reportBlankRuns(*text, pair.m_address, findings);
  reportFontNames(*text, pair.m_address, findings);
  reportHeight(*text, pair.m_address, findings);
  reportRunTypes(*text, pair.m_address, findings);
  reportContrast(*text, pair.m_address, findings);
}

}  // namespace qvToolkit
