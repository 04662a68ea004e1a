#pragma once

#include <string>

#include "picture.h"

namespace qvTest {

/// What became of a rendering: a picture, or why there is none.
struct Rendering {
  Picture m_picture;
  std::string m_problem;
  bool m_isMissing = false;  ///< the renderer is not on this machine
};

/// The page `width` pixels wide, drawn by librsvg, by Chromium, and by resvg.
Rendering renderByLibrsvg(std::string const& svg, std::size_t width);
Rendering renderByChromium(std::string const& svg, std::size_t width, std::size_t height);
Rendering renderByResvg(std::string const& svg, std::size_t width);

}  // namespace qvTest
