#pragma once

#include <cstdint>

#include "qvToolkit/model/document.h"

namespace qvStreamTest {

/// A document of random views: every field takes every value that a record can hold, odd ones included. Equal
/// seeds give equal documents.
qvToolkit::Document generateDocument(std::uint64_t seed);

}  // namespace qvStreamTest
