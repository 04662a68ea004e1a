#pragma once

#include <string>

#include "qvSystem/export.h"
#include "qvSystem/qvRtti.h"

namespace qv {

class qvBaseStream;

/// Root of everything that the object stream can create: run-time type, reference count, persistence
/// protocol.
///
/// The order of the virtual operations is part of the binary interface.
class QV_EXPORT qvRttiInterface {
 public:
  /// Creates an object of one class, loads it from the stream and returns it, owned by the caller.
  using FactoryFunction = qvRttiInterface* (*)(qvBaseStream&);

  static qvRtti const TYPE;
  /// The empty string that nameless objects return from `GetName`.
  static std::string const sEmptyString;

  virtual ~qvRttiInterface();

  /// The type record of the object's class.
  virtual qvRtti const& GetType() const = 0;

  /// Intrusive reference counting: the object deletes itself when the count falls to zero. A new object has
  /// the count 0. Counts are not atomic: an object belongs to one thread at a time.
  virtual void IncrementReferences() = 0;
  virtual void DecrementReferences() = 0;
  virtual int GetReferences() const = 0;

  /// Reads the object's record; failures go to the stream's error state.
  virtual void Load(qvBaseStream& stream) = 0;
  /// Runs once on each object of a document after all links between objects are resolved.
  virtual void PostLink() = 0;
  /// Writes the object's record; failures go to the stream's error state.
  virtual void Save(qvBaseStream& stream) const = 0;
  /// True when `other` is of the same type and holds the same values.
  virtual bool Equals(qvRttiInterface const* other) const = 0;
  /// Copies this object into `target`, creating it when null; false when it cannot.
  virtual bool Clone(qvRttiInterface*& target) const = 0;

  /// Makes `factory` answer for `typeName` in object streams; a second registration replaces the first.
  static void RegisterFactoryFunction(std::string const& typeName, FactoryFunction factory);
  /// Forgets `typeName`; an unknown name is ignored.
  static void UnregisterFactoryFunction(std::string const& typeName);
  /// The factory registered under `typeName`, or null.
  static FactoryFunction FindFactoryFunction(std::string const& typeName);
};

}  // namespace qv
