#include "reading/cutTexts.h"

#include <algorithm>

#include "qvToolkit/reading/streamFields.h"
#include "rules/gates.h"
#include "rules/values.h"

namespace qvToolkit {

namespace {

bool isRunText(StreamField const& field) {
  return field.m_state == StreamField::State::Present && field.m_path.ends_with("].text") &&
         field.m_path.find(".run[") != std::string::npos;
}

std::size_t countKept(std::string_view text) {
  return std::min({text.size(), text.find('\0'), qvLegacy::rules::longestRun});
}

}  // namespace

CutTexts findCutTexts(std::string_view bytes, std::uint32_t version) {
  CutTexts cut;
  if (qvLegacy::rules::reaches(version, qvLegacy::rules::Since::segmentTypes)) return cut;
  walkObjectStream(bytes, [&](StreamField const& field) {
    if (!isRunText(field)) return;
    std::string_view const text = bytes.substr(field.m_offset, field.m_size);
    std::size_t const kept = countKept(text);
    if (text.find_first_not_of('\0', kept) == std::string_view::npos) return;
    if (cut.m_texts.size() < CutTexts::MaxListed) {
      cut.m_texts.push_back({field.m_offset, field.m_path, text.size(), kept});
    } else {
      ++cut.m_more;
    }
  });
  return cut;
}

}  // namespace qvToolkit
