#include "work/taskOrder.h"

#include <fcntl.h>
#include <gtest/gtest.h>

#include "channel.h"

namespace qvToolkit {

namespace {

class TaskOrderTest : public testing::Test {
 protected:
  /// So many files.
  static std::vector<FileDescriptor> openFiles(std::size_t count) {
    std::vector<FileDescriptor> files;
    for (std::size_t i = 0; i < count; ++i) files.emplace_back(open("/dev/null", O_RDWR | O_CLOEXEC));
    return files;
  }
  static TaskOrder makeOrder(std::vector<FileDescriptor> const& files) {
    TaskOrder order;
    order.m_number = 0xFFFFFFFFFFU;
    order.m_task = {"given/\xff.json", "\xff.json", "stem", files[0].get()};
    order.m_place = "out \"x\"";
    order.m_answer = files[1].get();
    order.m_errors = files[2].get();
    order.m_staging = files.size() > 3 ? files[3].get() : -1;
    return order;
  }
  std::optional<TaskOrder> pass(TaskOrder const& order) {
    EXPECT_TRUE(sendTask(m_channel.m_near.get(), order));
    auto frame = qvTest::receiveFrame(m_reader, m_channel.m_far.get());
    EXPECT_TRUE(frame.has_value());
    m_bytes = frame->m_bytes;
    return takeTask(std::move(*frame));
  }
  static bool isTaken(std::string bytes, std::size_t files) {
    return takeTask({FrameKind::Task, std::move(bytes), openFiles(files)}).has_value();
  }

  qvTest::Channel m_channel;
  FrameReader m_reader;
  std::string m_bytes;
};

TEST_F(TaskOrderTest, ArrivesWithAllThatIsKnownOfTheInput) {
  auto const files = openFiles(4);
  auto const order = pass(makeOrder(files));
  ASSERT_TRUE(order.has_value());
  EXPECT_EQ(order->m_number, 0xFFFFFFFFFFU);
  EXPECT_EQ(order->m_task.m_givenPath, "given/\xff.json");
  EXPECT_EQ(order->m_task.m_path, "\xff.json");
  EXPECT_EQ(order->m_task.m_stem, "stem");
  EXPECT_EQ(order->m_place, "out \"x\"");
  ASSERT_EQ(order->m_owned.size(), 4U);
  for (int const file : {order->m_task.m_input, order->m_answer, order->m_errors, order->m_staging})
    EXPECT_GE(fcntl(file, F_GETFD), 0);
}

TEST_F(TaskOrderTest, NeedsNoFolder) {
  auto const files = openFiles(3);
  auto const order = pass(makeOrder(files));
  ASSERT_TRUE(order.has_value());
  EXPECT_EQ(order->m_staging, -1);
}

TEST_F(TaskOrderTest, OfAnotherNumberOfFilesIsNone) {
  auto const files = openFiles(3);
  ASSERT_TRUE(pass(makeOrder(files)).has_value());
  for (std::size_t count = 0; count <= MaxFrameFiles; ++count)
    EXPECT_EQ(isTaken(m_bytes, count), count == 3 || count == 4) << count;
}

TEST_F(TaskOrderTest, WithoutAMemberOrWithGarbageIsNone) {
  auto const files = openFiles(3);
  ASSERT_TRUE(pass(makeOrder(files)).has_value());
  for (std::string const key : {"task", "givenPath", "path", "stem", "place"}) {
    std::string bytes = m_bytes;
    bytes.replace(bytes.find('"' + key + '"') + 1, 1, "X");
    EXPECT_FALSE(isTaken(bytes, 3)) << key;
  }
  for (std::string const bytes : {"", "{}", "[]", "null", "{\"task\":-1}"})
    EXPECT_FALSE(isTaken(bytes, 3)) << bytes;
}

TEST_F(TaskOrderTest, CutShortIsNone) {
  auto const files = openFiles(3);
  ASSERT_TRUE(pass(makeOrder(files)).has_value());
  // The last byte ends the line.
  for (std::size_t size = 0; size + 1 < m_bytes.size(); ++size)
    EXPECT_FALSE(isTaken(m_bytes.substr(0, size), 3));
}

TEST_F(TaskOrderTest, OfDeepNestingIsNone) {
  EXPECT_FALSE(isTaken(std::string(100'000, '['), 3));
}

TEST_F(TaskOrderTest, CannotBeSentToNobody) {
  auto const files = openFiles(3);
  m_channel.m_far.reset();
  EXPECT_FALSE(sendTask(m_channel.m_near.get(), makeOrder(files)));
}

}  // namespace

}  // namespace qvToolkit
