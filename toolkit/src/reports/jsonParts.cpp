#include "reports/jsonParts.h"

#include <algorithm>
#include <bit>
#include <cmath>

#include "text/hexadecimal.h"

namespace qvToolkit {

namespace {

std::string toHex(float number) {
  return toHexNumber(std::bit_cast<std::uint32_t>(number), 8);
}

}  // namespace

std::string toHex(double number) {
  return toHexNumber(std::bit_cast<std::uint64_t>(number), 16);
}

void writeNumbers(JsonWriter& json, JsonKey key, std::initializer_list<float> numbers) {
  json.key(key).inlineArray(numbers).key(key, "Bits");
  if (std::ranges::all_of(numbers, [](float number) { return std::isfinite(number); })) {
    json.null();
    return;
  }
  json.beginArray();
  for (float const number : numbers) json.value(toHex(number));
  json.endArray();
}

void writeVector(JsonWriter& json, JsonKey key, Wm4::Vector3<float> const& vector) {
  writeNumbers(json, key, {vector.X(), vector.Y(), vector.Z()});
}

void writeName(JsonWriter& json, JsonKey key, std::optional<std::uint32_t> number,
               qvLegacy::rules::ValueNames const& names) {
  if (number.has_value()) {
    json.textOrNull(key, names.nameOf(*number)).key(key, "Number").value(*number);
  } else {
    json.key(key).null().key(key, "Number").null();
  }
}

void writeTexts(JsonWriter& json, JsonKey key, std::vector<std::string> const& texts) {
  json.key(key).beginArray();
  for (std::string const& text : texts) json.value(text);
  json.endArray();
}

void writeVersion(JsonWriter& json, qv::qvStreamVersion version) {
  json.member("version", version.toString()).member("versionNumber", version.GetPacked());
}

void writePlane(JsonWriter& json, Wm4::Vector3<float> const& origin, Wm4::Vector3<float> const& normal,
                Wm4::Vector3<float> const& xAxis) {
  json.key("plane").beginObject();
  writeVector(json, "origin", origin);
  writeVector(json, "normal", normal);
  writeVector(json, "xAxis", xAxis);
  json.endObject();
}

}  // namespace qvToolkit
