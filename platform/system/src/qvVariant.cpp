#include "qvSystem/qvVariant.h"

#include "variantTree.h"

namespace qv {

static_assert(sizeof(qvVariant) == 16, "the size of a variant decides what a loaded document costs");

using impl::destroyOwned;
using impl::makeOwned;

namespace {

/// Values that stand for what a variant is not; never destroyed, since static objects of other libraries use
/// them.
template <class T>
T const& neutral() noexcept {
  static T const& value = *new T;
  return value;
}

}  // namespace

qvVariant::qvVariant(std::int64_t value) noexcept : m_kind(Kind::Integer) {
  m_content.integer = value;
}
qvVariant::qvVariant(int value) noexcept : qvVariant(std::int64_t{value}) {
}
qvVariant::qvVariant(double value) noexcept : m_kind(Kind::Real) {
  m_content.real = value;
}
qvVariant::qvVariant(bool value) noexcept : m_kind(Kind::Bool) {
  m_content.boolean = value;
}
qvVariant::qvVariant(char const* value) : qvVariant(std::string(value == nullptr ? "" : value)) {
}

qvVariant::qvVariant(std::string value) : m_kind(Kind::String) {
  m_content.string = makeOwned<std::string>(std::move(value));
}

qvVariant::qvVariant(qvVariantMapImpl value) : m_kind(Kind::Map) {
  m_content.map = makeOwned<qvVariantMapImpl>(std::move(value));
}

qvVariant::qvVariant(qvVariantListImpl value) : m_kind(Kind::List) {
  m_content.list = makeOwned<qvVariantListImpl>(std::move(value));
}

qvVariant::qvVariant(qvVariant const& other) {
  if (other.isMap() || other.isList()) {
    *this = impl::copyTree(other);
    return;
  }
  m_content = other.m_content;
  if (other.isString()) m_content.string = makeOwned<std::string>(*other.m_content.string);
  m_kind = other.m_kind;
}

qvVariant::qvVariant(qvVariant&& other) noexcept
    : m_content(other.m_content), m_kind(std::exchange(other.m_kind, Kind::Null)) {
}

qvVariant& qvVariant::operator=(qvVariant const& other) {
  return *this = qvVariant(other);
}

// The old content goes last: `other` may be a part of it.
qvVariant& qvVariant::operator=(qvVariant&& other) noexcept {
  qvVariant taken(std::move(other));
  std::swap(m_content, taken.m_content);
  std::swap(m_kind, taken.m_kind);
  return *this;
}

qvVariant::~qvVariant() {
  if (impl::holdsContainers(*this)) impl::releaseTree(*this);
  if (isString()) destroyOwned(m_content.string);
  if (isMap()) destroyOwned(m_content.map);
  if (isList()) destroyOwned(m_content.list);
}

qvVariant::qvVariantMapImpl const& qvVariant::toMap() const noexcept {
  return isMap() ? *m_content.map : neutral<qvVariantMapImpl>();
}

qvVariant::qvVariantListImpl const& qvVariant::toList() const noexcept {
  return isList() ? *m_content.list : neutral<qvVariantListImpl>();
}

std::string const& qvVariant::getString() const noexcept {
  return isString() ? *m_content.string : neutral<std::string>();
}

qvVariant::qvVariantMapImpl& qvVariant::editMap() {
  if (!isMap()) *this = qvVariantMapImpl();
  return *m_content.map;
}

qvVariant::qvVariantListImpl& qvVariant::editList() {
  if (!isList()) *this = qvVariantListImpl();
  return *m_content.list;
}

}  // namespace qv
