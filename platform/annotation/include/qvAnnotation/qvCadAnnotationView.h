#pragma once

#include <string>
#include <vector>

#include "qvAnnotation/qvCadAnnotation.h"
#include "qvSceneGraph/qvObject.h"
#include "wm4/vector3.h"

namespace qv {

/// A named view: a plane in model space and the CAD annotations that lie on it.
class QV_EXPORT qvCadAnnotationView : public qvObject {
 public:
  static qvRtti const TYPE;

  qvCadAnnotationView();
  ~qvCadAnnotationView() override;

  qvRtti const& GetType() const override;
  void SetName(std::string const& name) override;
  std::string const& GetName() const override;

  Wm4::Vector3<float> m_planeOrigin;  ///< (0, 0, 0) by default
  Wm4::Vector3<float> m_planeNormal;  ///< (0, 0, 1) by default
  Wm4::Vector3<float> m_planeXAxis;   ///< (1, 0, 0) by default
  std::vector<qvPointer<qvCadAnnotation>> m_annotations;

 private:
  std::string m_name;
};

}  // namespace qv
