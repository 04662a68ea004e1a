#include "reading/readerMessages.h"

#include <algorithm>
#include <array>

namespace qvToolkit {

namespace {

struct MessageCost {
  std::string_view m_message;
  Severity m_severity;
};

/// In the order in which a view is read. "invalid version 6.16" and its like, which lose a view, vary and
/// stand for the unknown texts.
constexpr std::array<MessageCost, 26> MessageCosts = {{
    {"invalid 'origin' field", Severity::Error},
    {"invalid 'normal' field", Severity::Error},
    {"invalid 'axis' field", Severity::Error},
    {"invalid 'metadata' field", Severity::Warning},
    {"missing 'textannotations' field", Severity::Error},
    {"invalid 'textannotations' field", Severity::Error},
    {"missing 'rasterannotations' field", Severity::Error},
    {"invalid 'rasterannotations' field", Severity::Error},
    {"invalid 'rasterannotations' field content", Severity::Error},
    {"missing 'annotations' field", Severity::Error},
    {"invalid 'annotations' field", Severity::Error},
    {"invalid 'annotations' field content", Severity::Error},
    {"invalid annotation type", Severity::Error},
    {"invalid version for annotation interface", Severity::Error},
    {"invalid version for text annotation", Severity::Error},
    {"invalid 'color' field", Severity::Warning},
    {"invalid 'position' field", Severity::Error},
    {"invalid 'leaders' field content", Severity::Error},
    {"invalid 'leaders' field", Severity::Error},
    {"invalid 'measures' field content", Severity::Error},
    {"invalid 'measures' field", Severity::Error},
    {"invalid 'defaulttextprop' field", Severity::Warning},
    {"invalid line", Severity::Error},
    {"invalid segment", Severity::Error},
    {"invalid 'sizeem' field", Severity::Error},
    {"invalid 'sizeem' length", Severity::Error},
}};

}  // namespace

Severity getReaderMessageSeverity(std::string_view message) {
  auto const isMessage = [message](MessageCost const& cost) { return cost.m_message == message; };
  auto const cost = std::find_if(MessageCosts.begin(), MessageCosts.end(), isMessage);
  return cost == MessageCosts.end() ? Severity::Error : cost->m_severity;
}

}  // namespace qvToolkit
