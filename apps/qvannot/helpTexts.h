#pragma once

/// What the tool's help says beside its commands and options.
namespace qvannot::help {

/// In front of the commands.
inline constexpr char const* Description =
    R"(Examples:
  qvannot inspect bracket.json
      Shows the views and annotations of a document, and what its reader says.
  qvannot migrate bracket.json -o out
      Writes one SVG page for each view and the migrated model as JSON into out/.
  qvannot migrate old/*.json -o out --drop-known-metadata --rasters images --force
      Migrates many documents, drops known metadata, takes images from images/, replaces what is in out/.
  qvannot migrate bracket.json -o out --format pdf --text both --font-dir fonts
      Writes PDF pages with exact outlines and text that can be searched, with fonts from fonts/, too.
  qvannot fonts old/*.json
      Lists the fonts that documents ask for, what is drawn instead, and which packages to install.
  qvannot encode bracket.json -o bracket.qvs --stream-version 6.22
      Writes the document as an object stream of that version, and names what the version cannot hold.
  qvannot transform bracket.json -o moved.qvs --rotate z 90
      Turns a whole document by 90 degrees about the z axis and writes it as an object stream.
  qvannot dump bracket.qvs --at 0x120
      Shows the field of an object stream that holds byte 0x120; without --at, every field.
  qvannot explain font.substituted
      Tells what a code at the end of a finding means, why it comes and what to do; without one, lists all.

Shows, checks and migrates legacy CAD annotations. Documents are JSON or object streams, told by their content.)";

/// Behind them.
inline constexpr char const* Footer =
    R"(Exit codes: 0 all done; 1 done, with findings or views that are not migrated; 2 bad command line;
3 an input cannot be opened; 4 an input is no known format; 5 an output cannot be written; 6 a
limit was hit, such as memory; 7 nothing to do; 70 a bug. The highest that happened counts.
Findings go to standard error, one line each; results go to standard output.)";

}  // namespace qvannot::help
