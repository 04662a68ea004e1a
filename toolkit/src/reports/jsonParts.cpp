#include "reports/jsonParts.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>

#include "text/utf8.h"

namespace qvToolkit {

namespace {

constexpr std::string_view HexDigits = "0123456789abcdef";

void appendHexByte(std::string& text, unsigned char byte) {
  text += HexDigits[byte >> 4U];
  text += HexDigits[byte & 0xFU];
}

std::string toHexBytes(std::string_view bytes) {
  std::string hex;
  for (char const byte : bytes) appendHexByte(hex, static_cast<unsigned char>(byte));
  return hex;
}

template <class Bits>
std::string toHexDigits(Bits bits) {
  std::string hex;
  for (unsigned int shift = 8 * sizeof(Bits); shift > 0; shift -= 8) {
    appendHexByte(hex, static_cast<unsigned char>((bits >> (shift - 8)) & 0xFFU));
  }
  return hex;
}

}  // namespace

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
  return toHexDigits(std::bit_cast<std::uint32_t>(number));
}

std::string toHex(double number) {
  return toHexDigits(std::bit_cast<std::uint64_t>(number));
}

void writeVersion(JsonWriter& json, qv::qvStreamVersion version) {
  json.member("version", version.GetPacked());
  json.member("versionText", version.toString());
}

std::string_view getFormatName(Format format) {
  return format == Format::Json ? "json" : "objectStream";
}

}  // namespace qvToolkit
