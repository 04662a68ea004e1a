#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <unordered_map>

#include "shapedText.h"

namespace qv::text {

class FontChain;

/// What a shaped text depends on.
struct RunKey {
  FontChain const* m_fonts = nullptr;
  bool m_isRightToLeft = false;
  std::u32string_view m_text;

  friend bool operator==(RunKey const&, RunKey const&) = default;
};

/// Texts that were shaped before, within bounds: of two generations the older one is dropped when the younger
/// has half of the allowed bytes. Threads may share it.
class RunCache {
 public:
  explicit RunCache(std::size_t maximumBytes) : m_generationBytes(maximumBytes / 2) {}

  /// The text of the key, or null.
  std::shared_ptr<ShapedText const> find(RunKey const& key);
  /// Keeps the text under the key; one that is larger than a whole generation is not kept.
  void store(RunKey const& key, std::shared_ptr<ShapedText const> text);

  /// The bytes of all kept texts.
  std::size_t countBytes() const;

 private:
  struct Hash {
    std::size_t operator()(RunKey const& key) const noexcept;
  };
  /// The key's characters are held beside the value, so that the map's own key can view them.
  struct Entry {
    std::u32string m_characters;
    std::shared_ptr<ShapedText const> m_text;
  };
  using Generation = std::unordered_map<RunKey, std::unique_ptr<Entry const>, Hash>;

  void keep(std::unique_ptr<Entry const> entry, RunKey key);
  static std::size_t countBytes(Entry const& entry);

  std::size_t m_generationBytes;
  mutable std::mutex m_mutex;  // guards all below
  Generation m_younger;
  Generation m_older;
  std::size_t m_youngerBytes = 0;
  std::size_t m_olderBytes = 0;
};

}  // namespace qv::text
