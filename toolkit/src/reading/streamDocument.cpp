#include "reading/streamDocument.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <span>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "annotationLegacy/qvAnnotationMetaData.h"
#include "qvSystem/qvStreamReader.h"
#include "qvToolkit/findings/address.h"
#include "reading/cutTexts.h"
#include "reading/stackBudget.h"
#include "rules/gates.h"
#include "text/countText.h"

namespace qvToolkit {

namespace {

using Kind = qv::qvStreamProblem::Kind;
using qvLegacy::qvAnnotationMetaData;
using qvLegacy::qvAnnotationView;

constexpr std::uint64_t VersionOffset = 8;
/// Versions above it belong to a later generation of the stream.
constexpr std::uint32_t NewestVersion = 0x6FFFF;

FindingCode getCode(Kind kind) {
  switch (kind) {
    case Kind::Broken:
      return FindingCode::StreamBroken;
    case Kind::Id:
      return FindingCode::StreamObjectId;
    case Kind::UnknownType:
      return FindingCode::StreamUnknownType;
    case Kind::OverRead:
      return FindingCode::StreamOverRead;
    case Kind::NoObject:
    case Kind::Refused:
      return FindingCode::StreamRefused;
    case Kind::UnderRead:
      return FindingCode::StreamUnderRead;
    case Kind::Link:
      return FindingCode::StreamLink;
    case Kind::Trailing:
      return FindingCode::StreamTrailing;
    case Kind::More:
      break;
  }
  return FindingCode::StreamMore;
}

std::string describeObject(std::uint32_t id, std::string const& typeName) {
  return "object " + std::to_string(id) + " (" + typeName + ")";
}

std::uint32_t readNumber(std::span<std::byte const> bytes, std::uint64_t offset) {
  std::uint32_t number = 0;
  std::memcpy(&number, bytes.data() + offset, sizeof(number));
  return number;
}

/// Entries of one metadata object that name no view of their own.
struct OddLinks {
  std::uint64_t m_count = 0;
  std::uint64_t m_firstOffset = 0;

  void add(std::uint64_t offset) {
    if (m_count++ == 0) m_firstOffset = offset;
  }
};

/// Turns what the stream loaded into a document.
class StreamDocumentReader {
 public:
  StreamDocumentReader(Document& document, std::span<std::byte const> bytes, qv::qvStreamLimits const& limits)
      : m_document(document), m_bytes(bytes), m_loaded(qv::LoadObjectStream(bytes, limits)) {}

  void read() {
    checkVersion();
    findRefusedViews();
    bool hasMetadata = false;
    for (qv::qvLoadedObject const& object : m_loaded.m_objects) hasMetadata |= addListedViews(object);
    for (qv::qvLoadedObject const& object : m_loaded.m_objects) addUnlistedView(object, hasMetadata);
    for (qv::qvStreamProblem const& problem : m_loaded.m_problems) addProblem(problem);
    addCutTexts();
    if (m_document.m_views.empty()) reportNoView();
  }

 private:
  void checkVersion();
  void findRefusedViews();
  bool addListedViews(qv::qvLoadedObject const& owner);
  void addUnlistedView(qv::qvLoadedObject const& object, bool hasMetadata);
  void addView(qvAnnotationView& view);
  void addProblem(qv::qvStreamProblem const& problem);
  void addCutTexts();
  void reportNoView();
  std::string findAddress(qv::qvLoadedObject const* object) const;
  void reportLinks(qv::qvLoadedObject const& owner, OddLinks const& links, Severity severity,
                   char const* text);
  void report(FindingCode code, Severity severity, std::string const& object, std::uint64_t offset,
              std::string const& text, std::string address = {});
  qv::qvLoadedObject const* findObjectAt(std::uint64_t offset) const;

