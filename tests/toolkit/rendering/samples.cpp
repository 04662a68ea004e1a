#include "samples.h"

namespace qvTest {

namespace {

constexpr auto Sub = qv::text::TextSegment::Subscript;
constexpr auto Super = qv::text::TextSegment::Superscript;

constexpr char const* Arial = "Arial";
constexpr char const* DejaVu = "DejaVu Sans";
constexpr char const* Times = "Times New Roman";
constexpr char const* Courier = "Courier New";
constexpr char const* MathFont = "Noto Sans Math";

}  // namespace

std::vector<Sample> const& getSamples() {
  static std::vector<Sample> const samples = {
      // dimensions and tolerances
      {Arial, false, false, {{"120\u00B10.2"}}},
      {Arial, false, false, {{"80"}, {"+0.1", Super}, {"\u22120.05", Sub}}},
      {Arial, false, false, {{"\u230018 H7"}, {"+0.018", Super}, {"0", Sub}, {" (2\u00D7)"}}},
      {Arial, false, false, {{"H"}, {"2", Sub}, {"O at 20 \u00B0C, 10"}, {"\u22123", Super}, {" m"}}},
      {Arial, false, false, {{"2\u00D7 \u230011 THRU"}}},
      {Arial, false, false, {{"\u2334 \u230018 \u21A76"}}},
      {Arial, false, false, {{"\u2335 \u230020 \u00D7 90\u00B0"}}},
      {Arial, true, false, {{"R12.5 TYP"}}},
      {Arial, false, true, {{"M8\u00D71.25 - 6g"}}},
      {Arial, true, true, {{"AVATAR To. Wa"}}},
      // tolerance frames
      {Arial, false, false, {{"\u2316 \u23000.2 \u24C2 A B"}}},
      {Arial, false, false, {{"\u2312\u2313\u232D\u232F\u2330"}}},
      {Arial, false, false, {{"\u2331 \u23E4 \u23E5 \u25CB"}}},
      {Arial, false, false, {{"\u2225 \u27C2 \u2220 0.05"}}},
      {Arial, false, false, {{"\u24C1 \u24C5 \u24C2 \u25A1"}}},
      {DejaVu, false, false, {{"\u2316\u2300\u2225\u2220"}}},
      {DejaVu, true, false, {{"\u2300 0.05 \u24C2"}}},
      {MathFont, true, false, {{"\u2211 \u221A2 Rz 6.3"}}},
      {MathFont, false, true, {{"\u03A3F \u2260 0"}}},
      {MathFont, true, true, {{"\u2264 45\u00B0"}}},
      // Latin in several faces
      {Arial, false, false, {{"office ﬁt flow AV To"}}},
      {DejaVu, false, false, {{"office affluent ff"}}},
      {DejaVu, true, false, {{"fixed floor cliff"}}},
      {DejaVu, false, true, {{"DejaVu oblique"}}},
      {Times, false, false, {{"Times: fit flag"}}},
      {Times, true, false, {{"VARIATION AWAY"}}},
      {Courier, false, false, {{"O-RING 12x2"}}},
      {Courier, true, false, {{"ISO 2768-mK"}}},
      {Arial, false, false, {{"\u00C4\u00D6\u00DC \u00E9\u00E8\u00F1 \u0141\u00F3d\u017A"}}},
      {Arial, false, false, {{"a\u0301e\u0308o\u0302 n\u0303"}}},
      {Arial, false, false, {{"big "}, {"small", Sub}, {" big"}}},
      {"No Such Family", false, false, {{"Substitute 100%"}}},
      // Greek and Cyrillic
      {Arial, false, false, {{"\u0391\u03A9 \u03BC\u03B5\u03C4\u03B1\u03BB\u03BB\u03BF"}}},
      {DejaVu, false, false, {{"\u03B1 = 30\u00B0, \u03B2 \u2265 15\u00B0"}}},
      {Times, false, true, {{"\u03BB\u03C0\u03C1 \u0394\u03C6"}}},
      {Arial, false, false, {{"\u0414\u043E\u043F\u0443\u0441\u043A \u00B10,1"}}},
      {Arial, true, false, {{"\u0421\u0422\u0410\u041B\u042C 45 \u0413\u041E\u0421\u0422"}}},
      {DejaVu, true, false, {{"\u0436\u0449\u044E \u230018"}}},
      // Hebrew and Arabic
      {DejaVu, false, false, {{"\u05E9\u05DC\u05D5\u05DD \u05E2\u05D5\u05DC\u05DD"}}},
      {Arial, false, false, {{"\u05E7\u05D5\u05D8\u05E8 \u230018 \u05DE\"\u05DE"}}},
      {Arial, false, false, {{"R12 \u05E8\u05D3\u05D9\u05D5\u05E1 (2)"}}},
      {DejaVu, false, false, {{"\u0645\u0631\u062D\u0628\u0627 \u0628\u0627\u0644\u0639\u0627\u0644\u0645"}}},
      {Arial, false, false, {{"\u0642\u0637\u0631 25.4 \u0645\u0645"}}},
      {"Noto Sans Arabic",
       false,
       false,
       {{"\u0627\u0644\u0633\u0644\u0627\u0645 \u0639\u0644\u064A\u0643\u0645"}}},
      {"Noto Sans Hebrew", true, false, {{"\u05D1\u05D3\u05D9\u05E7\u05D4! 100%"}}},
      // Devanagari and Thai
      {"Noto Sans Devanagari",
       false,
       false,
       {{"\u0928\u092E\u0938\u094D\u0924\u0947 \u0915\u094D\u0937\u093F"}}},
      {Arial, false, false, {{"\u0935\u094D\u092F\u093E\u0938 \u230012"}}},
      {"Noto Sans Thai", false, false, {{"\u0E17\u0E35\u0E48 \u0E19\u0E49\u0E33\u0E2B\u0E19\u0E31\u0E01"}}},
  };
  return samples;
}

qv::text::TextArea makeTextArea(Sample const& sample) {
  qv::text::TextArea area;
  area.m_defaultProperties = {SampleSize, sample.m_font, sample.m_bold, sample.m_italic};
  qv::text::TextArea::Line& line = area.m_lines.emplace_back();
  for (SampleRun const& run : sample.m_runs) {
    line.emplace_back(run.m_text, run.m_type, area.m_defaultProperties);
  }
  return area;
}

std::string describe(Sample const& sample) {
  std::string text = "'";
  for (SampleRun const& run : sample.m_runs) text += run.m_text;
  return text + "' in " + sample.m_font + (sample.m_bold ? " bold" : "") + (sample.m_italic ? " italic" : "");
}

}  // namespace qvTest
