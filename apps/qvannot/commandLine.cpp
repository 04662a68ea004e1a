#include "commandLine.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <functional>
#include <iterator>
#include <string>
#include <string_view>

#include "annotationLegacy/version.h"
#include "commands.h"
#include "helpTexts.h"
#include "limitOptions.h"
#include "optionNames.h"
#include "optionNumbers.h"
#include "qvToolkit/model/documentTransform.h"
#include "qvToolkit/text/textEscape.h"

namespace qvannot {

namespace {

using qvLegacy::qvAnnotationMigration;

/// A shell hands over an empty name where a variable is not set.
std::string requireName(std::string const& path) {
  return path.empty() ? "'' is no name of a file or folder" : std::string();
}

/// Adds an option of one word. `read` takes the word, or returns what is wrong with it.
template <class Read>
CLI::Option* addWord(CLI::App& command, char const* name, char const* word, char const* help, Read read) {
  std::function<void(std::string const&)> const take = [name, read](std::string const& text) {
    std::string const problem = read(text);
    if (!problem.empty()) throw CLI::ValidationError(name, problem);
  };
  return command.add_option_function<std::string>(name, take, help)->type_name(word);
}

void addLimits(CLI::App& command, Limits& limits) {
  for (LimitOption const& option : listLimitOptions()) {
    auto const read = [&](std::string const& text) { return setLimit(option, text, limits); };
    addWord(command, option.m_name, option.m_word, option.m_help, read)->group("Limits");
  }
}

void addFiles(CLI::App& command, std::vector<std::string>& files) {
  command.add_option("FILE", files, "Documents; '-' reads standard input")->type_name("")->check(requireName);
}

void addStrict(CLI::App& command, bool& isStrict) {
  command.add_flag(option::Strict, isStrict, "Let warnings count, too: exit code 1 instead of 0");
}

void addInspect(CLI::App& app, InspectCommand& command) {
  CLI::App& inspect = *app.add_subcommand("inspect", "Show what documents hold");
  addFiles(inspect, command.m_files);
  CLI::Option* json = inspect.add_flag(option::Json, command.m_asJson, "Write JSON");
  inspect
      .add_flag(option::Full, command.m_isFull,
                std::string("With ") + option::Json + ": the whole legacy model, field by field")
      ->needs(json);
  addStrict(inspect, command.m_isStrict);
}

void addDropFlag(CLI::App& command, std::string const& name, int bit, int& bits, std::string const& help) {
  command.add_flag_callback(
      name, [bit, &bits] { bits |= bit; }, help);
}

struct TextModeWord {
  std::string_view m_word;
  qvToolkit::TextMode m_mode;
};
constexpr TextModeWord TextModeWords[] = {{"live", qvToolkit::TextMode::Live},
                                          {"outline", qvToolkit::TextMode::Outline},
                                          {"both", qvToolkit::TextMode::Both}};

void addTextMode(CLI::App& command, qvToolkit::TextMode& mode) {
  auto const read = [&mode](std::string const& text) -> std::string {
    auto const* const known = std::ranges::find(TextModeWords, text, &TextModeWord::m_word);
    if (known == std::end(TextModeWords)) return "'" + text + "' is none of live, outline, both";
    mode = known->m_mode;
    return {};
  };
  addWord(command, option::Text, "{live,outline,both}",
          "Text of the pages: live characters (default), glyph outlines, or both", read);
}

std::string readFormat(std::string const& text, qvToolkit::PageFormat& format) {
  using qvToolkit::PageFormat;
  for (auto const known : {PageFormat::Svg, PageFormat::Png, PageFormat::Pdf}) {
    if (text != getFormatText(known)) continue;
    format = known;
    return {};
  }
  return "'" + text + "' is none of svg, png, pdf";
}

std::string readResolution(std::string const& text, unsigned& resolution) {
  using qvToolkit::PageConversion;
  constexpr CountRange Resolutions{PageConversion::MinResolution, PageConversion::MaxResolution};
  auto const number = readCount(text, Resolutions);
  if (number.has_value()) resolution = static_cast<unsigned>(*number);
  return number.has_value() ? std::string()
                            : refuseNumber(text, "number", std::to_string(Resolutions.m_least),
                                           std::to_string(Resolutions.m_most));
}

void addConversion(CLI::App& command, qvToolkit::PageConversion& conversion) {
  addWord(command, option::Format, "{svg,png,pdf}",
          "Format of the pages: svg (default), png or pdf; the latter two take the program rsvg-convert",
          [&conversion](std::string const& text) { return readFormat(text, conversion.m_format); });
  addWord(command, option::Dpi, "N",
          "Resolution of PNG pages in pixels per inch, from 10 to 2400 (default 150)",
          [&conversion](std::string const& text) { return readResolution(text, conversion.m_resolution); });
}

std::string readFontMap(std::string const& text, qvToolkit::FontOptions& fonts) {
  std::size_t const sign = text.find('=');
  if (sign == std::string::npos || sign == 0 || sign + 1 == text.size())
    return "'" + text + "' is no pair of families; write it like Old=New";
  fonts.m_replacements.push_back({text.substr(0, sign), text.substr(sign + 1)});
  return {};
}

void addFonts(CLI::App& command, qvToolkit::FontOptions& fonts) {
  command
      .add_option_function<std::string>(
          option::FontDir, [&fonts](std::string const& folder) { fonts.m_directories.push_back(folder); },
          "Look for fonts in this folder first; may be repeated")
      ->type_name("DIR")
      ->check(requireName)
      ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll)
      ->trigger_on_parse();
  addWord(command, option::FontMap, "OLD=NEW",
          "Draw text of one font family with another one; may be repeated",
          [&fonts](std::string const& text) { return readFontMap(text, fonts); })
      ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll)
      ->trigger_on_parse();
  command.add_flag_callback(
      option::NoSystemFonts, [&fonts] { fonts.m_useSystemFonts = false; },
      std::string("Use only the fonts of ") + option::FontDir);
}

