#pragma once

#include <cstdint>
#include <string>

#include "files/fileDescriptor.h"

namespace qvToolkit {

/// A folder within an output folder for what is not complete yet: on the same file system, under a name that
/// tells whose it is, and locked for as long as its owner lives. Removed with the object and all it holds.
class StagingFolder {
 public:
  StagingFolder() = default;  ///< none yet
  ~StagingFolder() { remove(); }
  StagingFolder(StagingFolder const&) = delete;
  StagingFolder& operator=(StagingFolder const&) = delete;

  /// Makes it in the output folder, of which it keeps no descriptor. False with errno set when it cannot.
  [[nodiscard]] bool make(int outputFolder);
  /// Removes it; whoever writes into it must have ended.
  void remove();

  bool isMade() const noexcept { return m_folder.isOpen(); }
  int get() const noexcept { return m_folder.get(); }

  /// A folder of its own in it for one input. Not open, with errno set, when it cannot be made.
  FileDescriptor makePlace(std::string const& name) const;
  /// Removes that folder with what is left in it.
  void removePlace(std::string const& name) const;

 private:
  FileDescriptor m_parent;
  FileDescriptor m_folder;
  FileDescriptor m_lock;
  std::string m_name;
};

/// Removes the staging folders in a folder whose owners are dead, by what their names and locks tell: those
/// of this host when the host was started anew since, or the process is there no more; those of other hosts
/// when nothing in them has changed for a day. What is locked stays in any case, and what cannot be removed
/// stays without a word.
void removeAbandoned(int outputFolder);

}  // namespace qvToolkit
