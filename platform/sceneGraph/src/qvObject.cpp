#include "qvSceneGraph/qvObject.h"

#include <algorithm>
#include <atomic>

#include "countedString.h"
#include "qvSystem/qvAllocator.h"
#include "qvSystem/qvBaseStream.h"
#include "qvSystem/qvLog.h"
#include "qvSystem/qvSystemUtils.h"

namespace qv {

namespace {

std::atomic<std::size_t> liveObjects{0};
std::atomic<unsigned int> lastId{0};

}  // namespace

qvRtti const qvObject::TYPE("qvCore.qvObject", &qvRttiInterface::TYPE);

qvObject::qvObject() : m_id(++lastId) {
  ++liveObjects;
}

qvObject::qvObject(qvObject const&) : qvObject() {
}

qvObject::~qvObject() {
  --liveObjects;
}

std::size_t qvObject::GetLiveObjects() noexcept {
  return liveObjects;
}

void* qvObject::operator new(std::size_t size) {
  return AllocateDocumentMemory(size);
}

void qvObject::operator delete(void* memory) noexcept {
  FreeDocumentMemory(memory);
}

qvRtti const& qvObject::GetType() const {
  return TYPE;
}

void qvObject::IncrementReferences() {
  ++m_references;
}

// An object that nobody refers to stays: only the loss of the last reference deletes.
void qvObject::DecrementReferences() {
  if (m_references > 0 && --m_references == 0) delete this;
}

int qvObject::GetReferences() const {
  return m_references;
}

void qvObject::Load(qvBaseStream& stream) {
  SetName(impl::readCountedString(stream));
}

void qvObject::PostLink() {
}

void qvObject::Save(qvBaseStream& stream) const {
  stream.setStreamError();
}

bool qvObject::Equals(qvRttiInterface const* other) const {
  if (other == nullptr || !other->GetType().IsExactly(GetType())) return false;
  auto const* const object = dynamic_cast<qvObject const*>(other);
  return object != nullptr && object->GetName() == GetName();
}

bool qvObject::Clone(qvRttiInterface*& target) const {
  auto* const object = dynamic_cast<qvObject*>(target);
  if (object == nullptr) return false;
  if (object != this) object->SetName(GetName());
  return true;
}

int qvObject::GetControllerQuantity() const {
  return m_controllers ? static_cast<int>(m_controllers->size()) : 0;
}

qvController* qvObject::GetController(int index) const {
  if (index < 0 || index >= GetControllerQuantity()) return nullptr;
  return (*m_controllers)[static_cast<std::size_t>(index)].get();
}

void qvObject::SetControllerQuantity(int quantity) {
  if (!m_controllers) m_controllers = std::make_unique<std::vector<qvPointer<qvController>>>();
  m_controllers->resize(static_cast<std::size_t>(std::max(quantity, 0)));
}

void qvObject::SetController(int index, qvController* controller) {
  if (index < 0 || index >= GetControllerQuantity()) return;
  (*m_controllers)[static_cast<std::size_t>(index)] = controller;
}

void qvObject::AttachController(qvController* controller) {
  if (controller == nullptr) return;
  if (!m_controllers) m_controllers = std::make_unique<std::vector<qvPointer<qvController>>>();
  m_controllers->emplace_back(controller);
}

void qvObject::DetachController(qvController* controller) {
  if (!m_controllers) return;
  auto const found = std::ranges::find(*m_controllers, controller, &qvPointer<qvController>::get);
  if (found != m_controllers->end()) m_controllers->erase(found);
}

void qvObject::DetachAllControllers() {
  m_controllers.reset();
}

qvObject* qvObject::GetObjectByName(std::string const& name) {
  return GetName() == name ? this : nullptr;
}

void qvObject::GetAllObjectsByName(std::string const& name, std::vector<qvObject*>& objects) {
  if (GetName() == name) objects.push_back(this);
}

qvObject* qvObject::GetObjectByID(unsigned int id) {
  return m_id == id ? this : nullptr;
}

void qvObject::SetName(std::string const&) {
}

std::string const& qvObject::GetName() const {
  return sEmptyString;
}

void qvObject::debugObject(int depth) const {
  qvLog* const log = qvLog::msInstance;
  if (log == nullptr || !log->IsTypeEnabled(qvLogDebug)) return;
  char const* const typeName = GetType().GetName();
  qvLog::LogEntry entry;
  entry.m_type = qvLogDebug;
  entry.m_time = qvSystemUtils::GetMSecElapsedSinceEpoch();
  entry.m_text.assign(static_cast<std::size_t>(std::max(depth, 0)) * 2, ' ');
  entry.m_text += typeName == nullptr ? "(unnamed type)" : typeName;
  entry.m_text +=
      " id " + std::to_string(m_id) + " name '" + GetName() + "' references " + std::to_string(m_references);
  entry.computeLogPrefix(true);
  log->Write(entry, false);
}

}  // namespace qv
