#include "qvToolkit/reading/streamFields.h"

#include "annotationLegacy/platform.h"
#include "reading/recordWalk.h"
#include "reading/streamContainer.h"
#include "rules/typeNames.h"
#include "text/hexadecimal.h"

namespace qvToolkit {

namespace {

constexpr std::int32_t MaxTypeName = 256;

/// A length that no type name has leaves no way to find what follows.
std::string_view walkTypeName(FieldCursor& in) {
  auto const length = static_cast<std::int32_t>(in.takeNumber<std::uint32_t>("type.length"));
  if (length > MaxTypeName) {
    in.breakHere("type.length",
                 "expected a type name of at most 256 bytes, found one of " + std::to_string(length));
    return {};
  }
  in.show("type.length", std::to_string(length));
  return length > 0 ? in.text("type", static_cast<std::uint64_t>(length)) : std::string_view();
}

/// True when the document goes on behind the object.
bool walkObject(FieldCursor& in, std::uint32_t index) {
  FieldCursor::Inside const inObject(in, "object", index);
  in.number<std::uint32_t>("id");
  std::string_view const type = walkTypeName(in);
  auto const size = in.number<std::uint64_t>("payloadSize");
  if (in.isBroken()) return false;
  std::uint64_t const held = std::min(size, in.getLeft());
  in.beginPayload(size);
  bool const isView = type == qvLegacy::rules::viewTypeName;
  bool const isMetadata =
      type == qvLegacy::rules::metadataTypeName || type == qvLegacy::rules::metadataTypeNameOfRecord;
  if (isView) walkViewRecord(in);
  if (isMetadata) walkMetadataRecord(in);
  bool const wasBroken = in.isBroken();
  in.endPayload(isView || isMetadata ? "expected the end of the payload, found " : "unknown type: ");
  if (held == size) return true;
  if (!wasBroken) in.take("payload", size - held);
  return false;
}

void walkObjects(FieldCursor& in) {
  in.take("mark", StreamMark.size());
  in.show("mark", '"' + std::string(StreamMark) + '"');
  auto const version = in.takeNumber<std::uint32_t>("version");
  in.show("version", "0x" + toHexNumber(version, 1) + " (" + qv::qvStreamVersion(version).toString() + ")");
  in.setVersion(version);
  auto const count = in.number<std::uint32_t>("objectCount");
  for (std::uint32_t i = 0; i < count && !in.isBroken(); ++i) {
    if (!walkObject(in, i)) break;
  }
}

}  // namespace

void walkObjectStream(std::string_view bytes, FieldVisitor const& visit) {
  FieldCursor in(bytes, visit);
  walkObjects(in);
  in.endPayload("expected the end of the document, found ");
}

}  // namespace qvToolkit
