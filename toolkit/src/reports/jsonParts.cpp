#include "reports/jsonParts.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>

#include "text/hexadecimal.h"
#include "text/utf8.h"

namespace qvToolkit {

void writeBytes(JsonWriter& json, std::string const& key, std::string_view bytes) {
  json.member(key, bytes);
  if (!isValidUtf8(bytes)) json.member(key + "Hex", toHexBytes(bytes));
}

void writeNumbers(JsonWriter& json, std::string const& key, std::vector<float> const& numbers) {
  json.key(key).inlineArray(numbers);
  if (std::all_of(numbers.begin(), numbers.end(), [](float number) { return std::isfinite(number); })) return;
  json.key(key + "Bits").beginArray();
  for (float const number : numbers) json.value(toHex(number));
  json.endArray();
}

void writeVector(JsonWriter& json, std::string const& key, Wm4::Vector3<float> const& vector) {
  writeNumbers(json, key, {vector.X(), vector.Y(), vector.Z()});
}

std::string toHex(float number) {
  return toHexNumber(std::bit_cast<std::uint32_t>(number), 8);
}

std::string toHex(double number) {
  return toHexNumber(std::bit_cast<std::uint64_t>(number), 16);
}

void writeVersion(JsonWriter& json, qv::qvStreamVersion version) {
  json.member("version", version.GetPacked());
  json.member("versionText", version.toString());
}

std::string_view getFormatName(Format format) {
  return format == Format::Json ? "json" : "objectStream";
}

}  // namespace qvToolkit
