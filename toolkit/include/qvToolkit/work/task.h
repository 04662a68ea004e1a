#pragma once

#include <string>

namespace qvToolkit {

/// One input of a run, open, and what its results are called.
/// @code
/// std::FILE* const file = std::fopen("bracket.json", "r");
/// Task task;
/// task.m_givenPath = task.m_path = "bracket.json";
/// task.m_stem = makeStem(task.m_path);
/// task.m_input = fileno(file);  // to be closed by who has opened it
/// assert(task.m_stem == "bracket");
/// @endcode
struct Task {
  std::string m_givenPath;  ///< as it was given; raw bytes, for texts that people read
  std::string m_path;       ///< relative to the root of the run, as `Source::m_path`
  /// What the names of its files begin with; of `Action::Encode` and `Action::Transform` the whole name.
  std::string m_stem;
  int m_input = -1;  ///< a descriptor that is open for reading, at the input's begin; not owned
};

}  // namespace qvToolkit
