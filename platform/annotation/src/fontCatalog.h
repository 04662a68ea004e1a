#pragma once

#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <tuple>
#include <utility>

#include "faceOutlines.h"
#include "fontChain.h"
#include "fontFace.h"
#include "fontIndex.h"
#include "qvAnnotation/fontOptions.h"
#include "runCache.h"

namespace qv::text {

/// The process's fonts: the index of what there is, each face that was ever needed, loaded once, the chains
/// of fonts that serve asked families, and the texts that were shaped with them. Threads may share it.
class FontCatalog {
 public:
  explicit FontCatalog(FontOptions options);
  ~FontCatalog();

  /// The process's catalogue, created for the process's font options when there is none, and anew when memory
  /// ran out in one of its faces.
  static std::shared_ptr<FontCatalog> shared();
  /// The process's catalogue, null when there is none.
  static std::shared_ptr<FontCatalog> findShared();
  /// Lets go of the process's catalogue; who still holds it keeps it.
  static void releaseShared();

  /// Whether memory ran out in one of the faces: what is shaped with it from then on lacks letters.
  bool isSpoiled();

  FontOptions const& getOptions() const noexcept { return m_options; }
  FontIndex const& getIndex() const noexcept { return m_index; }
  RunCache& editRuns() noexcept { return m_runs; }

  /// The face at the location; null when it cannot be loaded.
  std::shared_ptr<FontFace const> getFace(FaceLocation const& location);
  /// The one object for the face's outlines, upright or slanted.
  std::shared_ptr<FaceOutlines const> getOutlines(std::shared_ptr<FontFace const> const& face,
                                                  bool isSlanted);
  /// The fonts that serve the family in the style; they live as long as the catalogue.
  FontChain& getChain(std::string const& family, FontStyle style);

 private:
  FontOptions m_options;
  FontIndex m_index;
  RunCache m_runs;
  std::mutex m_faceMutex;  // guards the two that follow
  std::map<FaceLocation, std::shared_ptr<FontFace const>> m_faces;
  std::map<std::pair<FontFace const*, bool>, std::shared_ptr<FaceOutlines const>> m_outlines;
  std::mutex m_chainMutex;  // guards m_chains
  std::map<std::pair<std::string, FontStyle>, FontChain> m_chains;
};

}  // namespace qv::text
