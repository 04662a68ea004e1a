#include "qvAnnotation/fontOptions.h"

#include <mutex>
#include <utility>

#include "fontCatalog.h"

namespace qv::text {

namespace {

struct SharedOptions {
  std::mutex m_mutex;
  FontOptions m_options;
};

/// Never destroyed, since static objects of a host may migrate.
SharedOptions& sharedOptions() {
  static SharedOptions& options = *new SharedOptions;
  return options;
}

}  // namespace

void setFontOptions(FontOptions const& options) {
  FontOptions copy = options;
  {
    std::scoped_lock const lock(sharedOptions().m_mutex);
    sharedOptions().m_options = std::move(copy);
  }
  FontCatalog::releaseShared();
}

FontOptions getFontOptions() {
  std::scoped_lock const lock(sharedOptions().m_mutex);
  return sharedOptions().m_options;
}

bool hasFontFamily(std::string_view family) {
  return FontCatalog::shared()->getIndex().findFamily(family, {}).has_value();
}

bool hasMissedEveryFont() {
  std::shared_ptr<FontCatalog> const catalog = FontCatalog::findShared();
  return catalog != nullptr && catalog->getIndex().isEmpty();
}

}  // namespace qv::text
