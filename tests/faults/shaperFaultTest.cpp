#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <iostream>
#include <limits>
#include <new>
#include <string>

#include "documentSteps.h"
#include "qvToolkit/pages/svgPage.h"
#include "qvToolkit/reading/openDocument.h"
#include "qvToolkit/reports/migratedJson.h"
#include "qvToolkit/work/session.h"
#include "shaperMemory.h"
#include "tests/platform/annotation/fontFolders.h"

/// Each allocation within the shaping library fails. It goes on with less then: a table that is not there, a
/// plan that does nothing. No page may be written from that.
namespace qvFaults {

namespace {

using qvToolkit::TextMode;

/// Ligatures, marks, two scripts, a sign of another font, a made-up slant, a sub-annotation.
constexpr char const* Text = R"({"ver":"6.22","name":"v","annotations":[
{"type":"text","name":"a","lines":[[{"text":"office AV\u00e9 e\u0301 \u2300 10"},{"text":"2","type":"sup"}],
[{"text":"\u0633\u0644\u0627\u0645 abc"}]],"leaders":[{"pos":[1,2,0],"head":"arrow"}],
"children":[{"type":"text","anchorloc":"br","lines":[[{"text":"fine","bold":true,"italic":true,"font":"DejaVu Sans"}]]}]}]})";

/// The model and both kinds of pages; `std::bad_alloc` as well for a view that is told not to be migrated.
std::string migrate(qvToolkit::Document const& document) {
  qvToolkit::MigrationSession session({});
  std::vector<qvToolkit::MigratedView> const views = session.migrate(document);
  TextSink sink;
  for (qvToolkit::MigratedView const& view : views) {
    if (view.m_view == nullptr) throw std::bad_alloc();
    for (TextMode const mode : {TextMode::Live, TextMode::Outline}) {
      static_cast<void>(qvToolkit::writeSvgPage(view, sink, mode));
    }
  }
  return sink.m_text + qvToolkit::formatMigratedDocument(document, session, views, {"v.svg"}, {});
}

/// How a process that migrates under a plan ends.
enum Outcome : int { Same, Refused, RefusedForGood, Different, DifferentLater, Untouched };

int judge(qvToolkit::Document const& document, std::string const& expected) {
  try {
    return migrate(document) == expected ? Same : Different;
  } catch (std::bad_alloc const&) {
    return Refused;
  }
}

/// Runs in a process of its own, since the shaping library keeps for good what it could not make.
int runChild(qvToolkit::Document const& document, std::string const& expected, std::uint32_t first,
             std::uint32_t count) {
  ShaperMemory::fail(first, count);
  int const outcome = judge(document, expected);
  if (!ShaperMemory::hasFailed()) return outcome == Same ? Untouched : Different;
  ShaperMemory::heal();
  int const later = judge(document, expected);
  if (outcome != Different && later == Different) return DifferentLater;
  return outcome == Refused && later == Refused ? RefusedForGood : outcome;
}

template <class Run>
int runInChild(Run run) {
  pid_t const child = fork();
  if (child == 0) _exit(run());
  int status = 0;
  if (child < 0 || waitpid(child, &status, 0) != child || !WIFEXITED(status)) return -1;
  return WEXITSTATUS(status);
}

class FailingShaperMemory : public testing::Test {
 protected:
  void SetUp() override {
    if (!ShaperMemory::CanFail) GTEST_SKIP() << "the sanitizer has allocations of its own";
    // The list of fonts is read here, once; no face is.
    ASSERT_TRUE(qv::text::hasFontFamily("DejaVu Sans"));
    m_document = qvToolkit::readDocument(Text, "text.json");
    ASSERT_EQ(m_document.m_views.size(), 1U);
    m_expected = migrateElsewhere();
    ASSERT_NE(m_expected.find("Liberation Sans"), std::string::npos);
    ASSERT_NE(m_expected.find("DejaVu Sans"), std::string::npos);
  }

  /// In another process, so that this one has never shaped.
  std::string migrateElsewhere() const {
    int ends[2];
    if (pipe(ends) != 0) return {};
    pid_t const child = fork();
    if (child == 0) {
      std::string const text = migrate(m_document);
      for (std::size_t done = 0; done < text.size();) {
        ssize_t const written = write(ends[1], text.data() + done, text.size() - done);
        if (written <= 0) break;
        done += static_cast<std::size_t>(written);
      }
      _exit(0);
    }
    close(ends[1]);
    std::string text;
    char piece[4096];
    for (ssize_t got = 0; (got = read(ends[0], piece, sizeof(piece))) > 0;)
      text.append(piece, static_cast<std::size_t>(got));
    close(ends[0]);
    waitpid(child, nullptr, 0);
    return text;
  }

  void sweep(std::uint32_t count) const {
    std::uint32_t counts[Untouched] = {};
    for (std::uint32_t first = 0;; ++first) {
      int const outcome = runInChild([&] { return runChild(m_document, m_expected, first, count); });
      if (outcome == Untouched) break;
      ASSERT_GE(outcome, Same) << "failure " << first << " crashes";
      EXPECT_LT(outcome, Different) << "failure " << first << " passes";
      ++counts[outcome];
    }
    std::cout << counts[Same] << " the same, " << counts[Refused] << " refused, " << counts[RefusedForGood]
              << " refused for good, " << counts[Different] << " different, " << counts[DifferentLater]
              << " different later\n";
    EXPECT_GT(counts[Refused], 0U) << "with memory again, the next migration is as if nothing had been";
  }

  qvToolkit::Session const m_session;
  qv::text::WithFonts const m_fonts{
      qv::text::onlyFontsOf({qv::text::LIBERATION_FOLDER, qv::text::DEJAVU_FOLDER})};
  qvToolkit::Document m_document;
  std::string m_expected;
};

TEST_F(FailingShaperMemory, OnceLeavesNoLetterOut) {
  sweep(1);
}

TEST_F(FailingShaperMemory, FromThenOnLeavesNoLetterOut) {
  sweep(std::numeric_limits<std::uint32_t>::max());
}

}  // namespace

}  // namespace qvFaults
