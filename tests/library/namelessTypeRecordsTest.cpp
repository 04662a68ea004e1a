#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

#include "annotationLegacy/qvAnnotationMetaData.h"
#include "annotationLegacy/qvAnnotationView.h"

// This executable stands in for the platform's type records: none of them has a name.
qv::qvRtti::qvRtti(char const*, qvRtti const* parent) noexcept : m_name(nullptr), m_parent(parent) {
}

namespace {

using namespace qvLegacy;

/// What the standard logic error that `operation` throws says; empty when it throws none.
std::string logicErrorOf(void (*operation)()) {
  try {
    operation();
  } catch (std::logic_error const& error) {
    return error.what();
  }
  return {};
}

constexpr char const* NO_NAME = "basic_string: construction from null is not valid";

TEST(NamelessTypeRecords, CannotBeRegistered) {
  EXPECT_EQ(logicErrorOf(&qvAnnotationView::RegisterFactory), NO_NAME);
  EXPECT_EQ(logicErrorOf(&qvAnnotationMetaData::RegisterFactory), NO_NAME);
}

TEST(NamelessTypeRecords, CannotBeUnregistered) {
  EXPECT_EQ(logicErrorOf(&qvAnnotationView::UnRegisterFactory), NO_NAME);
  EXPECT_EQ(logicErrorOf(&qvAnnotationMetaData::UnRegisterFactory), NO_NAME);
}

}  // namespace
