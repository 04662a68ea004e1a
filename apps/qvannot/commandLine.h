#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "limits.h"
#include "qvToolkit/findings/exitCode.h"
#include "qvToolkit/migration/fontSettings.h"
#include "qvToolkit/migration/migrationSession.h"
#include "qvToolkit/model/similarity.h"
#include "qvToolkit/pages/pageConverter.h"
#include "qvToolkit/pages/svgPage.h"
#include "qvToolkit/stream/streamEncoder.h"

namespace qvannot {

/// "qvannot inspect FILE..."
struct InspectCommand {
  std::vector<std::string> m_files;
  bool m_asJson = false;
  bool m_isFull = false;
  bool m_isStrict = false;
  Limits m_limits;
};

/// "qvannot migrate FILE... -o DIR"
struct MigrateCommand {
  std::vector<std::string> m_files;
  std::string m_outputFolder;
  qvToolkit::MigrationOptions m_options;
  qvToolkit::TextMode m_textMode = qvToolkit::TextMode::Live;
  qvToolkit::PageConversion m_conversion;
  bool m_force = false;
  bool m_isStrict = false;
  Limits m_limits;
};

/// "qvannot encode FILE -o OUT --stream-version X.Y"
struct EncodeCommand {
  std::string m_file;
  std::string m_output;
  qvToolkit::EncodingOptions m_options;
  bool m_force = false;
  bool m_isStrict = false;
  Limits m_limits;
};

/// "qvannot transform FILE -o OUT --translate X Y Z": a moved document, written like an encoded one
struct TransformCommand : EncodeCommand {
  qvToolkit::Similarity m_transformation;
};

/// "qvannot dump FILE"
struct DumpCommand {
  std::string m_file;
  std::optional<std::uint64_t> m_at;  ///< show only the field at this byte
  bool m_isStrict = false;
  Limits m_limits;
};

/// "qvannot fonts FILE..."
struct FontsCommand {
  std::vector<std::string> m_files;
  qvToolkit::FontOptions m_fonts;
  bool m_asJson = false;
  bool m_isStrict = false;
  Limits m_limits;
};

/// "qvannot explain [CODE]"
struct ExplainCommand {
  std::string m_code;  ///< one of the catalogue; empty for all
  bool m_asMarkdown = false;
  bool m_isStrict = false;  ///< it has no findings of its own
};

/// Nothing to run: the text answers the command line (help, version), or says what is wrong with it.
struct Answer {
  std::string m_text;
  qvToolkit::ExitCode m_exitCode = qvToolkit::ExitDone;  ///< `ExitDone` for an answer, else an error
};

using Command = std::variant<Answer, InspectCommand, MigrateCommand, EncodeCommand, TransformCommand,
                             DumpCommand, FontsCommand, ExplainCommand>;

Command parseCommandLine(int count, char const* const* arguments);

}  // namespace qvannot
