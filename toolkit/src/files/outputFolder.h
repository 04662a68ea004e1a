#pragma once

#include <string>
#include <vector>

#include "files/fileDescriptor.h"
#include "qvToolkit/files/fileIdentities.h"
#include "qvToolkit/files/outputFile.h"
#include "qvToolkit/findings/finding.h"

namespace qvToolkit {

/// A folder that complete results get their names in: all those of one document, or none.
class OutputFolder {
 public:
  /// Without `force` no existing file is replaced.
  OutputFolder(std::string path, bool force) : m_path(std::move(path)), m_force(force) {}

  /// Opens the folder, which is created with its parents.
  [[nodiscard]] bool open();
  bool isOpen() const noexcept { return m_folder.isOpen(); }
  int get() const noexcept { return m_folder.get(); }
  std::string const& getPath() const noexcept { return m_path; }
  /// The path of a file in it.
  std::string getPath(std::string const& name) const;

  /// From here on none of these files is replaced; they must outlive this.
  void protect(FileIdentities const& files) { m_protected = &files; }
  /// Whether a file may get that name: there is none of it, or it may be replaced.
  [[nodiscard]] bool mayPlace(std::string const& name);
  /// Synchronises complete files of a staging folder and gives them their names, in order; fills in sizes and
  /// hashes of those of which only the names are known. With `force` a failure in the middle leaves the files
  /// that were replaced before it.
  [[nodiscard]] bool place(int staging, std::vector<OutputFile>& files);

  /// Why the last call answered false.
  Finding const& getProblem() const noexcept { return m_problem; }

 private:
  bool fail(Finding problem);
  bool failByExisting(std::string const& name);
  bool failWithError(char const* action, std::string const& name, int error);
  bool complete(int staging, OutputFile& file);
  bool rename(int staging, std::string const& name);
  void takeBack(std::vector<OutputFile> const& files, std::size_t count) const;

  std::string m_path;
  bool m_force;
  FileDescriptor m_folder;
  FileIdentities const* m_protected = nullptr;
  Finding m_problem;
};

}  // namespace qvToolkit
