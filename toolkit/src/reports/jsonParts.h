#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "qvToolkit/json/jsonWriter.h"
#include "qvToolkit/model/document.h"

namespace qvToolkit {

/// A string member; bytes that are no valid UTF-8 stand beside it in hexadecimal under the key + "Hex".
void writeBytes(JsonWriter& json, std::string const& key, std::string_view bytes);

/// An array of numbers on one line; when one of them is not finite, and thus null, the bits of all of them
/// follow in hexadecimal under the key + "Bits".
void writeNumbers(JsonWriter& json, std::string const& key, std::vector<float> const& numbers);
void writeVector(JsonWriter& json, std::string const& key, Wm4::Vector3<float> const& vector);

/// The bits of a number in hexadecimal, the highest first.
std::string toHex(float number);
std::string toHex(double number);

/// "version": packed number, "versionText": "6.22".
void writeVersion(JsonWriter& json, qv::qvStreamVersion version);

/// "json" or "objectStream".
std::string_view getFormatName(Format format);

}  // namespace qvToolkit
