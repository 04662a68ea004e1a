#include "qvToolkit/work/libraryVersions.h"

#include <nettle/version.h>
#include <simdjson.h>

#include <initializer_list>

#include "qvAnnotation/textLibraries.h"

namespace qvToolkit {

namespace {

std::string joinNumbers(std::initializer_list<int> numbers) {
  std::string text;
  for (int const number : numbers) text += (text.empty() ? "" : ".") + std::to_string(number);
  return text;
}

}  // namespace

std::vector<LibraryVersion> listLibraryVersions() {
  std::vector<LibraryVersion> versions;
  for (qv::text::TextLibrary& library : qv::text::listTextLibraries())
    versions.push_back({std::string(library.m_name), std::move(library.m_version)});
  // It cannot be asked, but its library's name changes with what it is compiled against.
  versions.push_back(
      {"simdjson", joinNumbers({simdjson::SIMDJSON_VERSION_MAJOR, simdjson::SIMDJSON_VERSION_MINOR,
                                simdjson::SIMDJSON_VERSION_REVISION})});
  versions.push_back({"nettle", joinNumbers({nettle_version_major(), nettle_version_minor()})});
  return versions;
}

}  // namespace qvToolkit
