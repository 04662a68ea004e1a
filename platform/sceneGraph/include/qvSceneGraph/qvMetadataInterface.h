#pragma once

#include "qvSceneGraph/qvObject.h"

namespace qv {

/// Base of the metadata objects that are attached to a model, told apart by a type identifier.
class QV_EXPORT qvMetadataInterface : public qvObject {
 public:
  static qvRtti const TYPE;

  explicit qvMetadataInterface(unsigned int metadataTypeId);
  ~qvMetadataInterface() override;

  qvRtti const& GetType() const override;
  /// Reads the base object and the u32 metadata type.
  void Load(qvBaseStream& stream) override;
  /// True when `other` is a metadata object of exactly this type and the same metadata type.
  bool Equals(qvRttiInterface const* other) const override;
  /// Copies the base part into `target`; false when it is null or no metadata object.
  bool Clone(qvRttiInterface*& target) const override;

  unsigned int GetMetadataTypeId() const noexcept { return m_metadataTypeId; }

 protected:
  qvMetadataInterface(qvMetadataInterface const&) = default;
  qvMetadataInterface& operator=(qvMetadataInterface const&) = default;

 private:
  unsigned int m_metadataTypeId;
};

}  // namespace qv
