#include "qvannot/cli/buildText.h"

#include <CLI/Version.hpp>

#include "qvToolkit/work/libraryVersions.h"
#include "qvannot/commit.h"

namespace qvannot {

std::string formatBuild() {
  std::string text = std::string("commit ") + Commit + "\nwith ";
  for (qvToolkit::LibraryVersion const& library : qvToolkit::listLibraryVersions())
    text += library.m_name + ' ' + library.m_version + ", ";
  return text + "CLI11 " CLI11_VERSION "\n";
}

}  // namespace qvannot
