#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "qvToolkit/export.h"

namespace qvToolkit {

/// Where a view, an annotation of it or a sub-annotation stands in a document: "view/3/annot/7/sub/0". The
/// indices count from 0, empty entries included. The address of the whole document is empty.
/// @code
/// Address address = Address::ofView(3);
/// address.enter(7);
/// assert(address.getText() == "view/3/annot/7");
/// assert(address.getChild(0).getText() == "view/3/annot/7/sub/0");
/// assert(Address::parse("view/3/annot/7") == address);
/// @endcode
class QVT_EXPORT Address {
 public:
  Address() = default;  ///< of the whole document
  /// "view/3".
  static Address ofView(std::size_t index);
  /// Of a view's index, an annotation's in it, and one for each level of sub-annotations, as far as they go.
  static Address ofIndices(std::vector<std::size_t> const& indices);
  /// The address that the text spells; nothing when it spells none.
  static std::optional<Address> parse(std::string_view text);

  /// The address of a part: a view of a document, an annotation of a view, a sub-annotation of an annotation.
  Address getChild(std::size_t index) const;
  /// Becomes the address of that part, without an allocation as a rule.
  void enter(std::size_t index);
  /// Becomes the address of the whole that the part is of, which undoes one `enter`. Not for the address of
  /// the whole document.
  void leave();

  /// As findings and reports show it; valid until the address changes.
  std::string const& getText() const noexcept { return m_text; }
  /// What `ofIndices` makes the address of.
  std::vector<std::size_t> getIndices() const;
  bool operator==(Address const&) const = default;  ///< the same place

 private:
  std::string m_text;
  std::size_t m_levels = 0;  ///< indices in the text
};

}  // namespace qvToolkit