std::string readHeadSize(std::string const& text, float& headSize) {
  auto const size = readLength(text, HeadSizes);
  if (size.has_value()) headSize = *size;
  return size.has_value()
             ? std::string()
             : refuseNumber(text, "number", formatLength(HeadSizes.m_least), formatLength(HeadSizes.m_most)) +
                   "; write it like 3 or 2.5";
}

void addMigrate(CLI::App& app, MigrateCommand& command) {
  CLI::App& migrate = *app.add_subcommand("migrate", "Write SVG pages and the migrated model");
  int& dropped = command.m_options.m_dropped;
  float& headSize = command.m_options.m_headSize;
  addFiles(migrate, command.m_files);
  migrate.add_option(option::Output, command.m_outputFolder, "Folder for the results; created when missing")
      ->type_name("DIR")
      ->check(requireName)
      ->required();
  addDropFlag(migrate, option::DropViewMetadata, qvAnnotationMigration::DropViewMetadata, dropped,
              "Migrate views that carry metadata, without it");
  addDropFlag(migrate, option::DropKnownMetadata, qvAnnotationMigration::DropKnownMetadata, dropped,
              "Migrate annotations whose metadata has only known keys, without it");
  addDropFlag(migrate, option::DropUnknownMetadata, qvAnnotationMigration::DropUnknownMetadata, dropped,
              "Pass over unknown metadata keys of annotations");
  addWord(migrate, option::HeadSize, "X",
          "Size of leader heads and dimension arrows in mm, from 0.001 to 1000 (default 3)",
          [&headSize](std::string const& text) { return readHeadSize(text, headSize); });
  migrate
      .add_option(option::Rasters, command.m_options.m_rasterFolder, "Folder of the images that rasters name")
      ->type_name("DIR")
      ->check(requireName);
  addTextMode(migrate, command.m_textMode);
  addConversion(migrate, command.m_conversion);
  addFonts(migrate, command.m_options.m_fonts);
  migrate.add_flag(option::Force, command.m_force, "Replace results that exist");
  addStrict(migrate, command.m_isStrict);
}

void addFontReport(CLI::App& app, FontsCommand& command) {
  CLI::App& fonts = *app.add_subcommand("fonts", "List the fonts that documents ask for and get");
  addFiles(fonts, command.m_files);
  fonts.add_flag(option::Json, command.m_asJson, "Write JSON");
  addFonts(fonts, command.m_fonts);
  addStrict(fonts, command.m_isStrict);
}

