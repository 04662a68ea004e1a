#include "json/jsonLocator.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "findings/jsonPointer.h"
#include "findings/textPosition.h"
#include "json/jsonString.h"

namespace qvToolkit {

namespace {

/// The wanted pointers as a tree: what to look for, step by step from the root.
struct Wanted {
  std::map<std::string, std::size_t, std::less<>> m_steps;  ///< escaped key or index -> index in the tree
  std::vector<std::size_t> m_findings;
  std::optional<std::size_t> m_offset;
};

class WantedTree {
 public:
  WantedTree() : m_nodes(1) {}

  void add(std::string_view pointer, std::size_t finding) {
    std::size_t node = 0;
    while (!pointer.empty()) {
      pointer.remove_prefix(1);
      std::size_t const length = std::min(pointer.find('/'), pointer.size());
      node = step(node, pointer.substr(0, length));
      pointer.remove_prefix(length);
    }
    m_nodes[node].m_findings.push_back(finding);
  }

  std::optional<std::size_t> find(std::size_t node, std::string_view part) const {
    auto const entry = m_nodes[node].m_steps.find(part);
    if (entry == m_nodes[node].m_steps.end()) return std::nullopt;
    return entry->second;
  }

  bool isLeaf(std::size_t node) const { return m_nodes[node].m_steps.empty(); }
  void setOffset(std::size_t node, std::size_t offset) { m_nodes[node].m_offset = offset; }
  std::vector<Wanted> const& getNodes() const { return m_nodes; }

 private:
  std::size_t step(std::size_t node, std::string_view part) {
    if (auto const next = find(node, part)) return *next;
    m_nodes[node].m_steps.emplace(part, m_nodes.size());
    m_nodes.emplace_back();
    return m_nodes.size() - 1;
  }

  std::vector<Wanted> m_nodes;
};

constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";

/// Walks the text token by token, into those containers only that lead to something wanted.
class Locator {
 public:
  Locator(std::string_view text, WantedTree& tree)
      : m_text(text), m_tree(tree), m_offset(text.substr(0, 3) == ByteOrderMark ? 3 : 0) {}

  void run() {
    takeValue(0);
    while (!m_levels.empty() && m_offset < m_text.size()) step();
  }

 private:
  struct Level {
    std::size_t m_node;
    bool m_isArray;
    std::size_t m_index = 0;
  };

  void skipBlanks() { m_offset = std::min(m_text.find_first_not_of(" \t\r\n", m_offset), m_text.size()); }
  bool isAt(char c) const { return m_offset < m_text.size() && m_text[m_offset] == c; }
  void step();
  void takeValue(std::optional<std::size_t> node);
  void skipValue();
  void skipString();
  std::string takeKey();

  std::string_view m_text;
  WantedTree& m_tree;
  std::size_t m_offset;
  std::vector<Level> m_levels;
};

void Locator::step() {
  skipBlanks();
  if (isAt(',')) {
    ++m_offset;
    return;
  }
  if (isAt(']') || isAt('}')) {
    ++m_offset;
    m_levels.pop_back();
    return;
  }
  Level& level = m_levels.back();
  std::string const part = level.m_isArray ? std::to_string(level.m_index++) : takeKey();
  takeValue(m_tree.find(level.m_node, part));
}

void Locator::takeValue(std::optional<std::size_t> node) {
  skipBlanks();
  if (node.has_value()) m_tree.setOffset(*node, m_offset);
  bool const isContainer = isAt('[') || isAt('{');
  if (!node.has_value() || m_tree.isLeaf(*node) || !isContainer) {
    skipValue();
    return;
  }
  m_levels.push_back({*node, isAt('[')});
  ++m_offset;
}

void Locator::skipValue() {
  std::size_t depth = 0;
  do {
    skipBlanks();
    if (isAt('"')) {
      skipString();
      continue;
    }
    if (isAt('[') || isAt('{')) ++depth;
    if (isAt(']') || isAt('}')) --depth;
    // A scalar runs up to the next token; brackets, commas and colons are one byte each.
    bool const isMark = m_text.substr(m_offset, 1).find_first_of("[]{},:") == 0;
    m_offset =
        isMark ? m_offset + 1 : std::min(m_text.find_first_of("[]{},: \t\r\n", m_offset), m_text.size());
  } while (depth > 0 && m_offset < m_text.size());
}

void Locator::skipString() {
  for (++m_offset; m_offset < m_text.size() && !isAt('"'); ++m_offset) {
    if (isAt('\\')) ++m_offset;
  }
  m_offset = std::min(m_offset + 1, m_text.size());
}

/// The key at hand as a part of a JSON pointer; leaves the colon behind.
std::string Locator::takeKey() {
  std::size_t const start = m_offset;
  skipString();
  std::string part;
  if (auto const key = readJsonString(m_text.substr(start))) appendPointerKey(part, key->m_text);
  skipBlanks();
  ++m_offset;
  return part.empty() ? part : part.substr(1);
}

}  // namespace

void locateFindings(std::string_view text, Findings& findings) {
  WantedTree tree;
  for (std::size_t i = 0; i < findings.size(); ++i) {
    SourcePlace const& place = findings[i].m_place;
    if (!place.m_line.has_value() && !place.m_jsonPointer.empty()) tree.add(place.m_jsonPointer, i);
  }
  if (tree.isLeaf(0)) return;
  Locator(text, tree).run();

  std::vector<std::pair<std::size_t, std::size_t>> offsets;
  for (Wanted const& wanted : tree.getNodes()) {
    for (std::size_t const finding : wanted.m_findings) {
      if (wanted.m_offset.has_value()) offsets.emplace_back(*wanted.m_offset, finding);
    }
  }
  std::sort(offsets.begin(), offsets.end());
  LineCounter lines(text);
  for (auto const& [offset, finding] : offsets) {
    std::string pointer = std::move(findings[finding].m_place.m_jsonPointer);
    findings[finding].m_place = lines.locate(offset);
    findings[finding].m_place.m_jsonPointer = std::move(pointer);
  }
}

}  // namespace qvToolkit
