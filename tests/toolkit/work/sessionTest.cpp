#include <memory>

#include "annotationLegacy/library.h"
#include "annotationLegacy/qvAnnotationMetaData.h"
#include "qvAnnotation/fontOptions.h"
#include "tests/support/streamTest.h"
#include "tests/support/temporaryFolder.h"

namespace qvStreamTest {

namespace {

using qv::qvRttiInterface;

constexpr char const* EntryPointName = "qvCore.qvAnnotationMetadata";
constexpr char const* RecordName = "qvCore.qvAnnotationMetaData";

void writeRecord(qv::qvLogType type, std::string text) {
  qv::qvLog::LogEntry entry;
  entry.m_type = type;
  entry.m_text = std::move(text);
  qv::qvLog* const log = qv::qvLog::msInstance;
  if (log->IsTypeEnabled(type)) log->Write(entry, true);
}

TEST(Session, RegistersBothSpellingsOfTheMetadataType) {
  {
    Session const session;
    EXPECT_NE(qvRttiInterface::FindFactoryFunction(EntryPointName), nullptr);
    EXPECT_NE(qvRttiInterface::FindFactoryFunction(RecordName), nullptr);
  }
  EXPECT_EQ(qvRttiInterface::FindFactoryFunction(EntryPointName), nullptr);
  EXPECT_EQ(qvRttiInterface::FindFactoryFunction(RecordName), nullptr);
}

TEST(Session, OfTheLibraryAloneRegistersOnlyOneSpelling) {
  qv::initializeQvAnnotationLegacyLibrary();
  EXPECT_NE(qvRttiInterface::FindFactoryFunction(EntryPointName), nullptr);
  EXPECT_EQ(qvRttiInterface::FindFactoryFunction(RecordName), nullptr);
  qv::terminateQvAnnotationLegacyLibrary();
}

TEST(Session, MayOverlapWithAnother) {
  auto first = std::make_unique<Session>();
  auto second = std::make_unique<Session>();
  first.reset();
  EXPECT_NE(qvRttiInterface::FindFactoryFunction(RecordName), nullptr);
  second.reset();
  EXPECT_EQ(qvRttiInterface::FindFactoryFunction(RecordName), nullptr);
}

TEST(Session, HasFontsAndLogOfTheOneThatWasBegunLast) {
  qv::qvLog* const before = qv::qvLog::msInstance;
  SessionOptions first;
  first.m_fonts.m_replacements = {{"Old", "New"}};
  std::vector<std::string> records;
  first.m_log = [&records](qv::qvLog::LogEntry const& record) {
    records.push_back(record.m_prefix + record.m_text);
  };
  SessionOptions second;
  second.m_fonts.m_directories = {"fonts"};
  auto outer = std::make_unique<Session>(first);
  auto inner = std::make_unique<Session>(second);
  EXPECT_EQ(qv::text::getFontOptions().m_directories, second.m_fonts.m_directories);
  writeRecord(qv::qvLogError, "told");
  writeRecord(qv::qvLogDebug, "not told");
  outer.reset();
  EXPECT_EQ(qv::text::getFontOptions().m_directories, second.m_fonts.m_directories);
  EXPECT_EQ(qv::qvLog::msInstance, before);
  inner.reset();
  EXPECT_TRUE(qv::text::getFontOptions().m_directories.empty());
  EXPECT_EQ(records, std::vector<std::string>{"error: told"});
}

TEST(Session, GivesBackTheOuterFontsWhenTheInnerOneEnds) {
  SessionOptions options;
  options.m_fonts.m_directories = {"fonts"};
  Session const outer(options);
  { Session const inner; }
  EXPECT_EQ(qv::text::getFontOptions().m_directories, options.m_fonts.m_directories);
}

TEST(Session, AnswersFromItsFolderOfImages) {
  qvTest::TemporaryFolder const folder;
  folder.writeFile("logo.png", "logo");
  SessionOptions options;
  options.m_rasterFolder = folder.getPath();
  Session const session(options);
  EXPECT_EQ(session.findProblem(), std::nullopt);
  EXPECT_EQ(session.getRasters()("logo").m_image->getBytes(), "logo");
  EXPECT_FALSE(Session().getRasters());
}

TEST(Session, TellsWhichFolderCannotBeUsed) {
  SessionOptions options;
  options.m_rasterFolder = "/nowhere/at/all";
  EXPECT_EQ(Session(options).findProblem(),
            (SessionProblem{"cannot use the folder of images '/nowhere/at/all': No such file or directory",
                            OptionKey::Rasters}));
  qvTest::TemporaryFolder const folder;
  options.m_rasterFolder = folder.getPath();
  options.m_fonts.m_directories = {folder.getPath(), folder.getPath("none")};
  EXPECT_EQ(Session(options).findProblem(),
            (SessionProblem{
                "cannot use the folder of fonts '" + folder.getPath("none") + "': No such file or directory",
                OptionKey::FontFolder}));
}

}  // namespace

}  // namespace qvStreamTest
