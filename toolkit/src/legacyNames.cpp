#include "legacyNames.h"

#include <cstddef>
#include <span>

#include "annotationLegacy/qvAnnotationInterface.h"

namespace qvToolkit {

namespace {

using std::string_view;

constexpr string_view TypeNames[] = {"unknown", "text", "raster"};
constexpr string_view HeadNames[] = {"none", "square", "circle", "arrow", "plus", "cross", "triangle"};
constexpr string_view ArrowDirectionNames[] = {"none", "outout", "inout", "outin"};
// KEEP: 10 is named by its place, although the variant form spells neither 10 nor anything but "rt" for 12.
constexpr string_view AnchorNames[] = {"none", "bl", "bc", "br", "tl", "tc", "tr",
                                       "lb",   "lc", "lt", "rb", "rc", "rt"};
constexpr string_view FrameShapeNames[] = {
    "noframe",       "rectangle", "square",   "diamond", "triangle", "flagright",  "flagleft",    "flagboth",
    "parallelogram", "hexagon",   "pentagon", "circle",  "oblong",   "oblongleft", "oblongright", ""};
constexpr string_view SegmentTypeNames[] = {"normal", "sub", "sup"};

string_view findName(std::span<string_view const> names, std::size_t index) {
  return index < names.size() ? names[index] : string_view();
}

}  // namespace

string_view getTypeName(std::uint8_t type) {
  return findName(TypeNames, type);
}

string_view getHeadName(std::uint8_t head) {
  return findName(HeadNames, head);
}

string_view getArrowDirectionName(std::uint8_t direction) {
  return findName(ArrowDirectionNames, direction);
}

string_view getAnchorName(std::uint32_t anchor) {
  return findName(AnchorNames, anchor);
}

string_view getFrameShapeName(std::uint8_t style) {
  return findName(FrameShapeNames, style & qvLegacy::qvAnnotationInterface::FrameShapeMask);
}

string_view getSegmentTypeName(std::uint8_t type) {
  return findName(SegmentTypeNames, type);
}

std::span<string_view const> getHeadNames() {
  return HeadNames;
}

std::span<string_view const> getArrowDirectionNames() {
  return ArrowDirectionNames;
}

std::span<string_view const> getAnchorNames() {
  return AnchorNames;
}

std::span<string_view const> getFrameShapeNames() {
  return FrameShapeNames;
}

std::span<string_view const> getSegmentTypeNames() {
  return SegmentTypeNames;
}

}  // namespace qvToolkit