void addFile(CLI::App& command, std::string& file) {
  command.add_option("FILE", file, "Document; '-' reads standard input")
      ->type_name("")
      ->check(requireName)
      ->required();
}

/// Spelled as versions are, so that nobody takes 6.022 for an older one.
std::string readStreamVersion(std::string const& text, std::uint32_t& packed) {
  qv::qvStreamVersion const version(text);
  constexpr NumberRange<std::uint32_t> Writable{qvToolkit::OldestWritableVersion,
                                                qvToolkit::NewestWritableVersion};
  if (!Writable.holds(version.GetPacked()) || version.toString() != text)
    return refuseNumber(text, "version", "6.13", "6.27");
  packed = version.GetPacked();
  return {};
}

CLI::Option* addStreamVersion(CLI::App& command, qvToolkit::EncodingOptions& options) {
  return addWord(command, option::StreamVersion, "X.Y", "Version of the object stream, from 6.13 to 6.27",
                 [&options](std::string const& text) { return readStreamVersion(text, options.m_version); });
}

/// Where a command's input comes from and where its object stream goes.
std::string requireFileName(std::string const& path) {
  return path.empty() || path.ends_with('/') ? "'" + path + "' names no file" : std::string();
}

void addEncodedOutput(CLI::App& app, EncodeCommand& command) {
  addFile(app, command.m_file);
  app.add_option(option::Output, command.m_output, "File for the result")
      ->type_name("OUT")
      ->check(requireFileName)
      ->required();
  app.add_flag(option::ViewsOnly, command.m_options.m_viewsOnly, "Write no metadata object, only the views");
  app.add_flag(option::Force, command.m_force, "Replace a result that exists");
  addStrict(app, command.m_isStrict);
}

void addEncode(CLI::App& app, EncodeCommand& command) {
  CLI::App& encode = *app.add_subcommand("encode", "Write a document as an object stream");
  addEncodedOutput(encode, command);
  addStreamVersion(encode, command.m_options)->required();
}

struct TransformOption {
  char const* m_name;
  qvToolkit::TransformKind m_kind;
  char const* m_words;
  char const* m_help;
};

constexpr TransformOption TransformOptions[] = {
    {option::Matrix, qvToolkit::TransformKind::Matrix, "M00 ... M23",
     "Three rows of four numbers for column vectors, or all 16: a turn times one scale, and a move"},
    {option::Translate, qvToolkit::TransformKind::Translate, "X Y Z", "Move by a vector of model space"},
    {option::Scale, qvToolkit::TransformKind::Scale, "S",
     "Scale places about the origin by a number above 0; texts keep their size"},
    {option::Rotate, qvToolkit::TransformKind::Rotate, "AXIS DEG",
     "Turn about the axis x, y or z of model space, counter-clockwise"},
};

constexpr char const* TransformGroup = "Transformation";

/// Not by an option group of CLI11: that one is a command without a name, and takes an empty argument for it.
void requireOneTransform(CLI::App const& transform) {
  std::size_t used = 0;
  std::string names;
  for (TransformOption const& option : TransformOptions) {
    used += transform.count(option.m_name) > 0 ? 1U : 0U;
    names += (names.empty() ? "" : ",") + std::string(option.m_name);
  }
  if (used != 1) throw CLI::RequiredError::Option(1, 1, used, names);
}

void addTransform(CLI::App& app, TransformCommand& command) {
  CLI::App& transform =
      *app.add_subcommand("transform", "Move a whole document, written as an object stream");
  addEncodedOutput(transform, command);
  addStreamVersion(transform, command.m_options);
  for (TransformOption const& option : TransformOptions) {
    transform
        .add_option_function<std::vector<std::string>>(
            option.m_name,
            [&command, &option](std::vector<std::string> const& words) {
              std::string const problem = readTransform(option.m_kind, words, command.m_transformation);
              if (!problem.empty()) throw CLI::ValidationError(option.m_name, problem);
            },
            option.m_help)
        ->type_name(option.m_words)
        ->group(TransformGroup);
  }
  transform.final_callback([&transform] { requireOneTransform(transform); });
}

