#pragma once

#include <qvSystem/qvStreamVersion.h>
#include <qvSystem/qvVariant.h>

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

/// Variants as documents hold them, and the outcome of reading one.
namespace readersTest {

using Variant = qv::qvVariant;
using Map = qv::qvVariant::qvVariantMapImpl;
using Messages = std::vector<std::string>;

constexpr qv::qvStreamVersion v6_16(6, 16);
constexpr qv::qvStreamVersion v6_17(6, 17);
constexpr qv::qvStreamVersion v6_21(6, 21);
constexpr qv::qvStreamVersion v6_22(6, 22);
constexpr qv::qvStreamVersion v6_27(6, 27);

template <class... Values>
Variant list(Values&&... values) {
  qv::qvVariant::qvVariantListImpl elements;
  (elements.emplace_back(Variant(std::forward<Values>(values))), ...);
  return elements;
}

/// One value of each kind that is neither what a field takes nor absent; the caller leaves out what its field
/// takes.
inline std::vector<Variant> oneOfEachKind() {
  return {Variant(), Variant(7), Variant(7.5), Variant("x"), Variant(true), Variant(Map{{"k", 1}}),
          list(1, 2)};
}

struct Outcome {
  bool isRead;
  Messages messages;
};

/// Reads the map into the object.
template <class Object>
Outcome read(Object& object, Map const& map, qv::qvStreamVersion const& version) {
  Outcome outcome{};
  outcome.isRead = object.loadFromVariant(map, version, outcome.messages);
  return outcome;
}

}  // namespace readersTest
