#include "renderers.h"

#include <stdlib.h>

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "files/childProcess.h"
#include "tests/support/temporaryFolder.h"

namespace qvTest {

namespace {

namespace fs = std::filesystem;

Rendering judge(qvToolkit::ChildRun const& run, std::string const& png) {
  Rendering rendering;
  rendering.m_isMissing = run.m_problem == ENOENT;
  if (run.m_problem == 0) rendering.m_picture = Picture(png);
  if (rendering.m_picture.isEmpty()) {
    rendering.m_problem =
        rendering.m_isMissing ? "the renderer is not installed" : "no picture: " + run.m_errors;
  }
  return rendering;
}

/// Node's program for resvg: page, picture, width.
constexpr char const* ResvgScript =
    "const fs = require('fs'); const { Resvg } = require('@resvg/resvg-js');\n"
    "const [page, picture, width] = process.argv.slice(1);\n"
    "const font = { loadSystemFonts: false, fontDirs: ['" QVA_TEST_FONTS
    "'] };\n"
    "const options = { fitTo: { mode: 'width', value: Number(width) }, font };\n"
    "fs.writeFileSync(picture, new Resvg(fs.readFileSync(page, 'utf8'), options).render().asPng());\n";

}  // namespace

Rendering renderByLibrsvg(std::string const& svg, std::size_t width) {
  qvToolkit::ChildRun const run = qvToolkit::runChild(
      {{"rsvg-convert", "--width", std::to_string(width), "--keep-aspect-ratio"}, {}}, svg);
  return judge(run, run.m_output);
}

Rendering renderByChromium(std::string const& svg, std::size_t width, std::size_t height) {
  TemporaryFolder const folder;
  std::string const size = std::to_string(width) + "," + std::to_string(height);
  folder.writeFile("page.svg", svg);
  folder.writeFile("page.html", "<!DOCTYPE html><body style='margin:0'><img src='page.svg' width='" +
                                    std::to_string(width) + "'></body>");
  qvToolkit::ChildRun const run =
      qvToolkit::runChild({{"chromium", "--headless", "--no-sandbox", "--disable-gpu", "--hide-scrollbars",
                            "--force-device-scale-factor=1", "--user-data-dir=" + folder.getPath("profile"),
                            "--window-size=" + size, "--screenshot=" + folder.getPath("page.png"),
                            "file://" + folder.getPath("page.html")},
                           {"HOME=" + folder.getPath("home")}},
                          {});
  return judge(run, readFile(folder.getPath("page.png")));
}

Rendering renderByResvg(std::string const& svg, std::size_t width) {
  if (!fs::exists(QVA_NODE_FOLDER "/node_modules/@resvg/resvg-js")) {
    return {{}, "@resvg/resvg-js is not installed in " QVA_NODE_FOLDER, true};
  }
  TemporaryFolder const folder;
  folder.writeFile("page.svg", svg);
  qvToolkit::ChildRun const run =
      qvToolkit::runChild({{"node", "--eval", ResvgScript, folder.getPath("page.svg"),
                            folder.getPath("page.png"), std::to_string(width)},
                           {"NODE_PATH=" QVA_NODE_FOLDER "/node_modules"}},
                          {});
  return judge(run, readFile(folder.getPath("page.png")));
}

}  // namespace qvTest
