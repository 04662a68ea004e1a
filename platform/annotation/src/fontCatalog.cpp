#include "fontCatalog.h"

#include <algorithm>
#include <cstddef>

namespace qv::text {

namespace {

constexpr std::size_t RUN_CACHE_BYTES = 32U << 20U;

struct SharedCatalog {
  std::mutex m_mutex;
  std::shared_ptr<FontCatalog> m_catalog;
};

/// Never destroyed, since static objects of a host may end the library.
SharedCatalog& sharedCatalog() {
  static SharedCatalog& catalog = *new SharedCatalog;
  return catalog;
}

}  // namespace

FontCatalog::FontCatalog(FontOptions options)
    : m_options(std::move(options)), m_index(m_options), m_runs(RUN_CACHE_BYTES) {
}

FontCatalog::~FontCatalog() = default;

std::shared_ptr<FontCatalog> FontCatalog::shared() {
  SharedCatalog& place = sharedCatalog();
  std::scoped_lock const lock(place.m_mutex);
  bool const isUsable = place.m_catalog != nullptr && !place.m_catalog->isSpoiled();
  if (!isUsable) place.m_catalog = std::make_shared<FontCatalog>(getFontOptions());
  return place.m_catalog;
}

std::shared_ptr<FontCatalog> FontCatalog::findShared() {
  SharedCatalog& place = sharedCatalog();
  std::scoped_lock const lock(place.m_mutex);
  return place.m_catalog;
}

void FontCatalog::releaseShared() {
  SharedCatalog& place = sharedCatalog();
  std::scoped_lock const lock(place.m_mutex);
  place.m_catalog.reset();
}

bool FontCatalog::isSpoiled() {
  std::scoped_lock const lock(m_faceMutex);
  return std::ranges::any_of(
      m_faces, [](auto const& entry) { return entry.second != nullptr && entry.second->isSpoiled(); });
}

std::shared_ptr<FontFace const> FontCatalog::getFace(FaceLocation const& location) {
  std::scoped_lock const lock(m_faceMutex);
  if (auto const known = m_faces.find(location); known != m_faces.end()) return known->second;
  // Stored after loading: a face whose loading ran out of memory must be tried anew.
  return m_faces.emplace(location, FontFace::load(location)).first->second;
}

std::shared_ptr<FaceOutlines const> FontCatalog::getOutlines(std::shared_ptr<FontFace const> const& face,
                                                             bool isSlanted) {
  std::scoped_lock const lock(m_faceMutex);
  std::shared_ptr<FaceOutlines const>& outlines = m_outlines[{face.get(), isSlanted}];
  if (outlines == nullptr) outlines = std::make_shared<FaceOutlines const>(face, isSlanted);
  return outlines;
}

FontChain& FontCatalog::getChain(std::string const& family, FontStyle style) {
  std::scoped_lock const lock(m_chainMutex);
  return m_chains.try_emplace(std::pair(family, style), *this, family, style).first->second;
}

}  // namespace qv::text
