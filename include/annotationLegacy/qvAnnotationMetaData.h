#pragma once

#include <string>
#include <vector>

#include "annotationLegacy/export.h"
#include "annotationLegacy/platform.h"
#include "annotationLegacy/qvAnnotationView.h"

namespace qvLegacy {

/// The metadata object attached to a model: it owns the model's legacy views, one reference held on each.
///
/// The order of the virtual operations is part of the binary interface.
class QVA_EXPORT qvAnnotationMetaData : public qv::qvMetadataInterface {
 public:
  static qv::qvRtti const TYPE;                  ///< "qvCore.qvAnnotationMetaData"
  static unsigned int const MetadataTypeId = 5;  ///< tells it from other metadata; persisted

  qvAnnotationMetaData();  ///< without views
  /// Default-constructs, then assigns.
  qvAnnotationMetaData(qvAnnotationMetaData const& other);
  /// Replaces the views by deep copies; a null entry stays null.
  qvAnnotationMetaData& operator=(qvAnnotationMetaData const& other);
  ~qvAnnotationMetaData() override;

  /// The views, in document order; an entry may be null.
  std::vector<qv::qvPointer<qvAnnotationView>> const& getViews() const { return m_views; }
  /// The same list for editing.
  std::vector<qv::qvPointer<qvAnnotationView>>& editViews() { return m_views; }

  qv::qvRtti const& GetType() const override;  ///< `TYPE`
  /// Reads the base part and the references to the views, which stay null until the stream has loaded them.
  /// The views from before are released. Failures go to the stream's error state.
  void Load(qv::qvBaseStream& stream) override;
  void PostLink() override;  ///< as the base
  /// Writes nothing; sets the stream error above version 6.12.
  void Save(qv::qvBaseStream& stream) const override;
  bool Equals(qv::qvRttiInterface const* other) const override;  ///< as the base: the views are not compared
  /// Shares the views with `target`, then appends one default view for each. False when `target` is of
  /// another type.
  bool Clone(qv::qvRttiInterface*& target) const override;
  qv::qvObject* GetObjectByName(
      std::string const& name) override;  ///< as the base: the views are not searched
  /// As the base.
  void GetAllObjectsByName(std::string const& name, std::vector<qv::qvObject*>& objects) override;
  qv::qvObject* GetObjectByID(unsigned int id) override;  ///< as the base
  void SetName(std::string const& name) override;         ///< does nothing: metadata objects are nameless
  std::string const& GetName() const override;            ///< the platform's shared empty string

  /// Stream factory: a new object, loaded from the stream, whatever the load reported. The caller owns it.
  static qv::qvRttiInterface* Factory(qv::qvBaseStream& stream);
  /// For hosts that manage registration themselves: under the type record's name, which differs in one
  /// letter's case from the name that the library's initialisation registers.
  static void RegisterFactory();
  /// Undoes `RegisterFactory`.
  static void UnRegisterFactory();

  std::vector<qv::qvPointer<qvAnnotationView>> m_views;  ///< in document order; an entry may be null
};

}  // namespace qvLegacy
