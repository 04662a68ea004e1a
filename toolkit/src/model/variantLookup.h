#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "annotationLegacy/platform.h"

namespace qvToolkit {

using VariantMap = qv::qvVariant::qvVariantMapImpl;
using VariantList = qv::qvVariant::qvVariantListImpl;

/// The value under a key, null when there is none.
inline qv::qvVariant const* findValue(VariantMap const& map, std::string_view key) {
  auto const entry = map.find(key);
  return entry == map.end() ? nullptr : &entry->second;
}

/// The value's text form; empty without one.
inline std::string findText(VariantMap const& map, std::string_view key) {
  qv::qvVariant const* const value = findValue(map, key);
  return value == nullptr ? std::string() : value->toString();
}

/// The list under a key, null when there is no list.
inline VariantList const* findList(VariantMap const& map, std::string_view key) {
  qv::qvVariant const* const value = findValue(map, key);
  return value != nullptr && value->isList() ? &value->toList() : nullptr;
}

}  // namespace qvToolkit
