#include "qvSceneGraph/qvMetadataInterface.h"

#include "qvSystem/qvBaseStream.h"

namespace qv {

qvRtti const qvMetadataInterface::TYPE("qvCore.qvMetadataInterface", &qvObject::TYPE);

qvMetadataInterface::qvMetadataInterface(unsigned int metadataTypeId) : m_metadataTypeId(metadataTypeId) {
}

qvMetadataInterface::~qvMetadataInterface() = default;

qvRtti const& qvMetadataInterface::GetType() const {
  return TYPE;
}

void qvMetadataInterface::Load(qvBaseStream& stream) {
  qvObject::Load(stream);
  stream.readle(4, 1, &m_metadataTypeId);
}

bool qvMetadataInterface::Equals(qvRttiInterface const* other) const {
  if (other == nullptr || !other->GetType().IsExactly(GetType())) return false;
  auto const* const metadata = dynamic_cast<qvMetadataInterface const*>(other);
  return metadata != nullptr && metadata->m_metadataTypeId == m_metadataTypeId;
}

bool qvMetadataInterface::Clone(qvRttiInterface*& target) const {
  auto* const metadata = dynamic_cast<qvMetadataInterface*>(target);
  if (metadata == nullptr || !qvObject::Clone(target)) return false;
  metadata->m_metadataTypeId = m_metadataTypeId;
  return true;
}

}  // namespace qv
