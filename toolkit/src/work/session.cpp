#include "qvToolkit/work/session.h"

#include <filesystem>
#include <system_error>
#include <utility>

#include "qvToolkit/migration/migrationSession.h"
#include "qvToolkit/reading/openDocument.h"
#include "qvToolkit/reports/fontCollector.h"
#include "work/libraryLifetime.h"
#include "work/processSettings.h"
#include "work/warmText.h"

namespace qvToolkit {

namespace {

/// Why one of the folders cannot be searched; empty when all of them can.
std::string findFontFolderProblem(FontOptions const& options) {
  for (std::string const& folder : options.m_directories) {
    std::error_code error;
    std::filesystem::directory_iterator const entries(folder, error);
    if (error) return "cannot use the folder of fonts '" + folder + "': " + error.message();
  }
  return {};
}

}  // namespace

SessionOptions makeSessionOptions(Request const& request) {
  return {request.m_fonts, request.m_rasterFolder, request.m_limits.get(Limit::Raster)};
}

/// The library begins last and ends first, so that the log takes what it has to say.
class Session::State {
 public:
  explicit State(SessionOptions const& options)
      : m_settings(options.m_fonts, options.m_log),
        m_folderName(options.m_rasterFolder),
        m_rasters(m_folderName, options.m_maxRasterBytes),
        m_spelling(options.m_spelling) {}

  ProcessSettings m_settings;
  std::string m_folderName;
  RasterFolder m_rasters;
  OptionSpelling m_spelling;
  FontHashes m_hashes;
  LibraryLifetime m_library;
};

Session::Session(SessionOptions const& options) : m_state(std::make_unique<State>(options)) {
}

Session::~Session() = default;

std::optional<SessionProblem> Session::findProblem() const {
  if (std::string const& problem = m_state->m_rasters.getFolderProblem(); !problem.empty()) {
    return SessionProblem{"cannot use the folder of images '" + m_state->m_folderName + "': " + problem,
                          OptionKey::Rasters};
  }
  if (std::string problem = findFontFolderProblem(getFonts()); !problem.empty())
    return SessionProblem{std::move(problem), OptionKey::FontFolder};
  return {};
}

void Session::warm() {
  MigrationOptions options;
  options.m_fonts = getFonts();
  FontCollector fonts(m_state->m_hashes);
  MigrationSession(std::move(options))
      .migrate(readDocument(makeWarmText(), {}), [&fonts](MigratedView const& view) {
        fonts.add(view);
        return true;
      });
}

FontOptions const& Session::getFonts() const noexcept {
  return m_state->m_settings.getFonts();
}

OptionSpelling Session::getSpelling() const noexcept {
  return m_state->m_spelling;
}

FontHashes& Session::getFontHashes() noexcept {
  return m_state->m_hashes;
}

RasterSource Session::getRasters() const {
  if (m_state->m_folderName.empty()) return {};
  return [&rasters = m_state->m_rasters](std::string const& name) { return rasters.find(name); };
}

}  // namespace qvToolkit
