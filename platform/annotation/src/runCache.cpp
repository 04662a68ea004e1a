#include "runCache.h"

#include <utility>

namespace qv::text {

std::size_t RunCache::Hash::operator()(RunKey const& key) const noexcept {
  std::size_t const fonts = std::hash<FontChain const*>{}(key.m_fonts);
  return std::hash<std::u32string_view>{}(key.m_text) ^ (2 * fonts + (key.m_isRightToLeft ? 1 : 0));
}

std::shared_ptr<ShapedText const> RunCache::find(RunKey const& key) {
  std::scoped_lock const lock(m_mutex);
  if (auto const known = m_younger.find(key); known != m_younger.end()) return known->second->m_text;
  auto const known = m_older.find(key);
  if (known == m_older.end()) return nullptr;
  std::shared_ptr<ShapedText const> text = known->second->m_text;
  m_olderBytes -= countBytes(*known->second);
  auto node = m_older.extract(known);
  keep(std::move(node.mapped()), node.key());
  return text;
}

void RunCache::store(RunKey const& key, std::shared_ptr<ShapedText const> text) {
  auto entry = std::make_unique<Entry const>(Entry{std::u32string(key.m_text), std::move(text)});
  std::scoped_lock const lock(m_mutex);
  if (countBytes(*entry) > m_generationBytes) return;
  keep(std::move(entry), key);
}

void RunCache::keep(std::unique_ptr<Entry const> entry, RunKey key) {
  std::size_t const bytes = countBytes(*entry);
  if (m_youngerBytes + bytes > m_generationBytes) {
    m_older = std::exchange(m_younger, {});
    m_olderBytes = std::exchange(m_youngerBytes, 0);
  }
  key.m_text = entry->m_characters;
  if (m_younger.try_emplace(key, std::move(entry)).second) m_youngerBytes += bytes;
}

std::size_t RunCache::countBytes() const {
  std::scoped_lock const lock(m_mutex);
  return m_youngerBytes + m_olderBytes;
}

std::size_t RunCache::countBytes(Entry const& entry) {
  return sizeof(Generation::value_type) + sizeof(Entry) + entry.m_characters.size() * sizeof(char32_t) +
         qv::text::countBytes(*entry.m_text);
}

}  // namespace qv::text
