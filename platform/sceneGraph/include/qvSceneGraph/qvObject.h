#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "qvSceneGraph/qvPointer.h"
#include "qvSystem/export.h"
#include "qvSystem/qvRttiInterface.h"

namespace qv {

class qvController;

/// Base of the scene graph's objects: reference count, identifier, optional controllers.
///
/// The order of the virtual operations is part of the binary interface.
class QV_EXPORT qvObject : public qvRttiInterface {
 public:
  static qvRtti const TYPE;

  ~qvObject() override;

  qvRtti const& GetType() const override;
  void IncrementReferences() override;
  void DecrementReferences() override;
  int GetReferences() const override;

  /// Reads a counted string and hands it to the virtual `SetName`.
  void Load(qvBaseStream& stream) override;
  void PostLink() override;
  /// Not supported by the bundled stream, which only reads: sets the stream's error state.
  void Save(qvBaseStream& stream) const override;
  /// True when `other` is an object of exactly this type with the same name.
  bool Equals(qvRttiInterface const* other) const override;
  /// Copies the name into `target`, which must be a `qvObject`; false when it is null or of another type.
  bool Clone(qvRttiInterface*& target) const override;

  /// Controllers animate an object; the object holds one reference on each.
  virtual int GetControllerQuantity() const;
  /// The controller at `index`, null when out of range.
  virtual qvController* GetController(int index) const;
  /// Resizes the list; new entries are null.
  virtual void SetControllerQuantity(int quantity);
  virtual void SetController(int index, qvController* controller);
  virtual void AttachController(qvController* controller);
  virtual void DetachController(qvController* controller);
  virtual void DetachAllControllers();

  /// Look-up in the object and what it owns. The base looks at itself only.
  virtual qvObject* GetObjectByName(std::string const& name);
  virtual void GetAllObjectsByName(std::string const& name, std::vector<qvObject*>& objects);
  virtual qvObject* GetObjectByID(unsigned int id);

  /// The base keeps no name: classes that have one override both.
  virtual void SetName(std::string const& name);
  virtual std::string const& GetName() const;

  /// Writes one line about the object to the process log, indented by `depth`.
  virtual void debugObject(int depth) const;

  /// Identifier of the object, unique within the process.
  unsigned int GetID() const noexcept { return m_id; }

  /// Number of objects alive in the process.
  static std::size_t GetLiveObjects() noexcept;

  static void* operator new(std::size_t size);
  static void operator delete(void* memory) noexcept;

 protected:
  qvObject();
  /// A copy is a new object: own identifier, no references, no controllers.
  qvObject(qvObject const&);
  qvObject& operator=(qvObject const&) { return *this; }

 private:
  int m_references = 0;
  unsigned int m_id;
  std::unique_ptr<std::vector<qvPointer<qvController>>> m_controllers;
};

/// An object that animates another one.
class QV_EXPORT qvController : public qvObject {
 public:
  static qvRtti const TYPE;
  qvController();
  ~qvController() override;
  qvRtti const& GetType() const override;
};

}  // namespace qv
