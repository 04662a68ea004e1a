#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "annotationLegacy/library.h"
#include "annotationLegacy/qvAnnotationRaster.h"
#include "annotationLegacy/qvAnnotationText.h"

namespace qvLegacy::test {

using AnnotationPointer = qv::qvPointer<qvAnnotationInterface>;
using TextPointer = qv::qvPointer<qvAnnotationText>;
using RasterPointer = qv::qvPointer<qvAnnotationRaster>;

/// Runs with the library initialised, and fails when it leaves an object behind.
class ModelTest : public ::testing::Test {
 protected:
  void SetUp() override {
    qv::initializeQvAnnotationLegacyLibrary();
    m_liveObjects = qv::qvObject::GetLiveObjects();
  }
  void TearDown() override {
    EXPECT_EQ(qv::qvObject::GetLiveObjects(), m_liveObjects);
    qv::terminateQvAnnotationLegacyLibrary();
  }

 private:
  std::size_t m_liveObjects = 0;
};

inline TextPointer newText(std::string const& text = {}) {
  TextPointer annotation(new qvAnnotationText);
  annotation->setText(text);
  return annotation;
}

inline RasterPointer newRaster(std::string const& rasterName = {}) {
  RasterPointer annotation(new qvAnnotationRaster);
  annotation->m_rasterName = rasterName;
  return annotation;
}

inline AnnotationPointer newOfKind(int kind) {
  return new qvAnnotationInterface(static_cast<qvAnnotationInterface::Type>(kind));
}

inline void addChild(qvAnnotationInterface& parent, AnnotationPointer const& child,
                     std::uint32_t anchor = 1) {
  auto& node = parent.editSubAnnots().emplace_back();
  node.m_annot = child;
  node.m_anchor = anchor;
}

inline qvAnnotationInterface::SubAnnot const& childOf(qvAnnotationInterface const& parent,
                                                      std::ptrdiff_t index) {
  return *std::next(parent.m_subAnnots->begin(), index);
}

inline std::string textOf(qvAnnotationInterface const* annotation) {
  std::string text;
  dynamic_cast<qvAnnotationText const&>(*annotation).toString(text);
  return text;
}

/// Notes its name when it goes.
class Probe : public qvAnnotationInterface {
 public:
  Probe(std::string name, std::vector<std::string>& released)
      : qvAnnotationInterface(Unknown), m_released(released) {
    m_name = std::move(name);
  }
  ~Probe() override { m_released.push_back(m_name); }

 private:
  std::vector<std::string>& m_released;
};

}  // namespace qvLegacy::test
