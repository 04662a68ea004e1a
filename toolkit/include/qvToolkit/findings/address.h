#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qvToolkit {

/// Where a view, an annotation of it or a sub-annotation stands in a document: "view/3/annot/7/sub/0". The
/// indices count from 0, empty entries included. The address of the whole document is empty.
///
///     Address address = Address::ofView(3);
///     address.enter(7);                      // "view/3/annot/7"
///     address.getChild(0).getText();         // "view/3/annot/7/sub/0"
class Address {
 public:
  Address() = default;
  /// "view/3".
  static Address ofView(std::size_t index);
  /// Of a view's index, an annotation's in it, and one for each level of sub-annotations, as far as they go.
  static Address ofIndices(std::vector<std::size_t> const& indices);
  /// The address that the text spells; nothing when it spells none.
  static std::optional<Address> parse(std::string_view text);

  /// The address of a part: a view of a document, an annotation of a view, a sub-annotation of an annotation.
  Address getChild(std::size_t index) const;
  /// Becomes the address of that part, or of the whole again, without an allocation as a rule.
  void enter(std::size_t index);
  void leave();

  std::string const& getText() const noexcept { return m_text; }
  /// What `ofIndices` makes the address of.
  std::vector<std::size_t> getIndices() const;
  bool operator==(Address const&) const = default;

 private:
  std::string m_text;
  std::size_t m_levels = 0;  ///< indices in the text
};

}  // namespace qvToolkit
