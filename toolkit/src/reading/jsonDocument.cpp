#include "reading/jsonDocument.h"

#include <algorithm>
#include <map>
#include <new>
#include <utility>

#include "findings/textPosition.h"
#include "json/jsonFault.h"
#include "json/jsonLocator.h"
#include "json/jsonReader.h"
#include "qvSystem/qvResourceLimit.h"
#include "qvToolkit/findings/address.h"
#include "qvToolkit/findings/limitFinding.h"
#include "reading/documentShape.h"
#include "reading/readAudit.h"
#include "reading/stackBudget.h"
#include "rules/messages.h"

namespace qvToolkit {

namespace {

constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";
/// More than an optimised build takes, by a factor of three.
constexpr std::uint64_t StackPerContainer = 1024;

void failFormat(Document& document, std::string_view content, std::size_t offset, std::string text) {
  SourcePlace place = LineCounter(content).locate(offset);
  document.m_findings.push_back(
      makeFinding(FindingCode::FormatUnknown, std::move(text), {}, std::move(place)));
}

/// True when the first bytes are those of JSON text in two or four bytes a character.
bool looksLikeWideText(std::string_view content) {
  std::string_view const mark = content.substr(0, 2);
  if (mark == "\xFF\xFE" || mark == "\xFE\xFF") return true;
  return mark.size() == 2 && (mark[0] == '\0') != (mark[1] == '\0');
}

/// True once for each time that the message is about no loss.
bool takeHarmless(HarmlessMessages& harmless, std::string_view message) {
  auto const entry = harmless.find(message);
  return entry != harmless.end() && entry->second > 0 && entry->second-- > 0;
}

Severity getSeverity(std::string_view message) {
  using qvLegacy::rules::Cost;
  return qvLegacy::rules::costOf(message) == Cost::Look ? Severity::Warning : Severity::Error;
}

/// A message that the reader repeats is one finding each time, up to a hundred; the rest share one.
void addReaderMessages(Document& document, LoadedView const& view, ReadView const& read,
                       HarmlessMessages harmless) {
  constexpr std::size_t MaxRepeated = 100;
  struct Repeated {
    std::size_t m_count = 0;
    Severity m_highest = Severity::Info;
  };
  std::map<std::string_view, Repeated> repeated;
  auto const add = [&](FindingCode code, Severity severity, std::string text) {
    document.m_findings.push_back(makeFinding(code, severity, std::move(text), read.m_address.getText(),
                                              {{}, {}, {}, read.m_jsonPointer}));
  };
  for (std::string const& message : view.m_messages) {
    Severity const severity = takeHarmless(harmless, message) ? Severity::Info : getSeverity(message);
    Repeated& known = repeated[message];
    if (++known.m_count <= MaxRepeated) {
      add(FindingCode::ReaderMessage, severity, message);
    } else {
      known.m_highest = std::max(known.m_highest, severity);
    }
  }
  for (auto const& [message, known] : repeated) {
    if (known.m_count <= MaxRepeated) continue;
    add(FindingCode::ReaderRepeated, known.m_highest,
        std::string(message) + " (" + std::to_string(known.m_count - MaxRepeated) + " more times)");
  }
}

void append(Findings& findings, Findings more) {
  for (Finding& finding : more) findings.push_back(std::move(finding));
}

LoadedView loadView(Document& document, ViewEntry const& entry, Address const& address, ReadAudit& audit) {
  LoadedView view;
  if (!entry.m_value->isMap()) {
    document.m_findings.push_back(makeFinding(FindingCode::DocumentShape,
                                              "found a view that is no object; it was passed over",
                                              address.getText(), {{}, {}, {}, entry.m_jsonPointer}));
    return view;
  }
  VariantMap const& map = entry.m_value->toMap();
  view.m_name = findText(map, "name");
  view.m_version = qv::qvStreamVersion(findText(map, "ver"));
  view.m_view = qvLegacy::qvAnnotationView::FromVariantMap(map, view.m_messages);
  ReadView const read{map, view.m_view.get(), view.m_version, address, entry.m_jsonPointer};
  Findings audited;
  HarmlessMessages const harmless = audit.audit(read, audited);
  addReaderMessages(document, view, read, harmless);
  append(document.m_findings, std::move(audited));
  return view;
}

/// False when memory runs out, which is told with the view where it did.
bool loadViews(Document& document, DocumentShape const& shape) {
  ReadAudit audit;
  for (ViewEntry const& entry : shape.m_views) {
    Address const address = Address::ofView(document.m_views.size());
    try {
      document.m_views.push_back(loadView(document, entry, address, audit));
    } catch (std::bad_alloc const& error) {
      Finding refusal = makeLimitFinding(error);
      refusal.m_address = address.getText();
      document.m_views.clear();
      document.m_findings.push_back(std::move(refusal));
      return false;
    }
  }
  audit.finish(document.m_findings);
  return true;
}

/// The readers of variants and the copies of metadata call themselves for every level, and see no limit.
void checkStack(std::size_t depth, OpenLimits const& limits) {
  std::uint64_t const budget = getStackBudget(limits);
  if (depth > budget / StackPerContainer) throw qv::qvResourceLimit(qv::qvBudget::Stack, budget, 0);
}

}  // namespace

bool isJson(Document& document, std::string_view content) {
  if (looksLikeWideText(content)) {
    failFormat(document, content, 0, "found text of 16 or 32 bits a character, expected JSON in UTF-8");
    return false;
  }
  std::size_t const start =
      content.substr(0, ByteOrderMark.size()) == ByteOrderMark ? ByteOrderMark.size() : 0;
  std::size_t const first = content.find_first_not_of(" \t\r\n", start);
  if (first == std::string_view::npos) {
    bool const isEmpty = content.size() == start;
    failFormat(document, content, content.size(),
               isEmpty ? "the input is empty, expected JSON" : "found only blanks, expected JSON");
    return false;
  }
  constexpr std::string_view BeginningsOfValues = "{[\"-0123456789tfn";
  if (BeginningsOfValues.find(content[first]) != std::string_view::npos) return true;
  std::string const found = findJsonFault(content.substr(first), 1).value_or(JsonFault{}).m_found;
  failFormat(document, content, first, "found " + found + ", expected JSON that begins with '{' or '['");
  return false;
}

void readJsonDocument(Document& document, std::string& content, OpenLimits const& limits) {
  JsonReading reading = readJson(content, limits.m_maxContainers);
  append(document.m_findings, std::move(reading.m_findings));
  if (reading.m_isBroken) return;
  checkStack(reading.m_depth, limits);
  DocumentShape shape = findViews(reading.m_value);
  append(document.m_findings, std::move(shape.m_findings));
  if (shape.m_isDocument && shape.m_views.empty()) {
    document.m_findings.push_back(makeFinding(FindingCode::NoViews, "the document holds no view"));
  }
  if (!loadViews(document, shape)) return;
  locateFindings(content, document.m_findings);
}

}  // namespace qvToolkit
