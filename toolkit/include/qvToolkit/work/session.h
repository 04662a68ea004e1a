#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "qvSystem/qvLog.h"
#include "qvToolkit/export.h"
#include "qvToolkit/findings/catalogue.h"
#include "qvToolkit/images/rasterFolder.h"
#include "qvToolkit/migration/fontSettings.h"
#include "qvToolkit/outcome/request.h"

namespace qvToolkit {

class FontHashes;

/// Takes a record that the libraries write, with its prefix set. Called wherever they write, and must not
/// throw.
using LogSink = std::function<void(qv::qvLog::LogEntry const&)>;

/// What a session has for all of its work.
struct SessionOptions {
  FontOptions m_fonts;         ///< of the whole process while the session lives
  std::string m_rasterFolder;  ///< answers for images; empty: there are none
  std::uint64_t m_maxRasterBytes = RasterFolder::MaxFileBytes;  ///< of one image file
  OptionSpelling m_spelling = nullptr;  ///< of options in findings that are part of a result
  LogSink m_log = {};  ///< of the whole process while the session lives; empty: records go where they went
};

/// Those that a request asks for.
QVT_EXPORT SessionOptions makeSessionOptions(Request const& request);

/// Why a session cannot do what it was made for.
struct SessionProblem {
  std::string m_text;  ///< "cannot use the folder of fonts 'x': No such file or directory"
  OptionKey m_option;  ///< that is to be corrected

  bool operator==(SessionProblem const&) const = default;  ///< the same reason
};

/// What belongs to the process and not to one document: the library's lifetime, fonts, log, the folder of
/// images. Nothing else in the toolkit changes any of it, but for the time of a call.
/// @code
/// SessionOptions options;
/// options.m_rasterFolder = "rasters";
/// Session session(options);
/// if (auto const problem = session.findProblem()) std::cerr << problem->m_text << '\n';
/// Document const document = openDocument("bracket.json");  // gone before the session is
/// @endcode
/// The library is ready for documents of either encoding for as long as a session lives. Documents, and what
/// was made of them, must be gone before the last one ends.
///
/// Sessions may overlap, and end in any order, on one thread: fonts and log are those of the one that was
/// begun last, and once all have ended those of before the first. A host may initialise the library, too.
class QVT_EXPORT Session {
 public:
  /// Initialises the library and opens the folder of images. What the platform throws leaves everything as it
  /// was and propagates; what the options ask for in vain is no failure yet: `findProblem` tells.
  explicit Session(SessionOptions const& options = {});
  /// The last one terminates the library, unless the host has initialised it, too.
  ~Session();
  Session(Session const&) = delete;
  Session& operator=(Session const&) = delete;

  /// The first folder that cannot be used; nothing when all of them can.
  std::optional<SessionProblem> findProblem() const;
  /// Looks for fonts, and lays out text as drawings have it, now instead of with the first document: what a
  /// process has found, read and hashed before it forks, its children have, too. Takes some milliseconds, and
  /// the time to read the font configuration and the folders.
  void warm();

  FontOptions const& getFonts() const noexcept;  ///< as they were given
  OptionSpelling getSpelling() const noexcept;   ///< likewise
  /// The hashes of the files of fonts, for all documents of the session.
  FontHashes& getFontHashes() noexcept;
  /// Answers from the folder of images, for as long as the session lives; empty without a folder.
  RasterSource getRasters() const;

 private:
  class State;
  std::unique_ptr<State> m_state;
};

}  // namespace qvToolkit