  Document& m_document;
  std::span<std::byte const> m_bytes;
  qv::qvLoadedDocument m_loaded;
  std::unordered_set<qvAnnotationView const*> m_refused;
  std::unordered_map<qvAnnotationView const*, std::string> m_addresses;
};

/// The object whose payload holds or ends at the byte; null when there is none.
qv::qvLoadedObject const* StreamDocumentReader::findObjectAt(std::uint64_t offset) const {
  auto const& objects = m_loaded.m_objects;
  auto const behind = std::ranges::upper_bound(objects, offset, {}, &qv::qvLoadedObject::m_offset);
  if (behind == objects.begin()) return nullptr;
  qv::qvLoadedObject const& object = *std::prev(behind);
  return offset <= object.m_offset + object.m_size ? &object : nullptr;
}

void StreamDocumentReader::checkVersion() {
  if (m_loaded.m_version <= NewestVersion) return;
  report(FindingCode::StreamVersion, Severity::Warning, {}, VersionOffset,
         "the stream version " + qv::qvStreamVersion(m_loaded.m_version).toString() +
             " is newer than every known one; it is read as " +
             qv::qvStreamVersion(qvLegacy::rules::newestVersion).toString());
}

/// A reader that refuses in front of its first byte has read nothing of the view.
void StreamDocumentReader::findRefusedViews() {
  for (qv::qvStreamProblem const& problem : m_loaded.m_problems) {
    if (problem.m_kind != Kind::Refused) continue;
    qv::qvLoadedObject const* const object = findObjectAt(problem.m_offset);
    if (object == nullptr || object->m_offset != problem.m_offset) continue;
    m_refused.insert(dynamic_cast<qvAnnotationView const*>(object->m_object.get()));
  }
}

/// False when the object is no metadata object. Its name and its links are its only parts of varying length,
/// so the place of a link follows from its index.
bool StreamDocumentReader::addListedViews(qv::qvLoadedObject const& owner) {
  auto const* const metadata = dynamic_cast<qvAnnotationMetaData const*>(owner.m_object.get());
  if (metadata == nullptr || metadata->getViews().empty()) return metadata != nullptr;
  auto const nameLength = static_cast<std::int32_t>(readNumber(m_bytes, owner.m_offset));
  std::uint64_t place = 12 + static_cast<std::uint64_t>(std::max(nameLength, 0));
  OddLinks repeated;
  OddLinks empty;
  for (auto const& view : metadata->getViews()) {
    std::uint64_t const offset = owner.m_offset + place;
    if (view != nullptr && m_addresses.contains(view.get())) {
      repeated.add(offset);
    } else if (view != nullptr) {
      addView(*view);
    } else if (place + 4 <= owner.m_size && readNumber(m_bytes, offset) == 0) {
      // Links that lead elsewhere, and those behind the payload's end, are problems that the stream reports.
      empty.add(offset);
    }
    place += 4;
  }
  reportLinks(owner, repeated, Severity::Info, "links to views that are listed before; each is shown once");
  reportLinks(owner, empty, Severity::Warning, "links to views, found none");
  return true;
}

void StreamDocumentReader::reportLinks(qv::qvLoadedObject const& owner, OddLinks const& links,
                                       Severity severity, char const* text) {
  if (links.m_count == 0) return;
  report(FindingCode::StreamLink, severity, describeObject(owner.m_id, owner.m_typeName), links.m_firstOffset,
         (severity == Severity::Info ? "found " : "expected ") + std::to_string(links.m_count) + " " + text);
}

void StreamDocumentReader::addUnlistedView(qv::qvLoadedObject const& object, bool hasMetadata) {
  auto* const view = dynamic_cast<qvAnnotationView*>(object.m_object.get());
  if (view == nullptr || m_addresses.contains(view)) return;
  addView(*view);
  if (!hasMetadata) return;
  report(FindingCode::StreamUnlistedView, Severity::Info, describeObject(object.m_id, object.m_typeName),
         object.m_offset, "no metadata object lists this view; it follows those that are listed",
         m_addresses[view]);
}

void StreamDocumentReader::addView(qvAnnotationView& view) {
  m_addresses.emplace(&view, Address::ofView(m_document.m_views.size()).getText());
  LoadedView loaded;
  loaded.m_version = qv::qvStreamVersion(m_loaded.m_version);
  loaded.m_name = view.GetName();
  if (!m_refused.contains(&view)) loaded.m_view = &view;
  m_document.m_views.push_back(std::move(loaded));
}

void StreamDocumentReader::addProblem(qv::qvStreamProblem const& problem) {
  bool const isOfObject = !problem.m_typeName.empty() || problem.m_objectId != 0;
  // These two are told at the object's header, which may begin where another object's payload ends.
  bool const isOfHeader = problem.m_kind == Kind::Id || problem.m_kind == Kind::UnknownType;
  std::string address = findAddress(isOfObject && !isOfHeader ? findObjectAt(problem.m_offset) : nullptr);
  bool const isError = problem.m_severity == qv::qvStreamProblem::Severity::Error;
  report(getCode(problem.m_kind), isError ? Severity::Error : Severity::Warning,
         isOfObject ? describeObject(problem.m_objectId, problem.m_typeName) : std::string(),
         problem.m_offset, problem.m_text, std::move(address));
}

/// Of the view that the object is; empty when it is none.
std::string StreamDocumentReader::findAddress(qv::qvLoadedObject const* object) const {
  if (object == nullptr) return {};
  auto const entry = m_addresses.find(dynamic_cast<qvAnnotationView const*>(object->m_object.get()));
  return entry == m_addresses.end() ? std::string() : entry->second;
}

void StreamDocumentReader::addCutTexts() {
  std::string_view const content(reinterpret_cast<char const*>(m_bytes.data()), m_bytes.size());
  CutTexts const cut = findCutTexts(content, m_loaded.m_version);
  for (CutText const& text : cut.m_texts) {
    report(FindingCode::RecordLost, Severity::Error, {}, text.m_offset,
           text.m_path + ": a text of " + std::to_string(text.m_size) + " bytes was cut at " +
               std::to_string(text.m_kept),
           findAddress(findObjectAt(text.m_offset)));
  }
  if (cut.m_more == 0) return;
  m_document.m_findings.push_back(makeFinding(
      FindingCode::RecordLost, formatCount(cut.m_more, "more text") + " cut, which are not listed"));
}

/// A document that broke before its first view is not known to hold none.
void StreamDocumentReader::reportNoView() {
  if (getHighestSeverity(m_document.m_findings) == Severity::Error) return;
  m_document.m_findings.push_back(makeFinding(FindingCode::NoViews, "the document holds no view"));
}

void StreamDocumentReader::report(FindingCode code, Severity severity, std::string const& object,
                                  std::uint64_t offset, std::string const& text, std::string address) {
  std::string place = object.empty() ? "byte " : object + ", byte ";
  place += std::to_string(offset);
  m_document.m_findings.push_back(
      makeFinding(code, severity, place + ": " + text, std::move(address), {offset, {}, {}, {}}));
}

}  // namespace

bool isObjectStream(std::string_view content) {
  return qv::IsObjectStream(std::as_bytes(std::span(content)));
}

void readStreamDocument(Document& document, std::string_view content, OpenLimits const& limits) {
  document.m_format = Format::ObjectStream;
  qv::qvStreamLimits stream;
  stream.m_maxFailedReads = limits.m_maxFailedReads;
  stream.m_maxStackBytes = getStackBudget(limits);
  stream.m_maxMilliseconds = limits.m_maxMilliseconds;
  StreamDocumentReader(document, std::as_bytes(std::span(content)), stream).read();
}

}  // namespace qvToolkit
