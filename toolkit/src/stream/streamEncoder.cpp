#include "qvToolkit/stream/streamEncoder.h"

#include <unordered_map>
#include <vector>

#include "reading/streamContainer.h"
#include "rules/fields.h"
#include "rules/typeNames.h"
#include "stream/annotationRecord.h"
#include "stream/streamBytes.h"
#include "stream/streamLosses.h"
#include "stream/variantMapWriter.h"

namespace qvToolkit {

namespace {

namespace rules = qvLegacy::rules;

using qvLegacy::qvAnnotationView;

constexpr std::uint32_t MetadataId = 1;
constexpr std::uint32_t FirstViewId = 2;

/// The objects of a document: its views in the order of their first place, and an id for each place.
struct ObjectTable {
  std::vector<qvAnnotationView const*> m_views;
  std::vector<std::uint32_t> m_links;
};

ObjectTable makeTable(Document const& document) {
  ObjectTable table;
  std::unordered_map<qvAnnotationView const*, std::uint32_t> ids;
  for (LoadedView const& loaded : document.m_views) {
    qvAnnotationView const* const view = loaded.m_view.get();
    if (view == nullptr) continue;
    auto const nextId = FirstViewId + static_cast<std::uint32_t>(table.m_views.size());
    auto const [entry, isNew] = ids.try_emplace(view, nextId);
    if (isNew) table.m_views.push_back(view);
    table.m_links.push_back(entry->second);
  }
  return table;
}

std::string makeMetadata(ObjectTable const& table) {
  StreamBytes out;
  out.text({});  // of the base object: metadata objects have no name
  out.number(AnnotationMetadataType);
  out.count(table.m_links.size());
  for (std::uint32_t const id : table.m_links) out.number(id);
  return out.get();
}

/// Writes the annotations of one kind and nothing else.
void writeAnnotations(StreamBytes& out, qvAnnotationView const& view, std::uint8_t kind,
                      std::uint32_t version) {
  for (auto const& annotation : view.m_annotations) {
    if (getRecordKind(annotation.get()) == kind) writeAnnotationRecord(out, *annotation, version);
  }
}

std::size_t countAnnotations(qvAnnotationView const& view, std::uint8_t kind) {
  std::size_t count = 0;
  for (auto const& annotation : view.m_annotations)
    count += getRecordKind(annotation.get()) == kind ? 1U : 0U;
  return count;
}

std::string makeView(qvAnnotationView const& view, std::uint32_t version) {
  constexpr std::uint8_t Text = 1;
  constexpr std::uint8_t Raster = 2;
  bool const hasRasters = rules::reaches(version, rules::view::rasters.inStreams);
  StreamBytes out;
  out.text(view.GetName());
  out.point(view.m_planeOrigin);
  out.point(view.m_planeNormal);
  out.point(view.m_planeXAxis);
  out.count(countAnnotations(view, Text));
  if (hasRasters) out.count(countAnnotations(view, Raster));
  writeAnnotations(out, view, Text, version);
  if (hasRasters) writeAnnotations(out, view, Raster, version);
  if (rules::reaches(version, rules::view::metadata.inStreams)) writeVariantMap(out, view.m_metadata);
  return out.get();
}

void writeObject(StreamBytes& out, std::uint32_t id, std::string_view typeName, std::string const& payload) {
  out.number(id);
  out.text(typeName);
  out.number(std::uint64_t{payload.size()});
  out.raw(payload);
}

std::string makeStream(ObjectTable const& table, EncodingOptions const& options) {
  StreamBytes out;
  out.raw(StreamMark);
  out.number(options.m_version);
  out.count(table.m_views.size() + (options.m_viewsOnly ? 0 : 1));
  if (!options.m_viewsOnly) writeObject(out, MetadataId, rules::metadataTypeName, makeMetadata(table));
  std::uint32_t id = FirstViewId;
  for (qvAnnotationView const* const view : table.m_views) {
    writeObject(out, id++, rules::viewTypeName, makeView(*view, options.m_version));
  }
  return out.get();
}

void findLosses(Document const& document, std::uint32_t version, Findings& findings) {
  for (std::size_t i = 0; i < document.m_views.size(); ++i) {
    Address const address = Address::ofView(i);
    if (document.m_views[i].m_view != nullptr) {
      findStreamLosses(*document.m_views[i].m_view, address, version, findings);
    } else {
      findings.push_back(
          makeFinding(FindingCode::EncodingLoss, "the view was not read and is left out", address.getText()));
    }
  }
}

std::string formatVersion(std::uint32_t packed) {
  return qv::qvStreamVersion(packed).toString();
}

}  // namespace

EncodedDocument encodeDocument(Document const& document, EncodingOptions const& options) {
  EncodedDocument encoded;
  if (options.m_version < rules::oldestVersion || options.m_version > rules::newestVersion) {
    encoded.m_findings.push_back(makeFinding(
        FindingCode::StreamVersion, Severity::Error,
        "the stream version " + formatVersion(options.m_version) + " cannot be written, expected one from " +
            formatVersion(rules::oldestVersion) + " to " + formatVersion(rules::newestVersion)));
    return encoded;
  }
  findLosses(document, options.m_version, encoded.m_findings);
  encoded.m_bytes = makeStream(makeTable(document), options);
  return encoded;
}

}  // namespace qvToolkit
