#pragma once

#include "annotationLegacy/export.h"
#include "annotationLegacy/platform.h"

namespace qv {

/// Affine transform of 3D space: p -> L p + t, points and vectors being columns.
///
/// The linear part L is `m_matrix` diag(`m_scale`) while the matrix is a rotation (`IsRSMatrix`), else
/// `m_matrix` alone; the scale of a general matrix is kept but has no effect. Three flags choose short cuts.
/// They are a cache: only the operations that say so change them, and no getter recomputes them, so a write
/// through the non-const `GetRotate` or to a field shows in the flags only after `recomputeIsIdentity`.
///
/// "The identity rule": the translation equals zero and the scale equals one as numbers (-0 equals +0, NaN
/// equals nothing), and the matrix is the identity bit for bit (an entry of -0 makes the transform no
/// identity).
///
/// Exists for float and double; every formula is compiled in the library alone, so that the compiler flags of
/// a host change no bit of a result. Nothing here throws or reports failure. A plain value: copied member by
/// member, safe to read from several threads.
template <class Real>
class QVA_EXPORT qvGenericTransformation {
 public:
  using Vector3 = Wm4::Vector3<Real>;  ///< a point, a vector, or three scales
  using Matrix3 = Wm4::Matrix3<Real>;  ///< a linear part, row-major
  using Matrix4 = Wm4::Matrix4<Real>;  ///< a homogeneous matrix, row-major
  using Plane3 = Wm4::Plane3<Real>;    ///< the points X with N X = c

  /// The identity, all three flags set.
  qvGenericTransformation() noexcept = default;

  /// Back to the default state, all three flags set.
  void MakeIdentity() noexcept;
  /// Scale (1, 1, 1), uniform. Touches no other flag: a transform that becomes the identity only through this
  /// operation goes on to report `IsIdentity` false until another setter recomputes it.
  void MakeUnitScale() noexcept;

  // Setters. Each stores its value and recomputes the identity flag by the identity rule.

  /// Stores a rotation, which is not checked: the scale applies from now on. Whether it is uniform stays as
  /// it was.
  void SetRotate(Matrix3 const& rotation) noexcept;
  /// Stores a general linear part: the scale has no effect from now on and does not count as uniform.
  void SetMatrix(Matrix3 const& matrix) noexcept;
  /// Stores the translation.
  void SetTranslate(Vector3 const& translation) noexcept;
  /// The scale is uniform exactly when x == y and x == z as numbers, so never with a NaN. Under a general
  /// matrix the scale is stored without effect until `SetRotate`.
  void SetScale(Vector3 const& scale) noexcept;
  /// (scale, scale, scale), uniform even for a NaN. Under a general matrix as with `SetScale`.
  void SetUniformScale(Real scale) noexcept;
  /// Recomputes the identity flag after a direct write to the fields.
  void recomputeIsIdentity() noexcept;

  // Getters.

  /// The matrix, whether it is a rotation or general.
  Matrix3 const& GetRotate() const noexcept { return m_matrix; }
  /// For direct writes; follow them by `recomputeIsIdentity`.
  Matrix3& GetRotate() noexcept { return m_matrix; }
  Matrix3 const& GetMatrix() const noexcept { return m_matrix; }        ///< the same matrix
  Vector3 const& GetTranslate() const noexcept { return m_translate; }  ///< as stored
  Vector3 const& GetScale() const noexcept { return m_scale; }          ///< as stored, used or not
  /// The x component of the scale, whatever the other two hold.
  Real GetUniformScale() const noexcept { return m_scale[0]; }
  bool IsIdentity() const noexcept { return m_isIdentity; }  ///< the flag
  bool IsRSMatrix() const noexcept { return m_isRSMatrix; }  ///< the flag: a rotation with scale
  /// False whenever the matrix is general, whatever the scale flag says.
  bool IsUniformScale() const noexcept { return m_isRSMatrix && m_isUniformScale; }

  // Queries.

