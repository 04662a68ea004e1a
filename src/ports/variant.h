#pragma once

/// What the readers ask of variants under names that differ between platforms.

#include <qvSystem/qvStreamVersion.h>
#include <qvSystem/qvVariant.h>

#include <cstdint>
#include <string>
#include <string_view>

namespace qvLegacy::ports {

using Variant = qv::qvVariant;
using VariantMap = qv::qvVariant::qvVariantMapImpl;
using VariantList = qv::qvVariant::qvVariantListImpl;

/// The integer and the real kind; a boolean or a numeric text is no number.
inline bool isNumber(Variant const& value) noexcept {
  return value.isNumber();
}
inline bool isString(Variant const& value) noexcept {
  return value.isString();
}
inline bool isMap(Variant const& value) noexcept {
  return value.isMap();
}
inline bool isList(Variant const& value) noexcept {
  return value.isList();
}

/// The text of the string kind, uncopied; empty for every other kind.
inline std::string const& ownText(Variant const& value) noexcept {
  return value.getString();
}

/// The elements of the list kind, in order; none for every other kind.
inline VariantList const& elements(Variant const& value) noexcept {
  return value.toList();
}

/// The value under `key`, null when the key is absent.
inline Variant const* find(VariantMap const& map, std::string_view key) {
  auto const entry = map.find(key);
  return entry == map.end() ? nullptr : &entry->second;
}

/// The value under `key`, the null variant when the key is absent.
inline Variant const& at(VariantMap const& map, std::string_view key) {
  static Variant const null;
  Variant const* const value = find(map, key);
  return value == nullptr ? null : *value;
}

/// The packed version: 0x60016 is 6.22.
inline std::uint32_t packed(qv::qvStreamVersion const& version) noexcept {
  return version.GetPacked();
}

}  // namespace qvLegacy::ports
