#pragma once

#include <cstddef>
#include <string>
#include <utility>

#include "json/jsonReader.h"
#include "outcome/jsonFields.h"

namespace qvToolkit {

/// Reads the members of a frame's JSON; `problem` says what is wrong with them.
template <class Read>
void readFields(std::string text, std::string& problem, Read read) {
  constexpr std::size_t MaxContainers = 8;
  text.reserve(text.size() + JsonPadding);
  JsonReading const reading = readJson(text, MaxContainers);
  if (reading.m_isBroken) {
    problem = "no JSON";
    return;
  }
  JsonFields fields(reading.m_value, "", problem);
  read(fields);
}

}  // namespace qvToolkit
