#pragma once

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <new>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "annotationLegacy/qvAnnotationMigration.h"
#include "qvToolkit/work/session.h"

// What an example claims is what its test expects.
#undef assert
#define assert(claim) EXPECT_TRUE(claim)

/// The place where the examples of the public headers run: a folder of their own with the documents that they
/// name. The library is initialised.
class UsageExample : public testing::Test {
 protected:
  UsageExample() {
    namespace fs = std::filesystem;
    fs::path const examples = QVA_EXAMPLES;
    fs::copy_file(examples / "bracket_6.27.json", m_folder / "bracket.json");
    fs::copy_file(examples / "binary" / "bracket_6.27.qvs", m_folder / "bracket.qvs");
    fs::copy_file(examples / "image_sheet_6.27.json", m_folder / "image_sheet.json");
    fs::copy(examples / "rasters", m_folder / "rasters");
    fs::current_path(m_folder);
  }
  ~UsageExample() override {
    std::filesystem::current_path(m_before);
    std::filesystem::remove_all(m_folder);
  }

 private:
  static std::filesystem::path makeFolder() {
    std::string path = (std::filesystem::temp_directory_path() / "usageXXXXXX").string();
    if (mkdtemp(path.data()) == nullptr) std::abort();
    return path;
  }

  std::filesystem::path m_before = std::filesystem::current_path();
  std::filesystem::path m_folder = makeFolder();
  qvToolkit::Session m_session;
};
