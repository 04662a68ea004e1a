#pragma once

#include <gtest/gtest.h>
#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <map>

#include "qvToolkit/json/jsonWriter.h"
#include "qvToolkit/outcome/outcomeJson.h"
#include "qvToolkit/work/pool.h"
#include "tests/support/temporaryFolder.h"

namespace qvToolkit {

/// What the processes of a run tell each other.
struct Shared {
  pid_t m_program = 0;
  int m_launches = 0;
  pid_t m_last = 0;
};

/// What a run showed, and which files it made.
struct Shown {
  bool m_isDone = false;
  std::vector<std::string> m_shown;  ///< in the order of showing
  std::vector<Findings> m_findings;
  std::map<std::string, std::string> m_files;
  bool operator==(Shown const& other) const {
    return m_isDone == other.m_isDone && m_shown == other.m_shown && m_files == other.m_files;
  }
};

/// Runs of a pool on documents of their own.
class PoolTest : public testing::Test {
 protected:
  PoolTest()
      : m_shared(static_cast<Shared*>(
            mmap(nullptr, sizeof(Shared), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0))) {
    m_request.m_action = Action::Migrate;
    m_options.m_outputFolder = m_folder.getPath("out");
  }
  ~PoolTest() override { munmap(m_shared, sizeof(Shared)); }

  static std::string makeView(std::size_t number) {
    return R"({"ver":"6.22","name":"view )" + std::to_string(number) +
           R"(","annotations":[{"type":"text","name":"a","lines":[[{"text":"hello"}]]}]})";
  }
  /// A document of one view, or more; its size is that of no other one.
  void addInput(std::size_t views = 1) {
    std::size_t const number = m_inputs.size();
    std::string text = "[" + makeView(number);
    for (std::size_t i = 1; i < views; ++i) text += "," + makeView(number);
    addFile(text + "]" + std::string(number, ' '));
  }
  void addFile(std::string const& content) {
    std::string const name = "doc" + std::to_string(m_inputs.size());
    m_sizes.push_back(content.size());
    m_inputs.push_back({m_folder.writeFile(name, content), name, name});
  }
  void addInputs(std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) addInput(1 + i % 3);
  }

  /// What the process of an input does once its bytes are there, by the input's index.
  void behave(std::function<void(std::size_t)> const& behaviour) {
    m_options.m_hooks.m_makeMemory = [this, behaviour](Limits const&) {
      m_shared->m_program = getpid();
      ++m_shared->m_launches;
      MemoryHooks hooks;
      hooks.m_onInput = [this, behaviour](std::uint64_t size) {
        auto const found = std::ranges::find(m_sizes, size);
        behaviour(static_cast<std::size_t>(found - m_sizes.begin()));
      };
      return hooks;
    };
  }

  Shown run(std::function<bool(PoolResult const&)> const& watch = nullptr) {
    Shown run;
    run.m_isDone = runPool(m_request, m_inputs, m_options, [&](PoolResult const& result) {
      EXPECT_EQ(result.m_index, run.m_shown.size()) << "in the order of the inputs";
      run.m_shown.push_back(describe(result));
      run.m_findings.push_back(result.m_outcome.m_findings);
      return !watch || watch(result);
    });
    collectFiles(run);
    return run;
  }
  static std::string describe(PoolResult const& result) {
    JsonWriter json;
    writeOutcome(json, result.m_outcome);
    std::string text = json.takeText() + result.m_messages + (result.m_hasDied ? "died" : "lived");
    EXPECT_TRUE(result.forEachText([&text](std::string_view piece) {
      text += piece;
      return true;
    }));
    return text;
  }
  void collectFiles(Shown& run) const {
    if (!std::filesystem::exists(m_options.m_outputFolder)) return;
    for (auto const& entry : std::filesystem::directory_iterator(m_options.m_outputFolder))
      run.m_files[entry.path().filename()] = qvTest::readFile(entry.path());
    std::filesystem::remove_all(m_options.m_outputFolder);
  }
  std::vector<std::size_t> listDead(Shown const& run, FindingCode code = FindingCode::WorkerKilled) const {
    std::vector<std::size_t> dead;
    for (std::size_t i = 0; i < run.m_findings.size(); ++i) {
      bool const isDead = !run.m_findings[i].empty() && run.m_findings[i].back().m_code == code;
      bool const hasFiles = run.m_files.contains("doc" + std::to_string(i) + ".migrated.json");
      EXPECT_NE(isDead, hasFiles) << i << ": all of an input, or none";
      if (isDead) dead.push_back(i);
    }
    return dead;
  }
  /// Of all inputs, which none is missing of.
  void expectAllDone(Shown const& run) const {
    EXPECT_TRUE(run.m_isDone);
    EXPECT_EQ(run.m_shown.size(), m_inputs.size());
    EXPECT_TRUE(listDead(run).empty());
  }

  qvTest::TemporaryFolder m_folder;
  Request m_request;
  std::vector<PoolInput> m_inputs;
  std::vector<std::uint64_t> m_sizes;
  PoolOptions m_options;
  Shared* m_shared;
};

}  // namespace qvToolkit
