#include "images/documentRasters.h"

namespace qvToolkit {

Raster const& DocumentRasters::ask(std::string const& name) {
  auto answer = m_answers.find(name);
  if (answer == m_answers.end()) answer = m_answers.emplace(name, look(name)).first;
  return answer->second;
}

Raster const* DocumentRasters::findRefusal(std::string const& name) const {
  auto const answer = m_answers.find(name);
  return answer == m_answers.end() || answer->second.m_image != nullptr ? nullptr : &answer->second;
}

Raster DocumentRasters::look(std::string const& name) {
  if (!hasSource()) return {nullptr, "no folder of images was given"};
  Raster raster = m_source(name);
  if (raster.m_image == nullptr) return raster;
  std::uint64_t const size = raster.m_image->getBytes().size();
  if (size > MaxTotalBytes - m_totalBytes)
    return {nullptr, "the images of one document may have 512 MiB together"};
  m_totalBytes += size;
  return raster;
}

}  // namespace qvToolkit
