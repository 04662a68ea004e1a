#include "qvSystem/qvFileStream.h"
#include "tests/support/temporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace {

class FileStream : public ::testing::Test {
 protected:
  std::string fileOf(std::string const& content) { return m_folder.writeFile("file", content); }

  qvTest::TemporaryFolder m_folder;
};

TEST_F(FileStream, ReadsTheWholeFile) {
  std::string content(200001, 'x');
  content.back() = 'y';
  qv::qvFileStream in(fileOf(content), 0x60016, 1U << 20);
  EXPECT_EQ(in.GetProblem(), "");
  EXPECT_EQ(in.GetVersion(), 0x60016U);
  EXPECT_EQ(in.GetBytesLeft(), content.size());
  std::string read(content.size(), ' ');
  EXPECT_EQ(in.ReadRaw(read.size(), read.data()), content.size());
  EXPECT_EQ(read, content);
}

TEST_F(FileStream, AnEmptyFileIsAnEmptyStreamWithoutError) {
  qv::qvFileStream in(fileOf(""), 0, 100);
  EXPECT_FALSE(in.hasStreamError());
  EXPECT_EQ(in.GetBytesLeft(), 0U);
}

TEST_F(FileStream, KeepsItsBytesWhenTheFileShrinks) {
  auto const path = fileOf("abcd");
  qv::qvFileStream in(path, 0, 100);
  std::filesystem::resize_file(path, 0);
  std::uint32_t value = 0;
  in.readle(4, 1, &value);
  EXPECT_EQ(value, 0x64636261U);
}

TEST_F(FileStream, AFileOfExactlyTheCapIsReadAndALargerOneRefused) {
  auto const path = fileOf("12345");
  EXPECT_EQ(qv::qvFileStream(path, 0, 5).GetBytesLeft(), 5U);
  qv::qvFileStream const refused(path, 0, 4);
  EXPECT_EQ(refused.GetProblem(), "larger than 4 bytes");
  EXPECT_TRUE(refused.hasStreamError());
  EXPECT_EQ(refused.GetBytesLeft(), 0U);
}

TEST_F(FileStream, TellsWhyAFileCannotBeRead) {
  qv::qvFileStream const missing(m_folder.getPath("missing"), 0, 100);
  EXPECT_EQ(missing.GetProblem(), "No such file or directory");
  EXPECT_TRUE(missing.hasStreamError());
  qv::qvFileStream const folder(m_folder.getPath(), 0, 100);
  EXPECT_EQ(folder.GetProblem(), "Is a directory");
  EXPECT_TRUE(folder.hasStreamError());
}

}  // namespace
