#include "annotationLegacy/qvAnnotationMigration.h"
#include "migration/fail.h"
#include "rules/knownMetadata.h"
#include "rules/migrationMessages.h"

namespace qvLegacy {

bool qvAnnotationMigration::screenMetadata(qvAnnotationInterface const& annotation) const {
  for (auto const& [key, value] : annotation.m_metadata) {
    bool const known = rules::isKnownMetadataKey(key);
    if (known && (m_options & DropKnownMetadata) == 0) {
      // KEEP: no blank after the key. Whoever searches logs knows the text as it is.
      return migration::fail(rules::migrationMessages::knownMetadata.text + key + "in annotation");
    }
    if (!known && (m_options & DropUnknownMetadata) == 0) {
      return migration::fail(rules::migrationMessages::unknownMetadata.text + key + " in annotation");
    }
  }
  return true;
}

}  // namespace qvLegacy
