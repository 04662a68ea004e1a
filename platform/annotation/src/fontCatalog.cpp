#include "fontCatalog.h"

namespace qv::text {

namespace {

struct SharedCatalog {
  std::mutex m_mutex;
  std::shared_ptr<FontCatalog> m_catalog;
};

SharedCatalog& sharedCatalog() {
  static SharedCatalog catalog;
  return catalog;
}

}  // namespace

std::shared_ptr<FontCatalog> FontCatalog::shared() {
  SharedCatalog& place = sharedCatalog();
  std::scoped_lock const lock(place.m_mutex);
  if (place.m_catalog == nullptr) place.m_catalog = std::make_shared<FontCatalog>();
  return place.m_catalog;
}

void FontCatalog::releaseShared() {
  SharedCatalog& place = sharedCatalog();
  std::scoped_lock const lock(place.m_mutex);
  place.m_catalog.reset();
}

std::shared_ptr<FontFace const> FontCatalog::getFace(FontSource const& source) {
  std::scoped_lock const lock(m_mutex);
  std::pair const key(source.m_path, source.m_index);
  if (auto const known = m_faces.find(key); known != m_faces.end()) return known->second;
  // Stored after loading: a face whose loading ran out of memory must be tried anew.
  return m_faces.emplace(key, FontFace::load(source)).first->second;
}

}  // namespace qv::text
