#include "work/modelSpool.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <system_error>

#include "files/temporaryFile.h"
#include "files/wholeIo.h"

namespace qvToolkit {

namespace {

Finding makeProblem(int error) {
  return makeFinding(FindingCode::OutputFailed,
                     "cannot keep the migrated model: " + std::generic_category().message(error));
}

}  // namespace

ModelSpool::ModelSpool(std::uint64_t most) : m_most(most), m_file(openTemporaryFile()) {
  if (!m_file.isOpen()) m_problem = makeProblem(errno);
}

bool ModelSpool::write(std::string_view bytes) {
  if (m_problem.has_value() || !m_excess.empty()) return false;
  if (bytes.size() > m_most - m_size) {
    m_excess = bytes;
    return false;
  }
  m_size += bytes.size();
  if (!writeAll(m_file.get(), bytes)) m_problem = makeProblem(errno);
  return !m_problem.has_value();
}

bool ModelSpool::copyTo(OutputSink& sink) {
  bool isTaken = true;
  auto const copy = [&](std::string_view piece) { return isTaken = sink.write(piece); };
  bool const isRead = lseek(m_file.get(), 0, SEEK_SET) == 0 && readPieces(m_file.get(), copy);
  if (!isRead) m_problem = makeProblem(errno);
  return isRead && isTaken && sink.write(m_excess);
}

}  // namespace qvToolkit
