// Construction and destruction of the item classes: one place that holds their virtual tables.

#include <cmath>
#include <new>
#include <utility>

#include "qvSvg/glyphSource.h"
#include "qvSvg/image.h"
#include "qvSvg/node.h"
#include "qvSvg/path.h"
#include "qvSvg/rect.h"
#include "qvSvg/text.h"

namespace qv::svg {

namespace {

/// Moves the children that nobody else holds to the end of `released`.
void takeUnshared(Node::Children& children, Node::Children& released) {
  for (std::shared_ptr<ItemInterface>& child : children) {
    if (child.use_count() == 1) released.push_back(std::move(child));
  }
  children.clear();
}

}  // namespace

ItemInterface::~ItemInterface() = default;

GlyphSource::~GlyphSource() = default;

Node::Node() = default;

/// A very deep tree is released from a work list, since one destructor inside another would use up the stack.
Node::~Node() {
  Children released;
  try {
    takeUnshared(m_children, released);
    while (!released.empty()) {
      std::shared_ptr<ItemInterface> const item = std::move(released.back());
      released.pop_back();
      if (item->getKind() == ItemKind::Node) takeUnshared(static_cast<Node&>(*item).m_children, released);
    }
  } catch (std::bad_alloc const&) {
    // Without memory for the list, what is left is released by one destructor inside another.
  }
}

ItemKind Node::getKind() const noexcept {
  return ItemKind::Node;
}

Rect::Rect(Wm4::Vector2<float> const& origin, Wm4::Vector2<float> const& size)
    : m_origin(origin), m_size(size) {
}
Rect::~Rect() = default;
ItemKind Rect::getKind() const noexcept {
  return ItemKind::Rect;
}

Image::Image() = default;
Image::~Image() = default;
ItemKind Image::getKind() const noexcept {
  return ItemKind::Image;
}

Path::Path() = default;
Path::~Path() = default;
ItemKind Path::getKind() const noexcept {
  return ItemKind::Path;
}

Text::Text() = default;
Text::~Text() = default;
ItemKind Text::getKind() const noexcept {
  return ItemKind::Text;
}

Wm4::Vector2<float> getEllipsePoint(PathSegment const& ellipse, float angle) {
  return {ellipse.m_point.X() + ellipse.m_radii.X() * std::cos(angle),
          ellipse.m_point.Y() + ellipse.m_radii.Y() * std::sin(angle)};
}

}  // namespace qv::svg
