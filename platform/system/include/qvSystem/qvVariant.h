#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "qvSystem/export.h"
#include "qvSystem/qvAllocator.h"

namespace qv {

/// A value of one of seven kinds. Copies are deep; a moved-from variant is null.
///
/// Conversions between kinds are total: what a kind cannot express gives the neutral value of the target (0,
/// false, the empty string, map or list). Texts of numbers do not depend on the locale.
class QV_EXPORT qvVariant {
 public:
  /// The numbers are persisted.
  enum class Kind : std::uint8_t {
    Null = 0,
    Integer = 1,
    Real = 2,
    String = 3,
    Bool = 4,
    Map = 10,
    List = 11
  };

  /// Sorted by key, as bytes.
  using qvVariantMapImpl =
      std::map<std::string, qvVariant, std::less<>, qvAllocator<std::pair<std::string const, qvVariant>>>;
  using qvVariantListImpl = std::vector<qvVariant, qvAllocator<qvVariant>>;

  qvVariant() noexcept = default;
  qvVariant(std::int64_t value) noexcept;  // NOLINT(google-explicit-constructor): a variant is any value
  qvVariant(int value) noexcept;           // NOLINT(google-explicit-constructor)
  qvVariant(double value) noexcept;        // NOLINT(google-explicit-constructor)
  qvVariant(bool value) noexcept;          // NOLINT(google-explicit-constructor)
  qvVariant(char const* value);            // NOLINT(google-explicit-constructor): null gives the empty string
  qvVariant(std::string value);            // NOLINT(google-explicit-constructor)
  qvVariant(qvVariantMapImpl value);       // NOLINT(google-explicit-constructor)
  qvVariant(qvVariantListImpl value);      // NOLINT(google-explicit-constructor)
  qvVariant(qvVariant const& other);
  qvVariant(qvVariant&& other) noexcept;
  qvVariant& operator=(qvVariant const& other);
  qvVariant& operator=(qvVariant&& other) noexcept;
  /// Releases nested maps and lists from a work list, so that depth costs no stack.
  ~qvVariant();

  Kind getKind() const noexcept { return m_kind; }
  bool isNull() const noexcept { return m_kind == Kind::Null; }
  /// True for the integer and the real kind only.
  bool isNumber() const noexcept { return m_kind == Kind::Integer || m_kind == Kind::Real; }
  bool isString() const noexcept { return m_kind == Kind::String; }
  bool isMap() const noexcept { return m_kind == Kind::Map; }
  bool isList() const noexcept { return m_kind == Kind::List; }

  /// Reals truncate toward zero and saturate at the 64-bit limits, NaN gives 0; a string that is as a whole a
  /// decimal number ("-12", "7.9", "1e5"; no blank, no plus sign in front) gives what that number gives, else
  /// 0; true gives 1.
  std::int64_t toInteger() const noexcept;
  /// A string that is as a whole a decimal number within the range gives it, else 0; true gives 1.
  double toReal() const noexcept;
  /// Numbers: not zero. Strings: "true" or a number that is not zero.
  bool toBool() const noexcept;
  /// Integers in decimal, reals in the shortest form that reads back, "true" or "false"; null, maps and lists
  /// give the empty string.
  std::string toString() const;
  /// The map, or an empty one for every other kind.
  qvVariantMapImpl const& toMap() const noexcept;
  /// The list, or an empty one for every other kind.
  qvVariantListImpl const& toList() const noexcept;

  /// The text of the string kind without a copy; empty for every other kind.
  std::string const& getString() const noexcept;
  /// The map or list for editing; a variant of another kind first becomes an empty one.
  qvVariantMapImpl& editMap();
  qvVariantListImpl& editList();

  /// Same kind and same value; NaN equals nothing.
  friend QV_EXPORT bool operator==(qvVariant const& a, qvVariant const& b);

 private:
  union Content {
    std::int64_t integer;
    double real;
    bool boolean;
    std::string* string;
    qvVariantMapImpl* map;
    qvVariantListImpl* list;
  };
  Content m_content{};
  Kind m_kind = Kind::Null;
};

}  // namespace qv
