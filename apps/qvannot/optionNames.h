#pragma once

#include <string_view>

#include "qvToolkit/findings/catalogue.h"

namespace qvannot {

/// The spelling of each option: parser, help, completion, manual page and findings have it from here.
namespace option {

constexpr char const* At = "--at";
constexpr char const* Dpi = "--dpi";
constexpr char const* DropKnownMetadata = "--drop-known-metadata";
constexpr char const* DropUnknownMetadata = "--drop-unknown-metadata";
constexpr char const* DropViewMetadata = "--drop-view-metadata";
constexpr char const* FontDir = "--font-dir";
constexpr char const* FontMap = "--font-map";
constexpr char const* Force = "--force";
constexpr char const* Format = "--format";
constexpr char const* Full = "--full";
constexpr char const* HeadSize = "--head-size";
constexpr char const* Help = "-h,--help";
constexpr char const* Jobs = "-j,--jobs";
constexpr char const* Json = "--json";
constexpr char const* Limits = "--limits";
constexpr char const* Manual = "--manual";
constexpr char const* Markdown = "--markdown";
constexpr char const* Matrix = "--matrix";
constexpr char const* MaxDepth = "--max-depth";
constexpr char const* MaxFailedReads = "--max-failed-reads";
constexpr char const* MaxInput = "--max-input";
constexpr char const* MaxJsonDepth = "--max-json-depth";
constexpr char const* MaxMemory = "--max-memory";
constexpr char const* MaxNodes = "--max-nodes";
constexpr char const* MaxOutput = "--max-output";
constexpr char const* MaxOutputFile = "--max-output-file";
constexpr char const* MaxRaster = "--max-raster";
constexpr char const* MaxStack = "--max-stack";
constexpr char const* MaxTime = "--max-time";
constexpr char const* MaxViews = "--max-views";
constexpr char const* NoSystemFonts = "--no-system-fonts";
constexpr char const* Output = "-o,--output";
constexpr char const* Pretty = "--pretty";
constexpr char const* Rasters = "--rasters";
constexpr char const* Rotate = "--rotate";
constexpr char const* Scale = "--scale";
constexpr char const* StreamVersion = "--stream-version";
constexpr char const* Strict = "--strict";
constexpr char const* Text = "--text";
constexpr char const* Translate = "--translate";
constexpr char const* Version = "-V,--version";
constexpr char const* ViewsOnly = "--views-only";

}  // namespace option

/// How the tool spells an option of the toolkit.
std::string_view spellOption(qvToolkit::OptionKey key);

}  // namespace qvannot
