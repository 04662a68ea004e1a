#include "tests/support/xmlReader.h"

#include <stdexcept>
#include <utility>

#include "qvToolkit/text/textEscape.h"

namespace qvTest {

namespace {

class Reader {
 public:
  explicit Reader(std::string_view text) : m_rest(text) {}

  XmlElement readDocument() {
    expect("<?xml version=\"1.0\" encoding=\"UTF-8\"?>");
    skipBlanks();
    XmlElement root = readElement();
    skipBlanks();
    if (!m_rest.empty()) throw std::runtime_error("text behind the root element");
    return root;
  }

 private:
  bool take(std::string_view token) {
    if (!m_rest.starts_with(token)) return false;
    m_rest.remove_prefix(token.size());
    return true;
  }
  void expect(std::string_view token) {
    if (!take(token)) {
      throw std::runtime_error("expected " + std::string(token) + " at " + std::string(m_rest.substr(0, 40)));
    }
  }
  void skipBlanks() {
    std::size_t const end = m_rest.find_first_not_of(" \n");
    m_rest.remove_prefix(end == std::string_view::npos ? m_rest.size() : end);
  }
  std::string readUntil(std::string_view ends) {
    std::size_t const end = m_rest.find_first_of(ends);
    if (end == std::string_view::npos) throw std::runtime_error("cut off");
    std::string const piece(m_rest.substr(0, end));
    m_rest.remove_prefix(end);
    return piece;
  }
  std::string readName() {
    std::string const name = readUntil(" />=\n");
    if (name.empty() || name.find_first_not_of("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ-:") !=
                            std::string::npos) {
      throw std::runtime_error("bad name " + name);
    }
    return name;
  }

  static std::string resolve(std::string_view raw) {
    std::string text;
    while (!raw.empty()) {
      if (raw.front() != '&') {
        text += raw.front();
        raw.remove_prefix(1);
        continue;
      }
      std::size_t const end = raw.find(';');
      if (end == std::string_view::npos) throw std::runtime_error("bare ampersand");
      text += resolveReference(raw.substr(1, end - 1));
      raw.remove_prefix(end + 1);
    }
    return text;
  }
  static char resolveReference(std::string_view name) {
    static std::map<std::string_view, char> const named = {{"amp", '&'},  {"lt", '<'},   {"gt", '>'},
                                                           {"quot", '"'}, {"#39", '\''}, {"#9", '\t'},
                                                           {"#10", '\n'}, {"#13", '\r'}};
    auto const known = named.find(name);
    if (known == named.end()) throw std::runtime_error("unknown reference " + std::string(name));
    return known->second;
  }

  void readAttributes(XmlElement& element) {
    while (true) {
      skipBlanks();
      if (m_rest.starts_with("/>") || m_rest.starts_with(">")) return;
      std::string const name = readName();
      expect("=\"");
      std::string const raw = readUntil("\"");
      expect("\"");
      if (raw.find('<') != std::string::npos) throw std::runtime_error("< in an attribute");
      if (!element.m_attributes.emplace(name, resolve(raw)).second) throw std::runtime_error("twice " + name);
    }
  }

  XmlElement readElement() {
    XmlElement element;
    expect("<");
    element.m_name = readName();
    readAttributes(element);
    if (take("/>")) return element;
    expect(">");
    while (!m_rest.starts_with("</")) {
      if (m_rest.starts_with("<")) {
        element.m_children.push_back(readElement());
      } else {
        element.m_text += resolve(readUntil("<"));
      }
    }
    expect("</" + element.m_name + ">");
    return element;
  }

  std::string_view m_rest;
};

}  // namespace

std::string XmlElement::getAttribute(std::string const& name) const {
  auto const found = m_attributes.find(name);
  return found == m_attributes.end() ? std::string() : found->second;
}

std::vector<XmlElement const*> XmlElement::getAll() const {
  std::vector<XmlElement const*> all = {this};
  for (XmlElement const& child : m_children) {
    auto const under = child.getAll();
    all.insert(all.end(), under.begin(), under.end());
  }
  return all;
}

std::vector<XmlElement const*> XmlElement::getAll(std::string_view name) const {
  auto all = getAll();
  std::erase_if(all, [name](XmlElement const* element) { return element->m_name != name; });
  return all;
}

XmlElement parseXml(std::string_view text) {
  bool isRepaired = false;
  static_cast<void>(qvToolkit::repairUtf8(text, &isRepaired));
  if (isRepaired) throw std::runtime_error("characters that XML forbids, or invalid UTF-8");
  return Reader(text).readDocument();
}

}  // namespace qvTest