  /// True when all fifteen stored numbers are finite, used or not.
  bool IsFinite() const noexcept;
  /// For a rotation with a scale other than +-1 on every axis the largest absolute scale, else the largest
  /// absolute row sum of the matrix (so between 1 and sqrt 3 for a pure rotation).
  Real GetNorm() const noexcept;
  /// The 4x4 matrix in the row-vector convention, the transpose of the usual form: L transposed in the upper
  /// left, the translation in the last row.
  void GetHomogeneous(Matrix4& out) const noexcept;
  /// Matrix by bits (-0 differs from +0, a NaN equals its own bits), translation and scale as numbers, flags
  /// all three.
  bool operator==(qvGenericTransformation const& other) const noexcept;
  /// Tolerant: each matrix entry within 1e-6, translations and scales at a squared distance below 1e-6.
  /// Ignores the flags; compares the scales even of general matrices. False with a NaN.
  bool Equals(qvGenericTransformation const& other) const noexcept;

  // Maps of geometry. Under an identity flag every one but `ApplyNormal` returns its input unchanged.

  /// L p, plus the translation on demand.
  Vector3 ApplyForward(Vector3 const& point, bool withTranslation) const noexcept;
  /// The same for `count` points, with the same bits (a NaN may be another NaN). `count` <= 0 touches
  /// nothing. `out` may be `in`; ranges that overlap otherwise are treated point by point in ascending order.
  void ApplyForward(int count, Vector3 const* in, Vector3* out, bool withTranslation) const noexcept;
  /// L^-1 (p - t), or L^-1 p without the flag. A general matrix that counts as singular (see `Inverse`) gives
  /// (0, 0, 0), a zero uniform scale (MAX_REAL, MAX_REAL, MAX_REAL), a zero component of another scale
  /// infinities or NaN. A rotation is inverted by transposition.
  Vector3 ApplyInverse(Vector3 const& point, bool withTranslation) const noexcept;
  /// L^-1 (p - t) for `count` points; there is no way to keep the translation. Bits, counts and overlaps are
  /// as with `ApplyForward`, except that a zero uniform scale gives infinities or NaN here.
  void ApplyInverse(int count, Vector3 const* in, Vector3* out) const noexcept;
  /// L^-1 v, as `ApplyInverse` without translation.
  Vector3 InvertVector(Vector3 const& vector) const noexcept;
  /// The image of a plane N X = c. The normal comes out normalised, except under a rotation with uniform
  /// scale, where it keeps its length. Zero lengths and zero scales are not guarded: infinities or NaN.
  Plane3 ApplyForward(Plane3 const& plane) const noexcept;
  /// The unit image of a normal under the inverse transpose of L; (0, 0, 0) when it has no length or none
  /// that is finite to divide by. Normalises under the identity, too.
  Vector3 ApplyNormal(Vector3 const& normal) const noexcept;

  // Composition. Operands may be this object: they are read as if copied before.

  /// Sets this to a after b. Stays a rotation with scale where the fields can hold it, else becomes general
  /// with scale (1, 1, 1). A non-uniform scale without rotation after a rotation with uniform scale stays a
  /// rotation with scale, although that is not the true composition.
  void Product(qvGenericTransformation const& a, qvGenericTransformation const& b) noexcept;
  /// Writes the inverse to `out`. A rotation whose scales differ in size gives a general matrix; one whose
  /// scales differ in sign only stays a proper rotation with scale. A general matrix counts as singular when
  /// its determinant is 0, and when the determinant is below ZERO_TOLERANCE and not close to +-1, so with
  /// nearly all negative determinants; its inverse is then the zero matrix.
  void Inverse(qvGenericTransformation& out) const noexcept;
  /// Decomposes a 4x4 matrix; its perspective part is ignored. `transposed` reads the layout that
  /// `GetHomogeneous` writes, otherwise the column-vector convention. Columns that are orthogonal within 1e-6
  /// give a rotation with scale (a reflection goes into the x scale), others a general matrix; a translation
  /// shorter than 1e-3 is dropped and what lies within 1e-6 of the identity becomes exactly the identity.
  void FromHomogeneousMatrix(Matrix4 const& matrix, bool transposed) noexcept;

  Matrix3 m_matrix = Matrix3::IDENTITY;  ///< the rotation, or the general linear part
  Vector3 m_translate;                   ///< added after the linear part
  Vector3 m_scale = Vector3::ONE;  ///< applied before the rotation; without effect under a general matrix
  bool m_isIdentity = true;        ///< the transform is exactly the identity
  bool m_isRSMatrix = true;        ///< `m_matrix` is a rotation and `m_scale` applies
  bool m_isUniformScale = true;    ///< the three scales are equal
};

extern template class qvGenericTransformation<float>;
extern template class qvGenericTransformation<double>;

}  // namespace qv
