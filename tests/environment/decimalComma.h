#pragma once

#include <locale.h>

/// The locale that shows whether numbers depend on it.
namespace qvTest {

constexpr char const* DecimalComma = "de_DE.UTF-8";
constexpr char const* NoDecimalComma =
    "there is no locale de_DE.UTF-8: install the package locales and build anew";

inline bool hasDecimalComma() {
  locale_t const locale = newlocale(LC_ALL_MASK, DecimalComma, nullptr);
  if (locale != nullptr) freelocale(locale);
  return locale != nullptr;
}

}  // namespace qvTest
