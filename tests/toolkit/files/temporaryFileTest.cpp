#include "files/temporaryFile.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstdlib>
#include <string>

#include "files/spool.h"
#include "files/wholeIo.h"

namespace {

using namespace qvToolkit;

nlink_t countNames(int file) {
  struct stat status {};
  EXPECT_EQ(fstat(file, &status), 0);
  return status.st_nlink;
}

TEST(TemporaryFile, NeverHasAName) {
  FileDescriptor const file = openTemporaryFile();
  ASSERT_TRUE(file.isOpen());
  EXPECT_EQ(countNames(file.get()), 0U);
}

TEST(TemporaryFile, LiesInMemoryWhereTheFolderForThemIsNone) {
  setenv("TMPDIR", "/no/such/folder", 1);
  Spool const spool;
  unsetenv("TMPDIR");
  ASSERT_TRUE(writeAll(spool.getDescriptor(), "some text"));
  EXPECT_EQ(spool.getSize(), 9U);
  EXPECT_EQ(spool.read(5, 100), "text");
}

TEST(TemporaryFile, IsNotInheritedByPrograms) {
  EXPECT_NE(fcntl(openTemporaryFile().get(), F_GETFD) & FD_CLOEXEC, 0);
  EXPECT_NE(fcntl(openMemoryFile().get(), F_GETFD) & FD_CLOEXEC, 0);
}

}  // namespace
