#include "qvToolkit/reading/openDocument.h"

#include <algorithm>
#include <new>
#include <utility>

#include "files/inputFile.h"
#include "qvToolkit/findings/limitFinding.h"
#include "reading/jsonDocument.h"
#include "reading/streamDocument.h"
#include "text/sha256.h"

namespace qvToolkit {

namespace {

void fail(Document& document, Finding finding) {
  document.m_views.clear();
  document.m_findings.push_back(std::move(finding));
}

/// Of a document of which nothing is known but its path.
Document beginDocument(std::string const& path) {
  Document document;
  document.m_path = path;
  document.m_source.m_path = path;
  return document;
}

}  // namespace

OpenLimits makeOpenLimits(Limits const& limits) {
  // By the clock work may take twice the processor time that it may take.
  constexpr std::uint64_t Factor = 2000;
  std::uint64_t const seconds = limits.get(Limit::Time);
  OpenLimits open;
  open.m_maxInputBytes = limits.get(Limit::Input);
  open.m_maxContainers =
      static_cast<std::size_t>(std::min(limits.get(Limit::JsonDepth), Limits::MostContainers));
  open.m_maxFailedReads = limits.get(Limit::FailedReads);
  open.m_maxStackBytes = limits.get(Limit::Stack);
  open.m_maxMilliseconds = seconds > Limits::Unlimited / Factor ? Limits::Unlimited : seconds * Factor;
  return open;
}

Document readDocument(std::string content, std::string const& path, OpenLimits const& limits) {
  Document document = beginDocument(path);
  try {
    document.m_source.m_size = content.size();
    document.m_source.m_sha256 = hashSha256(content);
    if (limits.m_onInput) limits.m_onInput(content.size());
    if (isObjectStream(content)) {
      document.m_source.m_format = Format::ObjectStream;
      readStreamDocument(document, content, limits);
    } else if (isJson(document, content)) {
      document.m_source.m_format = Format::Json;
      readJsonDocument(document, content, limits);
    }
  } catch (std::bad_alloc const& error) {
    fail(document, makeLimitFinding(error));
  }
  return document;
}

Document openDocument(std::string const& path, OpenLimits const& limits) {
  Document document = beginDocument(path);
  try {
    InputFile input = readInputFile(path, limits.m_maxInputBytes);
    if (!input.m_problem.has_value()) return readDocument(std::move(input.m_bytes), path, limits);
    fail(document, std::move(*input.m_problem));
  } catch (std::bad_alloc const& error) {
    fail(document, makeLimitFinding(error));
  }
  return document;
}

}  // namespace qvToolkit
