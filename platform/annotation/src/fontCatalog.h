#pragma once

#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <utility>

#include "fontFace.h"
#include "fontIndex.h"

namespace qv::text {

/// The process's fonts: the index of what is installed, and each face that was ever needed, loaded once.
/// Threads may share it.
class FontCatalog {
 public:
  /// The process's catalogue, created when there is none.
  static std::shared_ptr<FontCatalog> shared();
  /// Lets go of the process's catalogue; who still holds it keeps it.
  static void releaseShared();

  FontIndex const& getIndex() const noexcept { return m_index; }
  /// The face at the source; null when it cannot be loaded.
  std::shared_ptr<FontFace const> getFace(FontSource const& source);

 private:
  FontIndex m_index;
  std::mutex m_mutex;  // guards m_faces
  std::map<std::pair<std::string, unsigned>, std::shared_ptr<FontFace const>> m_faces;
};

}  // namespace qv::text
