// With the toolkit: opens a document of either encoding, lists and moves what it holds, migrates it with
// images from a folder and writes a page for each view: migrateDocument examples/image_sheet_6.27.json
// examples/rasters OUTPUT_FOLDER

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

void show(std::string const& path, Findings const& findings) {
  for (Finding const& finding : findings) std::cerr << formatFinding(path, finding) << '\n';
}

void showName(WalkedAnnotation const& place) {
  if (place.m_annotation == nullptr) return;  // an empty entry
  std::cout << place.m_address.getText() << ": " << escapeTerminal(place.m_annotation->GetName()) << '\n';
}

int main(int argc, char** argv) {
  if (argc != 4) return ExitUsage;
  Session const session;  // documents, and what is made of them, are gone before it
  Document document = openDocument(argv[1]);
  show(argv[1], document.m_findings);
  walkAnnotations(document, showName);
  Similarity lift;
  lift.m_translation = {0, 0, 100};
  show(argv[1], transformDocument(document, lift).m_findings);

  MigrationOptions options;
  RasterFolder const folder(argv[2]);  // or whatever else the host takes its images from
  options.m_rasters = [&folder](std::string const& name) { return folder.find(name); };
  MigrationSession migration(options, [&](Finding const& finding) { show(argv[1], {finding}); });
  migration.migrate(document, [&](MigratedView const& view) {
    if (view.m_view == nullptr) return true;  // a finding has said why
    std::string const name = std::to_string(view.m_index) + ".svg";
    FileSink page;
    page.m_file.open(std::string(argv[3]) + "/" + name, std::ios::binary);
    show(argv[1], writeSvgPage(view, page));
    std::cout << (page.write("") ? "written: " : "not written: ") << name << '\n';
    return true;  // the next one, please
  });
  return getFailure(document);
}
