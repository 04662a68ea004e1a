#pragma once

#include <optional>
#include <string>

#include "model/variantLookup.h"
#include "rules/fields.h"

namespace qvToolkit {

/// A value that its reader could not take as it stands.
struct ValueLoss {
  std::string m_expected;  ///< "six hexadecimal digits"
  std::string m_taken;     ///< "#000012"
};

/// What is lost of a value on its way into the model; nothing for one that comes through exactly, and for
/// null, which is told apart from an absent value by the caller. Rounding to single precision is exact, and
/// so is a conversion between kinds from whose result the value could be told again: the number 5 read as the
/// text "5", the text "5" as the number, 1 as true. Lists of records lose nothing here.
std::optional<ValueLoss> findValueLoss(qvLegacy::rules::Field const& field, qv::qvVariant const& value);

/// The height in hundredths of an em that is read; nothing where none of it was cut off.
std::optional<std::uint16_t> findCutHeight(qv::qvVariant const& value);

/// A height for a sentence: "12.34".
std::string formatHundredths(std::uint16_t hundredths);

/// A value for a sentence: "5", "'dot'", "[1, 2, true]", "a map".
std::string describeValue(qv::qvVariant const& value);

}  // namespace qvToolkit
