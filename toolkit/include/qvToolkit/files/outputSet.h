#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "qvToolkit/export.h"
#include "qvToolkit/files/fileIdentities.h"
#include "qvToolkit/files/outputFile.h"
#include "qvToolkit/files/outputSink.h"
#include "qvToolkit/findings/finding.h"

namespace qvToolkit {

/// The output files of one document in one folder: all of them appear, or none.
/// @code
/// OutputSet files("out", /*force*/ false);
/// bool const isWritten = files.open("a.txt") && files.write("one") && files.open("b.txt") &&
///                        files.write("two") && files.commit();
/// if (!isWritten) std::cerr << files.getProblem().m_text << '\n';
/// @endcode
/// Each file is written in a hidden folder within the folder; `commit` synchronises all of them and gives
/// them their names. Without `force` no existing file is replaced; an input is never replaced. What was not
/// committed is removed with the object. After the first problem every call answers false.
///
/// With `force` a failure in the middle of `commit` leaves the files that were replaced before it.
class QVT_EXPORT OutputSet : public OutputSink {
 public:
  /// `folder` is created with its parents when the first file is opened. An interrupted set fails with a
  /// problem: `interrupted`, which may be null and is not owned, is looked at with each write; a value other
  /// than 0 interrupts.
  OutputSet(std::string folder, bool force, volatile int const* interrupted = nullptr);
  ~OutputSet() override;
  OutputSet(OutputSet const&) = delete;
  OutputSet& operator=(OutputSet const&) = delete;

  /// From here on one file may have at most `fileBytes`, all of them together at most `allBytes`; at first
  /// nothing is limited. What is larger is a problem, `FindingCode::LimitOutput`, and nothing is written.
  void limit(std::uint64_t allBytes, std::uint64_t fileBytes);
  /// From here on none of these files is replaced; they must outlive the set.
  void protect(FileIdentities const& files);

  /// Begins the next file, ending the one before; `name` is a plain file name. Fails when a file of that name
  /// exists and may not be replaced.
  [[nodiscard]] bool open(std::string const& name);
  /// Appends to the file that was opened last; there must be one.
  [[nodiscard]] bool write(std::string_view bytes) override;
  /// Ends the last file and gives all files their names, which lets them appear. The last call to a set.
  [[nodiscard]] bool commit();

  /// Why calls answer false; valid once one did.
  Finding const& getProblem() const noexcept { return m_problem; }
  /// The paths of the files, in the order of `open`, whether they are committed or not.
  std::vector<std::string> getPaths() const;
  /// The files themselves, with sizes and hashes once they are committed.
  std::vector<OutputFile> const& getFiles() const noexcept;

 private:
  class Parts;
  bool fail(Finding problem);
  bool isInterrupted();

  std::unique_ptr<Parts> m_parts;
  volatile int const* m_interrupted;
  bool m_hasFailed = false;
  Finding m_problem;
};

/// Removes from an output folder what runs have left that were killed: those of this host whose process is
/// there no more, and those of other hosts that nobody has touched for a day. What a living process writes
/// there stays. What cannot be removed stays, too, without a word.
QVT_EXPORT void removeAbandonedOutputs(std::string const& folder);

/// A file name made of the last part of an input's path without its extension. What is no letter or digit of
/// ASCII, dot, dash or "_" becomes "_", so does a leading dot or dash; at most 150 bytes. "-" gives "stdin",
/// a path without a last part "document".
/// @code
/// assert(makeStem("parts/bracket 7.json") == "bracket_7");
/// assert(makeStems({"a/plate.qvs", "b/Plate.qvs"})[1] == "Plate-2");
/// assert(getPageName("plate", 3) == "plate.view-0003.svg");
/// @endcode
QVT_EXPORT std::string makeStem(std::string const& inputPath);

/// Stems for several inputs: those that would collide, letters of either case counting as equal, get "-2",
/// "-3" and so on in the order of the inputs.
QVT_EXPORT std::vector<std::string> makeStems(std::vector<std::string> const& inputPaths);

/// The name of a view's page: "STEM.view-0003.svg", with "svg" as the extension. Indices beyond 9999 have
/// more digits.
QVT_EXPORT std::string getPageName(std::string const& stem, std::size_t viewIndex,
                                   std::string_view extension = "svg");
/// The name of a document's migrated model: "STEM.migrated.json".
QVT_EXPORT std::string getModelName(std::string const& stem);

}  // namespace qvToolkit
