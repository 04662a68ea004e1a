#include <gtest/gtest.h>
#include <qvAnnotation/qvAnnotationLibrary.h>
#include <qvSceneGraph/qvSceneGraphLibrary.h>
#include <qvSystem/libInitCounter.h>
#include <qvSystem/qvSystemLibrary.h>

#include <array>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "annotationLegacy/library.h"
#include "annotationLegacy/qvAnnotationMetaData.h"
#include "annotationLegacy/qvAnnotationView.h"

// This executable stands in for the platform operations of the library's life cycle, and records them.

namespace {

using Calls = std::vector<std::string>;

Calls calls;
std::string failingCall;
int initCount = 0;

void record(std::string const& call) {
  calls.push_back(call);
  if (call == failingCall) throw std::runtime_error(call);
}

/// Names of the static objects in their order of construction, which comes before that of `calls`.
constinit std::array<char const*, 64> constructed{};
constinit std::size_t constructedCount = 0;
constinit bool legacyCounterFlag = false;

void recordConstruction(char const* name) {
  if (name != nullptr && constructedCount < constructed.size()) constructed[constructedCount++] = name;
}

}  // namespace

namespace qv {

impl::LibInitCounter::LibInitCounter(char const* name, bool flag) : m_state(nullptr) {
  recordConstruction(name);
  if (std::string_view(name) == "annotationLegacy") legacyCounterFlag = flag;
}
impl::LibInitCounter::~LibInitCounter() = default;
bool impl::LibInitCounter::incrementInitCounter() {
  record("increment");
  return initCount++ == 0;
}
bool impl::LibInitCounter::decrementInitCounter() {
  record("decrement");
  return initCount > 0 && --initCount == 0;
}

qvRtti::qvRtti(char const* name, qvRtti const* parent) noexcept : m_name(name), m_parent(parent) {
  recordConstruction(name);
}

void initializeQvSystem(InitType type, bool verbose) {
  record("initializeQvSystem " + std::to_string(type) + (verbose ? " true" : " false"));
}
void terminateQvSystem() {
  record("terminateQvSystem");
}
void initializeQvSceneGraph() {
  record("initializeQvSceneGraph");
}
void terminateQvSceneGraph() {
  record("terminateQvSceneGraph");
}
void initializeQvAnnotationLibrary(bool loadFonts) {
  record(std::string("initializeQvAnnotationLibrary") + (loadFonts ? " true" : " false"));
}
void terminateQvAnnotationLibrary() {
  record("terminateQvAnnotationLibrary");
}

void qvRttiInterface::RegisterFactoryFunction(std::string const& typeName, FactoryFunction factory) {
  bool const isView = factory == &qvLegacy::qvAnnotationView::Factory;
  record("register " + typeName + (isView ? " as view" : " as metadata"));
}
void qvRttiInterface::UnregisterFactoryFunction(std::string const& typeName) {
  record("unregister " + typeName);
}

}  // namespace qv

void qvLegacy::qvAnnotationInterface::InitDummySubAnnots() {
  record("InitDummySubAnnots");
}
void qvLegacy::qvAnnotationInterface::ClearDummySubAnnots() noexcept {
  record("ClearDummySubAnnots");
}

namespace {

class Lifecycle : public ::testing::Test {
 protected:
  void SetUp() override {
    calls.clear();
    failingCall.clear();
    initCount = 0;
  }
};

Calls const INITIALISATION = {"increment",
                              "initializeQvSystem 2 false",
                              "initializeQvSceneGraph",
                              "initializeQvAnnotationLibrary false",
                              "InitDummySubAnnots",
                              "register qvCore.qvAnnotationView as view",
                              "register qvCore.qvAnnotationMetadata as metadata"};

Calls const TERMINATION = {"decrement",
                           "unregister qvCore.qvAnnotationView",
                           "unregister qvCore.qvAnnotationMetadata",
                           "terminateQvAnnotationLibrary",
                           "terminateQvSceneGraph",
                           "terminateQvSystem",
                           "ClearDummySubAnnots"};

TEST_F(Lifecycle, InitialisesThePlatformBeforeItRegistersItsFactories) {
  qv::initializeQvAnnotationLegacyLibrary();
  EXPECT_EQ(calls, INITIALISATION);
}

TEST_F(Lifecycle, TerminatesInReverseButClearsTheSharedListLast) {
  qv::initializeQvAnnotationLegacyLibrary();
  calls.clear();
  qv::terminateQvAnnotationLegacyLibrary();
  EXPECT_EQ(calls, TERMINATION);
}

TEST_F(Lifecycle, NestedCallsOnlyCount) {
  qv::initializeQvAnnotationLegacyLibrary();
  calls.clear();
  qv::initializeQvAnnotationLegacyLibrary();
  qv::terminateQvAnnotationLegacyLibrary();
  EXPECT_EQ(calls, (Calls{"increment", "decrement"}));
  calls.clear();
  qv::terminateQvAnnotationLegacyLibrary();
  EXPECT_EQ(calls, TERMINATION);
}

TEST_F(Lifecycle, TerminationWithoutInitialisationDoesNothing) {
  qv::terminateQvAnnotationLegacyLibrary();
  EXPECT_EQ(calls, Calls{"decrement"});
}

/// What undoes each call of the initialisation.
Calls const UNDOING = {"decrement",
                       "terminateQvSystem",
                       "terminateQvSceneGraph",
                       "terminateQvAnnotationLibrary",
                       "ClearDummySubAnnots",
                       "unregister qvCore.qvAnnotationView"};

TEST_F(Lifecycle, ExceptionUndoesWhatWasDoneAndGivesTheCountBack) {
  for (std::size_t failing = 1; failing < INITIALISATION.size(); ++failing) {
    SetUp();
    failingCall = INITIALISATION[failing];
    EXPECT_THROW(qv::initializeQvAnnotationLegacyLibrary(), std::runtime_error) << failingCall;
    auto const failingIndex = static_cast<std::ptrdiff_t>(failing);
    Calls expected(INITIALISATION.begin(), INITIALISATION.begin() + failingIndex + 1);
    expected.insert(expected.end(), UNDOING.rend() - failingIndex, UNDOING.rend());
    EXPECT_EQ(calls, expected) << failingCall;
    EXPECT_EQ(initCount, 0) << failingCall;
  }
}

TEST_F(Lifecycle, CanBeInitialisedAfterAFailedAttempt) {
  failingCall = "initializeQvSceneGraph";
  EXPECT_THROW(qv::initializeQvAnnotationLegacyLibrary(), std::runtime_error);
  SetUp();
  qv::initializeQvAnnotationLegacyLibrary();
  EXPECT_EQ(calls, INITIALISATION);
}

TEST(StaticObjects, AreTheCounterThenTheTypeRecordsOfMetadataAndView) {
  std::vector<std::string_view> own;
  for (std::size_t i = 0; i < constructedCount; ++i) {
    std::string_view const name = constructed[i];
    if (name == "annotationLegacy" || name.starts_with("qvCore.qvAnnotation")) own.push_back(name);
  }
  EXPECT_EQ(own, (std::vector<std::string_view>{"annotationLegacy", "qvCore.qvAnnotationMetaData",
                                                "qvCore.qvAnnotationView"}));
  EXPECT_TRUE(legacyCounterFlag);
}

}  // namespace
