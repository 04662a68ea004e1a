#include <filesystem>
#include <system_error>

#include "annotationLegacy/qvAnnotationMigration.h"
#include "qvToolkit/files/outputSet.h"
#include "qvToolkit/pages/pageConverter.h"
#include "qvToolkit/pages/svgPage.h"
#include "qvToolkit/reports/fontCollector.h"
#include "qvToolkit/reports/migratedJson.h"
#include "qvannot/cli/sharedOptions.h"
#include "qvannot/commandList.h"
#include "qvannot/commandSession.h"
#include "qvannot/interruption.h"
#include "qvannot/job.h"
#include "qvannot/memoryBudget.h"
#include "qvannot/optionNames.h"
#include "qvannot/optionNumbers.h"

namespace qvannot {

namespace {

using qvLegacy::qvAnnotationMigration;
using qvToolkit::Findings;
using qvToolkit::PageConversion;
using qvToolkit::PageFormat;
using qvToolkit::TextMode;

struct MigrateCommand final : Command {
  Options listOptions() override;
  void run(Reporter& reporter) const override;

  std::vector<std::string> m_files;
  std::string m_outputFolder;
  qvToolkit::MigrationOptions m_options;
  std::string m_rasterFolder;
  TextMode m_textMode = TextMode::Live;
  PageConversion m_conversion;
  bool m_force = false;
  bool m_isPretty = false;
  qvToolkit::Limits m_limits;
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

Options makePageOptions(MigrateCommand& command) {
  PageConversion& conversion = command.m_conversion;
  float& headSize = command.m_options.m_headSize;
  Options options = {
      {.m_names = option::HeadSize,
       .m_value = {.m_word = "X"},
       .m_help = "Size of leader heads and dimension arrows in mm, from 0.001 to 1000",
       .m_default = "3",
       .m_read = [&headSize](auto const& words) { return readHeadSize(words[0], headSize); }},
      makeFolderOption(option::Rasters, "Folder of the images that rasters name", command.m_rasterFolder),
      makeChoice<TextMode>(option::Text, "Text as live characters, glyph outlines, or both", TextModes,
                           command.m_textMode),
      makeChoice<PageFormat>(option::Format, "Format; png and pdf take the program rsvg-convert", PageFormats,
                             conversion.m_format),
      {.m_names = option::Dpi,
       .m_value = {.m_word = "N"},
       .m_help = "Resolution of PNG pages in pixels per inch, from 10 to 2400",
       .m_default = "150",
       .m_read = [&conversion](auto const& words) {
         return readResolution(words[0], conversion.m_resolution);
       }}};
  for (Option& option : options) option.m_group = "Pages";
  return options;
}

Options MigrateCommand::listOptions() {
  Option output =
      makeFolderOption(option::Output, "Folder for the results; created when missing", m_outputFolder);
  output.m_presence = Presence::Required;
  return join(
      {makeFilesOperand(m_files), output, makeFlag(option::Force, "Replace results that exist", m_force),
       makeFlag(option::Pretty, "Indent the migrated model, for people", m_isPretty),
       makeStrictFlag(m_isStrict)},
      makeDropFlags(m_options.m_dropped), makePageOptions(*this), makeFontOptions(m_options.m_fonts),
      makeLimitOptions(m_limits));
}

void append(Findings& findings, Findings const& more) {
  findings.insert(findings.end(), more.begin(), more.end());
}

/// With what the document has left of its memory, where that is limited.
PageConversion getConversion(MigrateCommand const& command) {
  PageConversion conversion = command.m_conversion;
  if (getMemoryBudget() != qvToolkit::Limits::Unlimited) {
    conversion.m_getMemory = [] { return qvToolkit::MemoryLeft{getMemoryBudget(), getMemoryLeft()}; };
  }
  return conversion;
}

/// What all inputs have to do with each one's outputs.
struct Inputs {
  explicit Inputs(std::vector<std::string> const& paths)
      : m_stems(qvToolkit::makeStems(paths)), m_files(paths) {}

  std::vector<std::string> m_stems;   ///< of the names of their outputs
  qvToolkit::FileIdentities m_files;  ///< none of them is replaced
  qvToolkit::FontHashes m_hashes;     ///< of the fonts that any of them is drawn with
};

/// Writes the outputs of one document.
class DocumentWriter {
 public:
  DocumentWriter(MigrateCommand const& command, std::string const& stem, Inputs& inputs,
                 std::uint64_t outputBudget)
      : m_command(command),
        m_stem(stem),
        m_hashes(inputs.m_hashes),
        m_outputs(command.m_outputFolder, command.m_force, getInterruption()),
        m_converter(getConversion(command), command.m_options.m_fonts) {
    m_outputs.limit(outputBudget, command.m_limits.get(qvToolkit::Limit::OutputFile));
    m_outputs.protect(inputs.m_files);
  }

  void addFinding(qvToolkit::Finding finding) { m_findings.push_back(std::move(finding)); }
  [[nodiscard]] bool addView(qvToolkit::MigratedView&& view) {
    m_views.push_back(std::move(view));
    return m_views.back().m_view == nullptr ? m_pages.emplace_back().empty() : writePage(m_views.back());
  }
  [[nodiscard]] bool finish(qvToolkit::Document const& document, qvToolkit::MigrationSession const& session) {
    if (m_hasFailed || !m_outputs.open(qvToolkit::getModelName(m_stem))) return fail();
    return (writeModel(document, session.getOptions()) && m_outputs.commit()) || fail();
  }

