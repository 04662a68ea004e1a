#include "reading/documentShape.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <string_view>
#include <utility>

#include "findings/jsonPointer.h"
#include "qvToolkit/text/textEscape.h"
#include "reading/annotationRules.h"
#include "text/countText.h"

namespace qvToolkit {

namespace {

constexpr char const* Expected =
    ", expected a view object, an array of view objects or {\"views\": [view objects]}";

/// Keys of which a view has at least one.
constexpr std::string_view TellingKeys[] = {"ver", "annotations", "textannotations", "rasterannotations"};

bool looksLikeView(VariantMap const& map) {
  for (std::string_view const key : TellingKeys) {
    if (findValue(map, key) != nullptr) return true;
  }
  return false;
}

void report(DocumentShape& shape, FindingCode code, Severity severity, std::string text,
            std::string pointer) {
  shape.m_findings.push_back(
      makeFinding(code, severity, std::move(text), {}, {{}, {}, {}, std::move(pointer)}));
}

void addViews(DocumentShape& shape, VariantList const& list, std::string const& pointer) {
  shape.m_isDocument = true;
  for (std::size_t i = 0; i < list.size(); ++i) {
    shape.m_views.push_back({&list[i], pointer});
    appendPointerIndex(shape.m_views.back().m_jsonPointer, i);
  }
}

void refuse(DocumentShape& shape, std::string const& found, std::string pointer) {
  report(shape, FindingCode::DocumentShape, Severity::Error, "found " + found + Expected, std::move(pointer));
}

void addViewsOfMap(DocumentShape& shape, qv::qvVariant const& root) {
  VariantMap const& map = root.toMap();
  qv::qvVariant const* const views = findValue(map, "views");
  if (views == nullptr) {
    shape.m_isDocument = looksLikeView(map);
    if (!shape.m_isDocument)
      return refuse(shape, "an object that has neither 'views' nor the keys of a view", {});
    shape.m_views.push_back({&root, {}});
    return;
  }
  if (!views->isList()) return refuse(shape, "'views' that is no array", "/views");
  addViews(shape, views->toList(), "/views");
  for (auto const& [key, value] : map) {
    if (key == "views") continue;
    std::string pointer;
    appendPointerKey(pointer, key);
    bool const isList = std::ranges::find(TellingKeys, key) != std::end(TellingKeys);
    std::size_t const records = isList ? countRecords(value.toList()) : 0;
    std::string text = "the key '" + shortenText(key) + "' beside 'views' is not read";
    if (records > 0) text += "; " + formatCount(records, "annotation record") + " went with it";
    report(shape, FindingCode::KeyIgnored, records > 0 ? Severity::Error : Severity::Info, std::move(text),
           std::move(pointer));
  }
}

}  // namespace

DocumentShape findViews(qv::qvVariant const& root) {
  DocumentShape shape;
  if (root.isList()) {
    addViews(shape, root.toList(), {});
  } else if (root.isMap()) {
    addViewsOfMap(shape, root);
  } else {
    refuse(shape, "a lone value", {});
  }
  return shape;
}

}  // namespace qvToolkit
