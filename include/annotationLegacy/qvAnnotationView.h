#pragma once

#include <string>
#include <vector>

#include "annotationLegacy/export.h"
#include "annotationLegacy/platform.h"
#include "annotationLegacy/qvAnnotationInterface.h"

namespace qvLegacy {

/// A named legacy view: a plane in model space and the annotations that lie on it, one reference held on
/// each.
///
/// The order of the virtual operations is part of the binary interface.
class QVA_EXPORT qvAnnotationView : public qv::qvObject {
 public:
  /// What `copyFrom` does with the annotations; any other value drops them, too.
  enum AnnotationCopyMode : int { ShareAnnotations = 0, CloneAnnotations = 1, DropAnnotations = 2 };

  static qv::qvRtti const TYPE;  ///< "qvCore.qvAnnotationView"

  qvAnnotationView();  ///< an empty view on the XY plane
  /// Default-constructs, then assigns.
  qvAnnotationView(qvAnnotationView const& other);
  /// Copies with `CloneAnnotations`; a null entry stays null.
  qvAnnotationView& operator=(qvAnnotationView const& other);
  ~qvAnnotationView() override;

  /// Copies name, plane and metadata, then the annotation list as `mode` says. On an exception the list stays
  /// as it was. Annotations of a kind that cannot be cloned are dropped from the copy.
  void copyFrom(qvAnnotationView const& other, AnnotationCopyMode mode);

  qv::qvRtti const& GetType() const override;  ///< `TYPE`
  /// Reads the view and appends its annotations. Failures go to the stream's error state; nothing is read
  /// below version 6.13.
  void Load(qv::qvBaseStream& stream) override;
  void PostLink() override;  ///< as the base
  /// Writes nothing; sets the stream error above version 6.26.
  void Save(qv::qvBaseStream& stream) const override;
  bool Equals(qv::qvRttiInterface const* other) const override;  ///< always false
  bool Clone(qv::qvRttiInterface*& target) const override;       ///< does nothing, always false
  qv::qvObject* GetObjectByName(
      std::string const& name) override;  ///< as the base: no annotation is searched
  /// As the base.
  void GetAllObjectsByName(std::string const& name, std::vector<qv::qvObject*>& objects) override;
  qv::qvObject* GetObjectByID(unsigned int id) override;  ///< as the base
  void SetName(std::string const& name) override;         ///< stores any text
  std::string const& GetName() const override;            ///< as stored

  /// Builds a view from a variant map. One message for each problem is appended to `errors`. Returns null
  /// when the view cannot be read.
  static qv::qvPointer<qvAnnotationView> FromVariantMap(qv::qvVariant::qvVariantMapImpl const& map,
                                                        std::vector<std::string>& errors);

  /// Moves the plane: the origin as a point, normal and X axis as vectors, neither renormalised. Annotations
  /// keep their coordinates, and so go along.
  void transform(qv::qvGenericTransformation<float> const& transformation);
  /// Writes the map from plane coordinates to model space: x along the X axis, y along normal x axis, z along
  /// the normal. Nothing is normalised or checked.
  void getPlaneTransform(qv::qvGenericTransformation<float>& out) const;

  /// Stream factory: a new view, loaded from the stream, whatever the load reported. The caller owns it.
  static qv::qvRttiInterface* Factory(qv::qvBaseStream& stream);
  /// For hosts that manage registration themselves: under the type record's name.
  static void RegisterFactory();
  /// Undoes `RegisterFactory`.
  static void UnRegisterFactory();

  std::string m_name;                                               ///< empty by default
  Wm4::Vector3<float> m_planeOrigin;                                ///< in model space; the origin by default
  Wm4::Vector3<float> m_planeNormal;                                ///< unit Z by default
  Wm4::Vector3<float> m_planeXAxis;                                 ///< unit X by default
  std::vector<qv::qvPointer<qvAnnotationInterface>> m_annotations;  ///< in order; empty by default
  qv::qvVariant::qvVariantMapImpl m_metadata;                       ///< of the user; empty by default
};

}  // namespace qvLegacy
