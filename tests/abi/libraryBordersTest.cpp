// Types and exceptions keep their identity between the library, a host and a plug-in that the host loads.

#include <dlfcn.h>
#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>

#include "annotationLegacy/library.h"
#include "annotationLegacy/qvAnnotationRaster.h"
#include "annotationLegacy/qvAnnotationText.h"
#include "annotationLegacy/qvAnnotationView.h"

namespace {

using namespace qvLegacy;

struct CloseLibrary {
  void operator()(void* library) const { dlclose(library); }
};

/// The plug-in, loaded so that its symbols serve nobody else.
class LibraryBorders : public testing::Test {
 protected:
  void SetUp() override {
    qv::initializeQvAnnotationLegacyLibrary();
    m_plugin.reset(dlopen(QVA_BORDER_PLUGIN, RTLD_NOW | RTLD_LOCAL));
    ASSERT_NE(m_plugin, nullptr) << dlerror();
  }
  void TearDown() override { qv::terminateQvAnnotationLegacyLibrary(); }

  template <class Function>
  Function* find(char const* name) const {
    auto* const function = reinterpret_cast<Function*>(dlsym(m_plugin.get(), name));
    EXPECT_NE(function, nullptr) << name;
    return function;
  }

 private:
  std::unique_ptr<void, CloseLibrary> m_plugin;
};

TEST_F(LibraryBorders, AnObjectOfAPluginIsCastToTheClassesOfTheLibrary) {
  qv::qvRttiInterface* const object = find<qv::qvRttiInterface*()>("makeStampedText")();
  qv::qvPointer<qvAnnotationText> const text(dynamic_cast<qvAnnotationText*>(object));
  ASSERT_NE(text, nullptr);
  EXPECT_EQ(dynamic_cast<qvAnnotationRaster*>(object), nullptr);
  EXPECT_EQ(dynamic_cast<qvAnnotationView*>(object), nullptr);
  qv::qvPointer<qvAnnotationInterface> const copy(text->cloneAnnotation());
  EXPECT_EQ(typeid(*copy.get()), typeid(qvAnnotationText));
}

TEST_F(LibraryBorders, AnObjectOfTheHostIsCastInAPlugin) {
  auto* const isText = find<bool(qv::qvRttiInterface const*)>("isText");
  qv::qvPointer<qvAnnotationInterface> const text(new qvAnnotationText);
  qv::qvPointer<qvAnnotationInterface> const raster(new qvAnnotationRaster);
  EXPECT_TRUE(isText(text.get()));
  EXPECT_FALSE(isText(raster.get()));
}

TEST_F(LibraryBorders, AThrownClassOfTheLibraryIsCaughtByItsBase) {
  qv::qvPointer<qvAnnotationText> const text(new qvAnnotationText);
  qvAnnotationInterface const* caught = nullptr;
  try {
    find<void(qvAnnotationText*)>("throwText")(text.get());
  } catch (qvAnnotationInterface const* annotation) {
    caught = annotation;
  }
  EXPECT_EQ(caught, text.get());
}

TEST_F(LibraryBorders, AnExceptionOfAVisitorPassesThroughTheLibrary) {
  qv::qvPointer<qvAnnotationInterface> const root(new qvAnnotationText);
  root->editSubAnnots().emplace_back().m_annot = new qvAnnotationRaster;
  std::string message;
  try {
    find<void(qvAnnotationInterface*)>("walkAndThrow")(root.get());
  } catch (std::exception const& error) {
    message = error.what();
  }
  EXPECT_EQ(message, "a raster");
  EXPECT_EQ(root->GetReferences(), 1);
}

}  // namespace
