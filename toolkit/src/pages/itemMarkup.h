#pragma once

#include <optional>
#include <string>

#include "pages/markup.h"
#include "qvSvg/itemInterface.h"

namespace qvToolkit {

std::string formatNumber(float number);
std::string formatNumber(double number);

/// A colour text or "none".
bool isPaint(std::optional<std::string> const& color);

/// The item's own transform for a transform attribute; empty when it has none.
std::string formatItemTransform(qv::svg::ItemInterface const& item);

/// Appends a transform to a list of them; either may be empty.
void appendTransform(std::string& list, std::string const& transform);

/// Writes the transform attribute; nothing for an empty one.
void writeTransform(Markup& markup, std::string const& transform);

/// Writes class, fill and stroke as far as the item sets them.
void writePaint(Markup& markup, qv::svg::ItemInterface const& item);

}  // namespace qvToolkit
