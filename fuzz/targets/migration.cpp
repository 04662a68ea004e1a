/// The migration alone, over models with every oddity that a reader lets through.

#include "annotationLegacy/qvAnnotationMigration.h"
#include "qvAnnotation/qvCadAnnotationView.h"
#include "support/modelFromInput.h"
#include "support/target.h"
#include "tests/support/modelComparison.h"

namespace qvFuzz {

namespace {

/// Stands in for the process log. A record is written by its destructor, where an exhausted heap ends the
/// process by design: so none is written where allocations fail by plan.
class Log : public qv::qvLog {
 public:
  Log() : m_previous(std::exchange(msInstance, this)) {
    SetTypeEnabled(qv::qvLogError, !MemoryFaults::arePlanned());
  }
  ~Log() override { msInstance = m_previous; }

  void Write(LogEntry& entry, bool) override { m_hasText |= !entry.m_text.empty(); }

  bool m_hasText = false;

 private:
  qv::qvLog* m_previous;
};

bool deliverRaster(std::string const& name, std::string& data, void*) {
  FaultPause const pause;  // it must not throw
  data = "data of " + name;
  return name.size() != 1;
}

}  // namespace

void runTarget(InputCursor& input) {
  int const options = input.takeByte() % 8;
  float const headSize = input.takeReal();
  auto const view = takeView(input);
  qvLegacy::qvAnnotationView const before(*view);
  Log const log;
  qvLegacy::qvAnnotationMigration migration(options, &deliverRaster, nullptr, headSize);
  qv::qvPointer<qv::qvCadAnnotationView> result;
  bool const isMigrated = migration.migrateAnnotationView(view, result);
  require(isMigrated == (result != nullptr), "the result is there on success only");
  require(isMigrated || log.m_hasText || MemoryFaults::arePlanned(), "a failure has a reason");
  qvLegacy::qvAnnotationView const after(*view);
  requireNone(qvStreamTest::findDifference(after, before), "the migration leaves its source alone");
}

}  // namespace qvFuzz
