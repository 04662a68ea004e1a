#include "familyNames.h"

#include <algorithm>

namespace qv::text {

namespace {

// Free families first that are drawn after the one that documents name, then those that merely share its
// widths.
constexpr std::string_view SANS[] = {"Arial",         "Liberation Sans", "Arimo",       "Albany AMT",
                                     "Albany",        "Helvetica",       "Nimbus Sans", "ArialMT",
                                     "Nimbus Sans L", "TeX Gyre Heros"};
constexpr std::string_view SANS_NARROW[] = {"Arial Narrow", "Liberation Sans Narrow", "Helvetica Narrow",
                                            "Nimbus Sans Narrow", "TeX Gyre Heros Cn"};
constexpr std::string_view SERIF[] = {"Times New Roman", "Liberation Serif",  "Tinos",
                                      "Thorndale AMT",   "Thorndale",         "Times",
                                      "Nimbus Roman",    "TimesNewRomanPSMT", "Nimbus Roman No9 L",
                                      "TeX Gyre Termes"};
constexpr std::string_view MONO[] = {"Courier New",   "Liberation Mono", "Cousine",        "Cumberland AMT",
                                     "Cumberland",    "Courier",         "Nimbus Mono PS", "CourierNewPSMT",
                                     "Nimbus Mono L", "TeX Gyre Cursor"};
constexpr std::string_view CALIBRI[] = {"Calibri", "Carlito"};
constexpr std::string_view CAMBRIA[] = {"Cambria", "Caladea"};
constexpr std::string_view GEORGIA[] = {"Georgia", "Gelasio"};
constexpr std::string_view GOTHIC[] = {"ITC Avant Garde Gothic", "URW Gothic", "Avant Garde", "URW Gothic L",
                                       "TeX Gyre Adventor"};
constexpr std::string_view BOOKMAN[] = {"ITC Bookman", "URW Bookman", "Bookman Old Style", "URW Bookman L",
                                        "TeX Gyre Bonum"};
constexpr std::string_view CHANCERY[] = {"ITC Zapf Chancery", "Z003", "Zapf Chancery", "URW Chancery L",
                                         "TeX Gyre Chorus"};
constexpr std::string_view PALATINO[] = {"Palatino", "P052", "Palatino Linotype", "URW Palladio L",
                                         "TeX Gyre Pagella"};
constexpr std::string_view SCHOOLBOOK[] = {"New Century Schoolbook", "C059", "Century Schoolbook",
                                           "Century Schoolbook L", "TeX Gyre Schola"};

constexpr std::span<std::string_view const> CLASSES[] = {SANS,    SANS_NARROW, SERIF,    MONO,
                                                         CALIBRI, CAMBRIA,     GEORGIA,  GOTHIC,
                                                         BOOKMAN, CHANCERY,    PALATINO, SCHOOLBOOK};

}  // namespace

std::string foldName(std::string_view name) {
  std::string folded;
  for (char const c : name) {
    if (c == ' ') continue;
    folded.push_back(c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c);
  }
  return folded;
}

std::span<std::string_view const> findMetricClass(std::string_view foldedName) {
  for (std::span<std::string_view const> const families : CLASSES) {
    auto const isAsked = [=](std::string_view family) { return foldName(family) == foldedName; };
    if (std::ranges::any_of(families, isAsked)) return families;
  }
  return {};
}

}  // namespace qv::text
