#include "annotationLegacy/version.h"

namespace qvAnnotationLegacy {

unsigned int Version::GetMajor() {
  return 3;
}
unsigned int Version::GetMinor() {
  return 0;
}
unsigned int Version::GetRelease() {
  return 0;
}
unsigned int Version::GetRevision() {
  return 1297;
}
char const* Version::GetCommitId() {
  return "3d96f40405c8d0b4";
}
unsigned int Version::GetYear() {
  return 2026;
}
unsigned int Version::GetMonth() {
  return 2;
}

char const* Version::GetDescStringMajorMinor(bool) {
  return "3.0";
}
char const* Version::GetDescStringMajorMinorRelease(bool) {
  return "3.0.0";
}

char const* Version::GetDescStringMajorMinorReleaseRevision(bool, bool withCommitId) {
  return withCommitId ? "3.0.0.1297 #3d96f40405c8d0b4" : "3.0.0.1297";
}

char const* Version::GetDescStringMajorMinorReleaseRevisionDate() {
  return "3.0.0.1297 #3d96f40405c8d0b4 2026-2";
}

// KEEP: these state how the version was published, not how this build was made.
bool Version::IsBeta() {
  return false;
}
bool Version::IsDebug() {
  return false;
}
bool Version::IsDev() {
  return false;
}

}  // namespace qvAnnotationLegacy
