#pragma once

#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <vector>

#include "qvToolkit/json/jsonWriter.h"
#include "qvToolkit/model/document.h"
#include "rules/valueNames.h"

namespace qvToolkit {

/// An array of numbers on one line, and another member under the key + "Bits": the bits of all of them in
/// hexadecimal when one is not finite, and thus null in the array; null when all are finite.
void writeNumbers(JsonWriter& json, JsonKey key, std::initializer_list<float> numbers);
void writeVector(JsonWriter& json, JsonKey key, Wm4::Vector3<float> const& vector);
/// Both members where there are no numbers.
inline void writeNoNumbers(JsonWriter& json, JsonKey key) {
  json.key(key).null().key(key, "Bits").null();
}

/// The bits of a number in hexadecimal, the highest first.
std::string toHex(double number);

/// A value of a closed set as its name, and under the key + "Number" as it is stored; the name is null for a
/// value beyond the set, and both are where there is no value.
void writeName(JsonWriter& json, JsonKey key, std::optional<std::uint32_t> number,
               qvLegacy::rules::ValueNames const& names);

/// An array of texts.
void writeTexts(JsonWriter& json, JsonKey key, std::vector<std::string> const& texts);

/// "version": "6.22", "versionNumber": packed.
void writeVersion(JsonWriter& json, qv::qvStreamVersion version);

/// "plane": an object of "origin", "normal" and "xAxis", each with its bits.
void writePlane(JsonWriter& json, Wm4::Vector3<float> const& origin, Wm4::Vector3<float> const& normal,
                Wm4::Vector3<float> const& xAxis);

}  // namespace qvToolkit
