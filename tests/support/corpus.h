#pragma once

#include <cstdlib>
#include <filesystem>

/// Documents that live outside the checkout. Tests over them skip themselves where the environment names no
/// folder; a folder that is named but holds no documents is a failure.
namespace qvTest {

constexpr char const* NoCorpus = "QVA_CORPUS names no folder of documents";

/// The folder: documents, and `expected.jsonl`, which says what an independent checker found in them. Empty
/// when none is named.
inline std::filesystem::path findCorpus() {
  char const* const folder = std::getenv("QVA_CORPUS");
  return folder != nullptr ? folder : "";
}

}  // namespace qvTest
