#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace qvTest {

/// One element of a parsed document.
struct XmlElement {
  std::string m_name;
  std::map<std::string, std::string> m_attributes;  ///< values with their references resolved
  std::string m_text;                               ///< the element's own character data
  std::vector<XmlElement> m_children;

  std::string getAttribute(std::string const& name) const;
  /// This element and all under it, in document order.
  std::vector<XmlElement const*> getAll() const;
  std::vector<XmlElement const*> getAll(std::string_view name) const;
};

/// A strict reader of the XML that pages may use: declaration, elements, double-quoted attributes,
/// references. Throws `std::runtime_error` for anything else: comments, entities, characters that XML 1.0
/// forbids, invalid UTF-8, duplicate attributes, unbalanced elements.
XmlElement parseXml(std::string_view text);

}  // namespace qvTest