void addDump(CLI::App& app, DumpCommand& command) {
  CLI::App& dump = *app.add_subcommand("dump", "Show the fields of an object stream, byte by byte");
  addFile(dump, command.m_file);
  auto const read = [&command](std::string const& text) {
    command.m_at = readOffset(text);
    return command.m_at.has_value()
               ? std::string()
               : refuseNumber(text, "offset", "0", "18446744073709551615") + "; write it like 288 or 0x120";
  };
  addWord(dump, option::At, "OFFSET", "Show only the field that holds this byte, and its neighbours", read);
}

void addExplain(CLI::App& app, ExplainCommand& command) {
  CLI::App& explain = *app.add_subcommand("explain", "Tell what the codes of findings mean and what to do");
  explain.add_option("CODE", command.m_code, "Code of a finding, like font.none; without one, a list of all")
      ->type_name("")
      ->check(refuseCode);
  explain.add_flag(option::Markdown, command.m_asMarkdown, "Write Markdown; without a code, the page of all");
}

std::string getVersionText() {
  return std::string("qvannot ") + qvAnnotationLegacy::Version::GetDescStringMajorMinorRelease(false);
}

/// The first word when it is no command; CLI11 only says that one is missing.
std::string findUnknownCommand(CLI::App const& app, int count, char const* const* arguments) {
  if (count < 2 || arguments[1][0] == '-' || !app.get_subcommands().empty()) return {};
  return "there is no command '" + std::string(arguments[1]) + "'";
}

Answer makeError(CLI::App const& app, std::string const& unknownCommand, CLI::ParseError const& error) {
  auto const chosen = app.get_subcommands();
  std::string const command = chosen.empty() ? "qvannot" : "qvannot " + chosen.front()->get_name();
  std::string const problem = unknownCommand.empty() ? error.what() : unknownCommand;
  return {"qvannot: " + qvToolkit::escapeTerminal(problem) + "\nRun '" + command +
              " --help' to see what it takes.\n",
          qvToolkit::ExitUsage};
}

/// An empty list of files, from a pattern that met none, is no mistake in the command line.
template <class Files>
Command requireFiles(Files command) {
  if (!command.m_files.empty()) return command;
  return Answer{"qvannot: no input; name at least one document\n", qvToolkit::ExitNothingToDo};
}

}  // namespace

Command parseCommandLine(int count, char const* const* arguments) {
  CLI::App app(help::Description, "qvannot");
  app.footer(help::Footer);
  app.require_subcommand(1);
  app.set_version_flag(option::Version, getVersionText(), "Print the version and exit");
  InspectCommand inspect;
  MigrateCommand migrate;
  addInspect(app, inspect);
  addMigrate(app, migrate);
  EncodeCommand encode;
  DumpCommand dump;
  addEncode(app, encode);
  TransformCommand transform;
  addTransform(app, transform);
  addDump(app, dump);
  FontsCommand fonts;
  addFontReport(app, fonts);
  ExplainCommand explain;
  addExplain(app, explain);
  addLimits(*app.get_subcommand("inspect"), inspect.m_limits);
  addLimits(*app.get_subcommand("migrate"), migrate.m_limits);
  addLimits(*app.get_subcommand("encode"), encode.m_limits);
  addLimits(*app.get_subcommand("transform"), transform.m_limits);
  addLimits(*app.get_subcommand("dump"), dump.m_limits);
  addLimits(*app.get_subcommand("fonts"), fonts.m_limits);
  try {
    app.parse(count, arguments);
  } catch (CLI::CallForHelp const&) {
    auto const chosen = app.get_subcommands();
    return Answer{chosen.empty() ? app.help() : chosen.front()->help(), qvToolkit::ExitDone};
  } catch (CLI::CallForVersion const&) {
    return Answer{getVersionText() + "\n", qvToolkit::ExitDone};
  } catch (CLI::ParseError const& error) {
    return makeError(app, findUnknownCommand(app, count, arguments), error);
  }
  if (app.got_subcommand("inspect")) return requireFiles(std::move(inspect));
  if (app.got_subcommand("fonts")) return requireFiles(std::move(fonts));
  if (app.got_subcommand("explain")) return explain;
  if (app.got_subcommand("encode")) return encode;
  if (app.got_subcommand("transform")) return transform;
  if (app.got_subcommand("dump")) return dump;
  return requireFiles(std::move(migrate));
}

}  // namespace qvannot
