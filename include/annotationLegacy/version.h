#pragma once

#include "annotationLegacy/export.h"

namespace qvAnnotationLegacy {

/// Version of the library. The texts are static and zero-terminated; the caller does not free them.
class QVA_EXPORT Version {
 public:
  static unsigned int GetMajor();
  static unsigned int GetMinor();
  static unsigned int GetRelease();
  static unsigned int GetRevision();
  static char const* GetCommitId();
  static unsigned int GetYear();
  static unsigned int GetMonth();

  /// "3.0"; the flag changes nothing.
  static char const* GetDescStringMajorMinor(bool);
  /// "3.0.0"; the flag changes nothing.
  static char const* GetDescStringMajorMinorRelease(bool);
  /// The first flag changes nothing; with `withCommitId` the commit id follows the revision.
  static char const* GetDescStringMajorMinorReleaseRevision(bool, bool withCommitId);
  static char const* GetDescStringMajorMinorReleaseRevisionDate();

  static bool IsBeta();
  static bool IsDebug();
  static bool IsDev();
};

}  // namespace qvAnnotationLegacy
