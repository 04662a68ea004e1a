#pragma once

#include "annotationLegacy/export.h"

namespace qvAnnotationLegacy {

/// Version of the library. The texts are static and zero-terminated; the caller does not free them.
class QVA_EXPORT Version {
 public:
  static unsigned int GetMajor();     ///< 3: with another one hosts are compiled anew
  static unsigned int GetMinor();     ///< 0
  static unsigned int GetRelease();   ///< 0
  static unsigned int GetRevision();  ///< counts up from release to release
  static char const* GetCommitId();   ///< 16 hexadecimal digits
  static unsigned int GetYear();      ///< of the release
  static unsigned int GetMonth();     ///< of the release, 1 to 12

  /// "3.0"; the flag changes nothing.
  static char const* GetDescStringMajorMinor(bool);
  /// "3.0.0"; the flag changes nothing.
  static char const* GetDescStringMajorMinorRelease(bool);
  /// The first flag changes nothing; with `withCommitId` the commit id follows the revision.
  static char const* GetDescStringMajorMinorReleaseRevision(bool, bool withCommitId);
  /// Revision, commit id and date: "3.0.0.1297 #3d96f40405c8d0b4 2026-2".
  static char const* GetDescStringMajorMinorReleaseRevisionDate();

  static bool IsBeta();   ///< false
  static bool IsDebug();  ///< false, however the library is compiled
  static bool IsDev();    ///< false
};

}  // namespace qvAnnotationLegacy
