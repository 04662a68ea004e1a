#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "json/jsonReader.h"
#include "outcome/jsonFields.h"
#include "qvToolkit/json/jsonWriter.h"
#include "qvToolkit/model/legacyCounts.h"
#include "qvToolkit/model/source.h"
#include "qvToolkit/outcome/outcomeJson.h"

namespace qvToolkit {

/// The first members of a document, which say what it is.
void writeHead(JsonWriter& json, std::string_view format, int version);
void readHead(JsonFields& fields, std::string_view format);

/// Parses a text and has `readMembers` read it into a copy of the target, which takes its place only when
/// nothing was wrong. Returns what was.
std::string parseObject(std::string& json, qv::qvVariant& object);
template <class Value, class Read>
std::string readDocumentInto(std::string& json, Value& target, Read readMembers) {
  qv::qvVariant object;
  std::string problem = parseObject(json, object);
  if (!problem.empty()) return problem;
  Value value;
  JsonFields fields(object, {}, problem);
  readMembers(fields, value);
  if (problem.empty()) target = std::move(value);
  return problem;
}

/// "source": an object that tells whether it is the same input another day or elsewhere.
void writeSource(JsonWriter& json, Source const& source);
/// "counts": an object of what a view holds.
void writeCounts(JsonWriter& json, LegacyCounts const& counts);

/// A count as `JsonFields` reads it.
void writeCount(JsonWriter& json, JsonKey key, std::uint64_t count);
void writeCount(JsonWriter& json, JsonKey key, std::optional<std::uint64_t> const& count);
/// Bytes as `JsonFields::readBytesOrNull` reads them.
void writeBytesOrNull(JsonWriter& json, JsonKey key, std::string_view bytes);

}  // namespace qvToolkit
