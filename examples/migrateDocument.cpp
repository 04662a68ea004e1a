// With the toolkit: opens a document of either encoding, lists and moves what it holds, migrates it with
// images from a folder and writes a page for each view: migrateDocument examples/image_sheet_6.27.json
// examples/rasters OUTPUT_FOLDER

#include <algorithm>
#include <fstream>
#include <iostream>
#include <string>

#include "qvToolkit/files/outputSink.h"
#include "qvToolkit/images/rasterFolder.h"
#include "qvToolkit/migration/migrationSession.h"
#include "qvToolkit/model/annotationWalk.h"
#include "qvToolkit/model/documentTransform.h"
#include "qvToolkit/pages/svgPage.h"
#include "qvToolkit/reading/openDocument.h"
#include "qvToolkit/text/textEscape.h"
#include "qvToolkit/work/session.h"

using namespace qvToolkit;

/// A page goes where the host wants it; here into a file.
struct FileSink : OutputSink {
  bool write(std::string_view bytes) override { return !!(m_file << bytes); }
  std::ofstream m_file;
};

void showName(WalkedAnnotation const& place) {
  if (place.m_annotation == nullptr) return;  // an empty entry
  std::cout << place.m_address.getText() << ": " << escapeTerminal(place.m_annotation->GetName()) << '\n';
}

int main(int argc, char** argv) {
  if (argc != 4) return ExitUsage;
  Session const session;  // documents, and what is made of them, are gone before it
  auto const tell = [path = argv[1]](Finding const& finding) {
    std::cerr << formatFinding(path, finding) << '\n';
  };
  Document document = openDocument(argv[1]);
  std::ranges::for_each(document.m_findings, tell);
  walkAnnotations(document, showName);

  Similarity lift;
  lift.m_translation = {0, 0, 100};
  std::ranges::for_each(transformDocument(document, lift).m_findings, tell);

  MigrationOptions options;
  RasterFolder const folder(argv[2]);  // or whatever else the host takes its images from
  options.m_rasters = [&folder](std::string const& name) { return folder.find(name); };
  MigrationSession(options, tell).migrate(document, [&](MigratedView const& view) {
    if (view.m_view == nullptr) return true;  // a finding said why
    std::string const name = std::to_string(view.m_index) + ".svg";
    FileSink page;
    page.m_file.open(std::string(argv[3]) + "/" + name, std::ios::binary);
    std::ranges::for_each(writeSvgPage(view, page), tell);
    std::cout << (page.write("") ? "written: " : "not written: ") << name << '\n';
    return true;
  });
  return getFailure(document);
}