  /// What was found on the way, and in the end why the outputs could not be written.
  Findings const& getFindings() const noexcept { return m_findings; }
  std::vector<std::string> getPaths() const { return m_outputs.getPaths(); }

 private:
  bool writePage(qvToolkit::MigratedView const& view) {
    PageFormat const format = m_command.m_conversion.m_format;
    std::string const& name =
        m_pages.emplace_back(qvToolkit::getPageName(m_stem, view.m_index, getFormatText(format)));
    m_hasFailed = !m_outputs.open(name) || !(format == PageFormat::Svg ? draw(view) : convert(view));
    return !m_hasFailed;
  }

  bool draw(qvToolkit::MigratedView const& view) {
    append(m_findings, writeSvgPage(view, m_outputs, m_command.m_textMode));
    return true;
  }

  bool convert(qvToolkit::MigratedView const& view) {
    qvToolkit::TextSink page;
    append(m_findings, writeSvgPage(view, page, m_command.m_textMode));
    return m_converter.convert(page.m_text, m_outputs);
  }

  bool writeModel(qvToolkit::Document const& document, qvToolkit::MigrationOptions const& options) {
    qvToolkit::MigratedJson json(m_outputs, qvToolkit::toJsonStyle(m_command.m_isPretty));
    qvToolkit::FontCollector fonts(m_hashes);
    json.begin(document, options);
    for (std::size_t i = 0; i < m_views.size(); ++i) {
      json.addView(document.m_views[i], m_views[i], m_pages[i]);
      fonts.add(m_views[i]);
    }
    Findings all = document.m_findings;
    append(all, m_findings);
    return json.finish(fonts.makeReport(), all, spellOption);
  }

  bool fail() {
    m_findings.push_back(m_converter.findProblem().value_or(m_outputs.getProblem()));
    return false;
  }

  MigrateCommand const& m_command;
  std::string const& m_stem;
  qvToolkit::FontHashes& m_hashes;
  qvToolkit::OutputSet m_outputs;
  qvToolkit::PageConverter m_converter;
  std::vector<qvToolkit::MigratedView> m_views;
  std::vector<std::string> m_pages;  ///< names, one for each view; empty where it has none
  Findings m_findings;
  bool m_hasFailed = false;
};

qvToolkit::MigrationOptions getOptions(MigrateCommand const& command, qvToolkit::Session const& session) {
  qvToolkit::MigrationOptions options = command.m_options;
  options.m_trees = qvToolkit::makeTreeLimits(command.m_limits);
  options.m_rasters = session.getRasters();
  return options;
}

/// Each view makes a file, and files cost more than the few bytes that an empty view takes in a document.
bool checkViews(MigrateCommand const& command, qvToolkit::Document const& document, Reporter& reporter) {
  std::uint64_t const limit = command.m_limits.get(qvToolkit::Limit::Views);
  std::size_t const count = document.m_views.size();
  if (count <= limit) return true;
  reporter.report(document.m_path,
                  {makeFinding(qvToolkit::FindingCode::LimitViews,
                               "it has " + std::to_string(count) + " views, more than the limit of " +
                                   std::to_string(limit) + "; nothing is migrated",
                               qvToolkit::Address::ofView(limit).getText())});
  return false;
}

void migrateFile(MigrateCommand const& command, std::size_t index, Inputs& inputs,
                 qvToolkit::Session const& session, Reporter& reporter) {
  qvToolkit::Document const document = openInput(command.m_files[index], command.m_limits, reporter);
  if (!reporter.reportOpened(document) || !checkViews(command, document, reporter)) return;
  DocumentWriter writer(command, inputs.m_stems[index], inputs, reporter.getOutputBudget());
  qvToolkit::MigrationSession migration(getOptions(command, session), [&writer](qvToolkit::Finding finding) {
    writer.addFinding(std::move(finding));
  });
  migration.migrate(document,
                    [&writer](qvToolkit::MigratedView&& view) { return writer.addView(std::move(view)); });
  bool const isWritten = writer.finish(document, migration);
  reporter.report(document.m_path, writer.getFindings());
  if (!isWritten) return;
  for (std::string const& path : writer.getPaths()) reporter.print(path + '\n');
}

void MigrateCommand::run(Reporter& reporter) const {
  qvToolkit::Session const session(
      {m_options.m_fonts, m_rasterFolder, m_limits.get(qvToolkit::Limit::Raster)});
  if (!prepare(session, m_files.size(), reporter)) return;
  Inputs inputs(m_files);
  auto const cleanUp = [&](pid_t process, qvToolkit::Finding const&) {
    qvToolkit::removeTemporaryFiles(m_outputFolder, process);
    // The converter's fonts.
    std::error_code error;
    qvToolkit::removeTemporaryFiles(std::filesystem::temp_directory_path(error), process);
  };
  auto const makeJob = [&](std::size_t i) -> Job {
    auto const work = [&, i] { migrateFile(*this, i, inputs, session, reporter); };
    return {m_files[i], m_limits, work, {}, cleanUp, true};
  };
  static_cast<void>(runAll(m_files, makeJob, reporter));
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
