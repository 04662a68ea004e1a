#include "annotationLegacy/qvAnnotationMigration.h"
#include "qvToolkit/pages/pageConverter.h"
#include "qvannot/cli/sharedOptions.h"
#include "qvannot/commandList.h"
#include "qvannot/documentRun.h"
#include "qvannot/optionNames.h"
#include "qvannot/optionNumbers.h"

namespace qvannot {

namespace {

using qvLegacy::qvAnnotationMigration;
using qvToolkit::PageConversion;
using qvToolkit::PageFormat;
using qvToolkit::TextMode;

struct MigrateCommand final : Command {
  Options listOptions() override;
  void run(Reporter& reporter) const override;

  DocumentRun m_run{qvToolkit::Action::Migrate};
};

Option makeDropFlag(std::string_view name, std::string help, int bit, int& bits) {
  auto const drop = [bit, &bits](auto const&) {
    bits |= bit;
    return std::string();
  };
  return {.m_names = name, .m_help = std::move(help), .m_read = drop, .m_group = "Metadata"};
}

Options makeDropFlags(int& bits) {
  return {makeDropFlag(option::DropViewMetadata, "Migrate views that carry metadata, without it",
                       qvAnnotationMigration::DropViewMetadata, bits),
          makeDropFlag(option::DropKnownMetadata,
                       "Migrate annotations whose metadata has only known keys, without it",
                       qvAnnotationMigration::DropKnownMetadata, bits),
          makeDropFlag(option::DropUnknownMetadata, "Pass over unknown metadata keys of annotations",
                       qvAnnotationMigration::DropUnknownMetadata, bits)};
}

std::string readHeadSize(std::string const& text, float& headSize) {
  auto const size = readLength(text, HeadSizes);
  if (!size.has_value())
    return refuseNumber(text, "number", formatLength(HeadSizes.m_least), formatLength(HeadSizes.m_most)) +
           "; write it like 3 or 2.5";
  headSize = *size;
  return {};
}

std::string readResolution(std::string const& text, unsigned& resolution) {
  constexpr CountRange Resolutions{PageConversion::MinResolution, PageConversion::MaxResolution};
  auto const number = readCount(text, Resolutions);
  if (!number.has_value())
    return refuseNumber(text, "number", std::to_string(Resolutions.m_least),
                        std::to_string(Resolutions.m_most));
  resolution = static_cast<unsigned>(*number);
  return {};
}

constexpr Choice<TextMode> TextModes[] = {
    {"live", TextMode::Live}, {"outline", TextMode::Outline}, {"both", TextMode::Both}};
constexpr Choice<PageFormat> PageFormats[] = {
    {"svg", PageFormat::Svg}, {"png", PageFormat::Png}, {"pdf", PageFormat::Pdf}};

Options makePageOptions(qvToolkit::Request& request) {
  Options options = {
      {.m_names = option::HeadSize,
       .m_value = {.m_word = "X"},
       .m_help = "Size of leader heads and dimension arrows in mm, from 0.001 to 1000",
       .m_default = "3",
       .m_read = [&request](auto const& words) { return readHeadSize(words[0], request.m_headSize); }},
      makeFolderOption(option::Rasters, "Folder of the images that rasters name", request.m_rasterFolder),
      makeChoice<TextMode>(option::Text, "Text as live characters, glyph outlines, or both", TextModes,
                           request.m_textMode),
      makeChoice<PageFormat>(option::Format, "Format; png and pdf take the program rsvg-convert", PageFormats,
                             request.m_pageFormat),
      {.m_names = option::Dpi,
       .m_value = {.m_word = "N"},
       .m_help = "Resolution of PNG pages in pixels per inch, from 10 to 2400",
       .m_default = "150",
       .m_read = [&request](auto const& words) { return readResolution(words[0], request.m_resolution); }}};
  for (Option& option : options) option.m_group = "Pages";
  return options;
}

Options MigrateCommand::listOptions() {
  qvToolkit::Request& request = m_run.m_request;
  Option output =
      makeFolderOption(option::Output, "Folder for the results; created when missing", m_run.m_outputFolder);
  output.m_presence = Presence::Required;
  return join({makeFilesOperand(m_run.m_files), output,
               makeFlag(option::Force, "Replace results that exist", m_run.m_force),
               makeFlag(option::Pretty, "Indent the migrated model, for people", request.m_isPretty),
               makeJobsOption(m_run.m_jobs), makeStrictFlag(m_isStrict)},
              makeDropFlags(request.m_dropped), makePageOptions(request), makeFontOptions(request.m_fonts),
              makeLimitOptions(request.m_limits));
}

void MigrateCommand::run(Reporter& reporter) const {
  runDocuments(m_run, reporter);
}

constexpr Example Examples[] = {
    {"qvannot migrate bracket.json -o out",
     "Writes one SVG page for each view and the migrated model as JSON into out/."},
    {"qvannot migrate old/*.json -o out --drop-known-metadata --rasters images --force",
     "Migrates many documents, drops known metadata, takes images from images/, replaces what is in out/."},
    {"qvannot migrate bracket.json -o out --format pdf --text both --font-dir fonts",
     "Writes PDF pages with exact outlines and text that can be searched, with fonts from fonts/, too."},
};

}  // namespace

constexpr CommandRow migrateCommand = {
    "migrate", "Write SVG pages and the migrated model",
    "Writes a page for each view and a JSON document for each input. Metadata is never migrated: views and "
    "annotations that carry any are refused unless an option drops it.",
    Examples, makeCommand<MigrateCommand>};

}  // namespace qvannot
