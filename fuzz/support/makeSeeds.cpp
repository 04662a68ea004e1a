/// Makes the inputs that fuzzing starts from, out of the examples: qva_fuzz_seeds EXAMPLES FOLDER.

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <string_view>

#include "qvSystem/qvStreamReader.h"
#include "qvToolkit/reading/openDocument.h"
#include "qvToolkit/stream/streamEncoder.h"
#include "qvToolkit/work/session.h"

namespace {

namespace fs = std::filesystem;

/// Behind each input: no allocation fails.
constexpr std::string_view NoFaults("\0\0\0", 3);

class SeedWriter {
 public:
  explicit SeedWriter(fs::path folder) : m_folder(std::move(folder)) {}

  void add(std::string const& target, std::string const& name, std::string_view bytes) const {
    fs::create_directories(m_folder / target);
    std::ofstream file(m_folder / target / name, std::ios::binary);
    file << bytes << NoFaults;
  }

 private:
  fs::path m_folder;
};

std::string readFile(fs::path const& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

/// The views of a document, each with the bytes that tell the record target what they are.
void addRecords(SeedWriter const& seeds, std::string const& name, std::string const& bytes) {
  constexpr std::uint32_t FirstVersion = 0x6000C;
  auto const loaded = qv::LoadObjectStream(std::as_bytes(std::span(bytes)));
  for (qv::qvLoadedObject const& object : loaded.m_objects) {
    char const version = static_cast<char>(loaded.m_version - FirstVersion);
    char const record = object.m_typeName.find("View") == std::string::npos ? '\x05' : '\0';
    std::string const payload = bytes.substr(object.m_offset, object.m_size);
    seeds.add("annotationRecord", name + "_" + std::to_string(object.m_id),
              std::string{version, record} + payload);
  }
}

void addExample(SeedWriter const& seeds, fs::path const& path) {
  std::string const content = readFile(path);
  std::string const name = path.stem().string();
  bool const isJson = path.extension() == ".json";
  seeds.add(isJson ? "variantView" : "objectStream", name, content);
  qvToolkit::Document const document = qvToolkit::readDocument(content, name);
  for (std::uint32_t version = qvToolkit::getOldestWritableVersion();
       version <= qvToolkit::getNewestWritableVersion(); ++version) {
    std::string const bytes = qvToolkit::encodeDocument(document, {version, false}).m_bytes;
    std::string const place = name + "_" + std::to_string(version & 0xFFU);
    if (isJson) seeds.add("objectStream", place, bytes);
    addRecords(seeds, place, bytes);
  }
}

/// Inputs of the targets that make models out of them have no form of their own.
void addNoise(SeedWriter const& seeds) {
  constexpr unsigned Count = 40;
  std::mt19937 random(1);
  for (unsigned i = 0; i < Count; ++i) {
    std::string bytes(std::size_t{64} << (i % 5), '\0');
    for (char& c : bytes) c = static_cast<char>(random());
    for (char const* target : {"migration", "transform", "variantFields", "variantMap", "writers"}) {
      seeds.add(target, "noise" + std::to_string(i), bytes);
    }
  }
}

void addMaps(SeedWriter const& seeds) {
  seeds.add("variantMap", "empty", std::string_view("\0\0\0\0", 4));
  seeds.add("variantMap", "scalars",
            std::string_view("\5\0\0\0\1\0\0\0a\1\7\0\0\0\0\0\0\0\1\0\0\0b\2\0\0\0\0\0\0\xF0\x3F"
                             "\1\0\0\0c\3\2\0\0\0hi\1\0\0\0d\4\1\1\0\0\0e\0",
                             52));
  seeds.add("variantMap", "nested",
            std::string_view("\1\0\0\0\1\0\0\0m\xA\1\0\0\0\1\0\0\0l\xB\2\0\0\0\0\xB\0\0\0\0", 30));
}

void addCommandLines(SeedWriter const& seeds) {
  constexpr std::string_view Lines[] = {
      "--help",
      "--version",
      "inspect\na.json\nb.qvs\n--json\n--full\n--strict",
      "migrate\na.json\n-o\nout\n--force\n--strict",
      "migrate\na.json\n-o\nout\n--head-size\n2.5\n--text\noutline\n--format\npng",
      "encode\na.json\n-o\nb.qvs\n--stream-version\n6.22\n--views-only\n--force",
      "transform\na.json\n-o\nb.qvs\n--translate\n1\n2\n3",
      "transform\na.json\n-o\nb.qvs\n--rotate\nz\n90\n--stream-version\n6.27",
      "transform\na.json\n-o\nb.qvs\n--matrix\n1\n0\n0\n5\n0\n1\n0\n6\n0\n0\n1\n7",
      "transform\na.json\n-o\nb.qvs\n--scale\n2",
      "dump\nb.qvs\n--at\n0x120",
      "fonts\na.json\n--json",
      "explain\nfont.none\n--markdown",
      "help\nmigrate",
      "help\n--manual",
      "version",
      "completion\nfish",
      "migrte\na.json\n--forse",
      "inspect",
      "",
  };
  std::size_t index = 0;
  for (std::string_view const line : Lines) seeds.add("commandLine", std::to_string(index++), line);
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 3) {
    std::fputs("usage: qva_fuzz_seeds EXAMPLES FOLDER\n", stderr);
    return 2;
  }
  qvToolkit::Session const session;
  SeedWriter const seeds{fs::path(arguments[2])};
  for (auto const& entry : fs::recursive_directory_iterator(arguments[1])) {
    auto const extension = entry.path().extension();
    if (extension == ".json" || extension == ".qvs") addExample(seeds, entry.path());
  }
  addNoise(seeds);
  addMaps(seeds);
  addCommandLines(seeds);
}
