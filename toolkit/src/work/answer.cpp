#include "work/answer.h"

#include <unistd.h>

#include <cstddef>
#include <optional>

#include "files/wholeIo.h"
#include "work/frame.h"

namespace qvToolkit {

namespace {

constexpr std::size_t PieceBytes = std::size_t{1} << 16;

constexpr std::uint32_t TextKind = static_cast<std::uint32_t>(FrameKind::Text);
constexpr std::uint32_t OutcomeKind = static_cast<std::uint32_t>(FrameKind::Outcome);

/// The head of the frame at `place`; nothing when no whole frame is there.
std::optional<FrameHead> readHead(Spool const& spool, std::uint64_t place, std::uint64_t size) {
  std::string const bytes = spool.read(place, FrameHeadBytes);
  if (bytes.size() < FrameHeadBytes) return std::nullopt;
  FrameHead const head = parseFrameHead(bytes);
  if (head.m_bytes > MaxFrameBytes || head.m_bytes > size - place - FrameHeadBytes) return std::nullopt;
  return head;
}

}  // namespace

bool AnswerWriter::write(std::string_view text) {
  m_text += text;
  return m_text.size() < PieceBytes || flush();
}

void AnswerWriter::withdraw() {
  m_text.clear();
  // What cannot be taken back is followed by no outcome then.
  if (ftruncate(m_file, 0) != 0 || lseek(m_file, 0, SEEK_SET) != 0) m_file = -1;
}

bool AnswerWriter::conclude(std::string_view outcome) {
  return flush() && writeFrame(OutcomeKind, outcome);
}

bool AnswerWriter::flush() {
  for (std::string_view left = m_text; !left.empty(); left.remove_prefix(std::min(left.size(), PieceBytes))) {
    if (!writeFrame(TextKind, left.substr(0, PieceBytes))) return false;
  }
  m_text.clear();
  return true;
}

bool AnswerWriter::writeFrame(std::uint32_t kind, std::string_view bytes) {
  return writeAll(m_file, formatFrameHead({kind, 0, static_cast<std::uint32_t>(bytes.size())})) &&
         writeAll(m_file, bytes);
}

AnswerReader::AnswerReader(Spool const& spool) : m_spool(spool) {
  std::uint64_t const size = spool.getSize();
  while (auto const head = readHead(spool, m_textEnd, size)) {
    std::uint64_t const end = m_textEnd + FrameHeadBytes + head->m_bytes;
    if (head->m_kind == OutcomeKind && end == size) {
      m_outcome = spool.read(m_textEnd + FrameHeadBytes, head->m_bytes);
      m_isWhole = m_outcome.size() == head->m_bytes;
    }
    if (head->m_kind != TextKind) return;
    m_textEnd = end;
  }
}

bool AnswerReader::forEachText(std::function<bool(std::string_view)> const& take) const {
  for (std::uint64_t place = 0; place < m_textEnd;) {
    auto const head = readHead(m_spool, place, m_textEnd);
    if (!head.has_value()) return false;
    std::string const text = m_spool.read(place + FrameHeadBytes, head->m_bytes);
    if (text.size() < head->m_bytes) return false;
    if (!take(text)) return true;
    place += FrameHeadBytes + head->m_bytes;
  }
  return true;
}

}  // namespace qvToolkit
