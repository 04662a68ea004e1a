#include "qvannot/cli/manualPage.h"

#include "qvannot/cli/helpText.h"
#include "qvannot/cli/toolText.h"

namespace qvannot {

namespace {

constexpr std::string_view Description = R"(.SH DESCRIPTION
Old documents hold 3D annotations (notes, labels, dimensions and images, with leaders, frames and nested
sub-annotations, grouped in views on planes) in a legacy model.
.B qvannot
shows what a document holds and migrates each view into the current annotation model, whose annotations carry SVG.
.PP
Documents are read in both encodings, variant maps as JSON and binary object streams, told apart by their content.
Where a command takes a
.IR FILE ,
\(lq\-\(rq reads standard input.
.PP
Metadata on a view or an annotation is never migrated. So that it is not lost unseen, a view that carries any is
refused unless an option says that it may be dropped.
.PP
Findings go to standard error, one line each; results go to standard output or into files. A finding has a
severity, a stable code and the address of what it is about
.RI ( view/3/annot/7/sub/0 ).
Infos are by design and harmless, warnings are changes in look, errors are losses.
.B qvannot explain
.I CODE
tells what a code means, why it comes and what to do.
)";

constexpr std::string_view SeeAlso = R"(.SH SEE ALSO
.BR rsvg\-convert (1)
)";

/// The text as it is to be read: nothing in it is a request, hyphens are those that are typed.
std::string escapeRoff(std::string_view text) {
  std::string escaped = text.starts_with('.') || text.starts_with('\'') ? "\\&" : "";
  for (char const c : text) {
    if (c == '\\') {
      escaped += "\\e";
    } else {
      escaped += c == '-' ? "\\-" : std::string(1, c);
    }
  }
  return escaped;
}

std::string formatHead(CommandRows commands) {
  std::string version = formatVersion();
  version.resize(version.find('\n'));
  std::string text = ".TH QVANNOT 1 \"\" \"" + version + "\" \"User Commands\"\n.SH NAME\n";
  text.append(ToolName).append(" \\- ").append(ToolSummary).append("\n.SH SYNOPSIS\n");
  for (CommandRow const* const command : commands) text += escapeRoff(formatUsage(*command)) + "\n.br\n";
  return text + "qvannot [\\-\\-help | \\-\\-version]\n";
}

/// "\fB-o\fR, \fB--output\fR \fIDIR\fR"
std::string formatNames(Option const& option) {
  std::string text;
  if (!isOperand(option)) {
    for (std::string_view const name : splitNames(option.m_names)) {
      text.append(text.empty() ? "" : ", ").append("\\fB" + escapeRoff(name) + "\\fR");
    }
  }
  std::string const value = formatValue(option);
  if (value.empty()) return text;
  return text + (text.empty() ? "" : " ") + "\\fI" + escapeRoff(value) + "\\fR" +
         (isOperand(option) && option.m_repeats ? "..." : "");
}

std::string formatEntry(Option const& option) {
  return ".TP\n" + formatNames(option) + '\n' + escapeRoff(describeOption(option)) + ".\n";
}

std::string formatCommand(CommandRow const& command) {
  std::string text = ".SS " + std::string(command.m_name) + '\n' + escapeRoff(command.m_summary) +
                     ".\n.PP\n" + escapeRoff(command.m_description) + '\n';
  for (Option const& option : describeOptions(command)) {
    // What every command has stands among the options of the tool.
    if (option.m_names != makeHelpFlag().m_names) text += formatEntry(option);
  }
  return text;
}

std::string formatExitStatus() {
  std::string text = ".SH EXIT STATUS\nThe highest one that happened counts.\n";
  for (ExitRow const& row : listExitRows()) {
    text += ".TP\n.B " + std::to_string(row.m_code) + '\n' + escapeRoff(row.m_explanation) + '\n';
  }
  return text;
}

std::string formatExample(Example const& example) {
  return escapeRoff(example.m_effect) + "\n.PP\n.RS\n.nf\n" + escapeRoff(example.m_line) +
         "\n.fi\n.RE\n.PP\n";
}

std::string formatExamples(CommandRows commands) {
  std::string text = ".SH EXAMPLES\n";
  for (CommandRow const* const command : commands) {
    for (Example const& example : command->m_examples) text += formatExample(example);
  }
  text.resize(text.size() - std::string_view(".PP\n").size());
  return text;
}

}  // namespace

std::string formatManualPage(CommandRows commands) {
  std::string text = formatHead(commands);
  text.append(Description).append(".SH OPTIONS\n");
  text += formatEntry(makeHelpFlag()) + formatEntry(makeVersionFlag()) + ".SH COMMANDS\n";
  for (CommandRow const* const command : commands) text += formatCommand(*command);
  return text + formatExitStatus() + formatExamples(commands) + std::string(SeeAlso);
}

}  // namespace qvannot
