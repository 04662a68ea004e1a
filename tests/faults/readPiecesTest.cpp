#include <gtest/gtest.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <limits>

#include "documentSteps.h"
#include "exampleDocuments.h"
#include "qvToolkit/reading/openDocument.h"
#include "qvToolkit/work/session.h"

/// Files whose reads deliver few bytes at a time, or are interrupted. This executable's own `read` stands in
/// for the system's.

namespace {

constexpr std::size_t Unlimited = std::numeric_limits<std::size_t>::max();

std::size_t bytesPerRead = Unlimited;
/// Each second read is interrupted before it delivers anything.
bool areReadsInterrupted = false;
std::size_t reads = 0;

}  // namespace

extern "C" __attribute__((visibility("default"))) ssize_t read(int file, void* bytes, std::size_t count) {
  if (++reads % 2 == 0 && areReadsInterrupted) {
    errno = EINTR;
    return -1;
  }
  return syscall(SYS_read, file, bytes, std::min(count, bytesPerRead));
}

namespace qvFaults {

namespace {

class ReadsInPieces : public testing::Test {
 protected:
  void TearDown() override {
    bytesPerRead = Unlimited;
    areReadsInterrupted = false;
  }

  static std::string getPath(std::string const& name) {
    return std::string(QVA_EXAMPLES) + (name.ends_with(".qvs") ? "/binary/" : "/") + name;
  }
  static void expectSameDocuments() {
    for (Example const& example : readExamples("6.27.qvs")) expectSameDocument(example);
    for (Example const& example : readExamples("6.27.json")) expectSameDocument(example);
  }
  static void expectSameDocument(Example const& example) {
    std::string const path = getPath(example.m_name);
    std::size_t const readsBefore = reads;
    qvToolkit::Document const document = qvToolkit::openDocument(path);
    EXPECT_GT(reads - readsBefore, example.m_bytes.size() / bytesPerRead) << "no read was short";
    EXPECT_EQ(describe(document), describe(qvToolkit::readDocument(example.m_bytes, path))) << example.m_name;
  }

  qvToolkit::Session const m_session;
};

TEST_F(ReadsInPieces, OfAnySizeGiveTheSameDocument) {
  for (std::size_t size = 1; size <= 64; ++size) {
    bytesPerRead = size;
    expectSameDocuments();
  }
  for (std::size_t const size : {127U, 128U, 1000U, 4095U, 4096U, 4097U, 65535U, 65536U}) {
    bytesPerRead = size;
    expectSameDocuments();
  }
}

TEST_F(ReadsInPieces, ThatAreInterruptedGiveTheSameDocument) {
  areReadsInterrupted = true;
  for (std::size_t const size : {1U, 100U, 65536U}) {
    bytesPerRead = size;
    expectSameDocuments();
  }
}

TEST_F(ReadsInPieces, OfAnImageGiveTheSamePage) {
  Example const example = readExamples("image_sheet_6.27.qvs").front();
  qvToolkit::Document const document = qvToolkit::readDocument(example.m_bytes, example.m_name);
  std::string const expected = migrate(document, getRasterFolder()).m_text;
  areReadsInterrupted = true;
  for (std::size_t const size : {1U, 7U, 4096U}) {
    bytesPerRead = size;
    EXPECT_EQ(migrate(document, getRasterFolder()).m_text, expected) << size;
  }
}

}  // namespace

}  // namespace qvFaults
