#include "variantTree.h"

#include <algorithm>
#include <vector>

namespace qv {

namespace impl {

namespace {

bool isContainer(qvVariant const& value) noexcept {
  return value.isMap() || value.isList();
}

std::size_t size(qvVariant const& value) noexcept {
  return value.isMap() ? value.toMap().size() : value.toList().size();
}

/// The first child of a container that is not empty.
qvVariant& firstChild(qvVariant& container) noexcept {
  return container.isMap() ? container.editMap().begin()->second : container.editList().front();
}

/// Removes the last child of a container that is not empty.
qvVariant takeLastChild(qvVariant& container) noexcept {
  if (container.isList()) {
    qvVariant child = std::move(container.editList().back());
    container.editList().pop_back();
    return child;
  }
  auto const last = std::prev(container.editMap().end());
  qvVariant child = std::move(last->second);
  container.editMap().erase(last);
  return child;
}

struct CopyStep {
  qvVariant const* m_source;
  qvVariant* m_target;
};

/// Copies the children of one container; those that are containers themselves are left null, and noted in
/// `steps`.
void copyChildren(CopyStep step, std::vector<CopyStep>& steps) {
  auto const copy = [&steps](qvVariant const& source, qvVariant& target) {
    if (isContainer(source)) {
      steps.push_back({&source, &target});
    } else {
      target = source;
    }
  };
  if (step.m_source->isMap()) {
    auto& map = step.m_target->editMap();
    for (auto const& [key, value] : step.m_source->toMap()) {
      copy(value, map.emplace_hint(map.end(), key, qvVariant())->second);
    }
  } else {
    auto const& sources = step.m_source->toList();
    auto& targets = step.m_target->editList();
    targets.resize(sources.size());
    for (std::size_t i = 0; i < sources.size(); ++i) copy(sources[i], targets[i]);
  }
}

}  // namespace

bool holdsContainers(qvVariant const& value) noexcept {
  if (value.isList()) return std::ranges::any_of(value.toList(), isContainer);
  if (!value.isMap()) return false;
  return std::ranges::any_of(value.toMap(), [](auto const& entry) { return isContainer(entry.second); });
}

// The work list is threaded through the containers that are being emptied: the first child of each one gives
// its place to the container above. So nothing is allocated, and nothing can fail.
void releaseTree(qvVariant& value) noexcept {
  qvVariant above;
  qvVariant current = std::move(value);
  for (;;) {
    if (isContainer(current) && size(current) > 0) {
      qvVariant child = std::exchange(firstChild(current), std::move(above));
      above = std::move(current);
      current = std::move(child);
      continue;
    }
    while (!above.isNull() && size(above) == 1) {
      qvVariant next = std::move(firstChild(above));
      above = std::move(next);
    }
    if (above.isNull()) return;
    current = takeLastChild(above);
  }
}

qvVariant copyTree(qvVariant const& source) {
  qvVariant result;
  std::vector<CopyStep> steps{{&source, &result}};
  while (!steps.empty()) {
    CopyStep const step = steps.back();
    steps.pop_back();
    copyChildren(step, steps);
  }
  return result;
}

}  // namespace impl

namespace {

using Pairs = std::vector<std::pair<qvVariant const*, qvVariant const*>>;

/// Notes the children of two maps to be compared; false when their keys differ.
bool pairUp(qvVariant::qvVariantMapImpl const& a, qvVariant::qvVariantMapImpl const& b, Pairs& pairs) {
  if (a.size() != b.size()) return false;
  auto other = b.begin();
  for (auto const& [key, value] : a) {
    if (key != other->first) return false;
    pairs.emplace_back(&value, &other->second);
    ++other;
  }
  return true;
}

bool pairUp(qvVariant::qvVariantListImpl const& a, qvVariant::qvVariantListImpl const& b, Pairs& pairs) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i) pairs.emplace_back(&a[i], &b[i]);
  return true;
}

/// Compares two variants, of containers only their keys and sizes: their children are noted in `pairs`.
bool equalAtTop(qvVariant const& a, qvVariant const& b, Pairs& pairs) {
  if (a.getKind() != b.getKind()) return false;
  switch (a.getKind()) {
    case qvVariant::Kind::Null:
      return true;
    case qvVariant::Kind::Integer:
      return a.toInteger() == b.toInteger();
    case qvVariant::Kind::Real:
      return a.toReal() == b.toReal();
    case qvVariant::Kind::String:
      return a.getString() == b.getString();
    case qvVariant::Kind::Bool:
      return a.toBool() == b.toBool();
    case qvVariant::Kind::Map:
      return pairUp(a.toMap(), b.toMap(), pairs);
    case qvVariant::Kind::List:
      return pairUp(a.toList(), b.toList(), pairs);
  }
  return false;
}

}  // namespace

bool operator==(qvVariant const& a, qvVariant const& b) {
  Pairs pairs{{&a, &b}};
  while (!pairs.empty()) {
    auto const [first, second] = pairs.back();
    pairs.pop_back();
    if (!equalAtTop(*first, *second, pairs)) return false;
  }
  return true;
}

}  // namespace qv
