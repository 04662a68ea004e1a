#pragma once

#include <cstdint>
#include <list>
#include <memory>
#include <string>
#include <vector>

#include "annotationLegacy/export.h"
#include "annotationLegacy/modelAllocator.h"
#include "annotationLegacy/platform.h"

namespace qvLegacy {

/// Common base of the legacy annotations: name, leaders, measure leaders, position, colour, frame, metadata
/// and the tree of sub-annotations.
///
/// Positions are kept as persisted: coordinates in the plane of the view that holds the annotation, x along
/// its X axis, y along normal x axis, z along the normal. They are places in the model by way of that plane,
/// whose `getPlaneTransform` maps them to model space. Annotations are counted objects; they are never
/// created by a stream factory but read inline by their owner, and they report the type record of
/// `qv::qvObject`. The order of the virtual operations is part of the binary interface.
class QVA_EXPORT qvAnnotationInterface : public qv::qvObject {
 public:
  /// Kind of an annotation. The numbers are persisted.
  enum Type : std::uint8_t { Unknown = 0, Text = 1, Raster = 2 };

  /// What is drawn at the end of a leader. The numbers are persisted.
  enum LeaderHead : std::uint8_t {
    NoHead = 0,
    SquareHead = 1,
    CircleHead = 2,
    ArrowHead = 3,
    PlusHead = 4,
    CrossHead = 5,
    TriangleHead = 6,
  };

  /// Which way the two arrows of a measure leader point. The numbers are persisted.
  enum MeasureArrowDirection : std::uint8_t { NoDirection = 0, OutOut = 1, InOut = 2, OutIn = 3 };

  /// Where a sub-annotation sits on its parent: the edge first, then the position along it. The numbers are
  /// persisted.
  enum AnchorLocation : std::uint32_t {
    Free = 0,
    BottomLeft = 1,
    BottomCenter = 2,
    BottomRight = 3,
    TopLeft = 4,
    TopCenter = 5,
    TopRight = 6,
    LeftBottom = 7,
    LeftCenter = 8,
    LeftTop = 9,
    RightBottom = 10,
    RightCenter = 11,
    RightTop = 12,
  };

  /// Shape of the frame, the low four bits of the style byte. The numbers are persisted.
  enum FrameShape : std::uint8_t {
    NoFrame = 0,
    Rectangle = 1,
    Square = 2,
    Diamond = 3,
    Triangle = 4,
    FlagRight = 5,
    FlagLeft = 6,
    FlagBoth = 7,
    Parallelogram = 8,
    Hexagon = 9,
    Pentagon = 10,
    Circle = 11,
    Oblong = 12,
    OblongLeft = 13,
    OblongRight = 14,
    NoShape = 15,
  };

  /// Parts of the style byte.
  enum StyleBits : std::uint8_t {
    FrameShapeMask = 0x0F,
    IgnoreZTest = 0x20,
    ScaleLocked = 0x40,
    FrameLocked = 0x80,
  };

  /// One leader line.
  struct QVA_EXPORT Leader {
    Leader();                                              ///< to the origin, without head
    explicit Leader(Wm4::Vector3<float> const& position);  ///< without head

    /// Reads one record; fields that the stream's version does not hold keep their values.
    void load(qv::qvBaseStream& stream);
    /// Reads one element of a "leaders" list; false when it has the wrong form.
    bool loadFromVariant(qv::qvVariant const& value, qv::qvStreamVersion const& version);

    Wm4::Vector3<float> m_position;  ///< point to which the leader runs, in view coordinates
    std::uint8_t m_head = NoHead;    ///< `LeaderHead`; other values are kept as read
  };

  /// One measure (dimension) leader.
  struct QVA_EXPORT MeasureLeader {
    MeasureLeader();  ///< both points at the origin, the offset unit X

    /// Reads one record; fields that the stream's version does not hold keep their values.
    void load(qv::qvBaseStream& stream);
    /// Reads one element of a "measures" list; false when it has the wrong form.
    bool loadFromVariant(qv::qvVariant const& value, qv::qvStreamVersion const& version);

    Wm4::Vector3<float> m_pointA;  ///< first measured point, in view coordinates
    Wm4::Vector3<float> m_pointB;  ///< second measured point, in view coordinates
    Wm4::Vector3<float> m_offset;  ///< from the measured points to the dimension line; unit X by default
    std::uint8_t m_arrowDir = NoDirection;  ///< `MeasureArrowDirection`; other values are kept as read
  };

  /// One node of the child list.
  struct QVA_EXPORT SubAnnot {
    SubAnnot();  ///< no child, bottom left

    qv::qvPointer<qvAnnotationInterface> m_annot;  ///< the child; may be null
    std::uint32_t m_anchor = BottomLeft;  ///< `AnchorLocation`; others are kept as read, and never migrated
  };

  /// A child list, in order.
  using SubAnnotList = std::list<SubAnnot, impl::ModelAllocator<SubAnnot>>;

  /// An annotation of this kind with the defaults of the fields.
  explicit qvAnnotationInterface(Type type);
  /// Takes the source's kind, then assigns.
  qvAnnotationInterface(qvAnnotationInterface const& other);
  /// Copies everything but the kind. Text and raster children are copied deeply, children of another kind are
  /// shared, null children stay null. The source may be a descendant of the target.
  qvAnnotationInterface& operator=(qvAnnotationInterface const& other);
  /// Releases the children without recursion, however deep the tree is.
  ~qvAnnotationInterface() override;

  void SetName(std::string const& name) override;  ///< stores any text
  std::string const& GetName() const override;     ///< as stored

  /// Reads the shared record of all kinds. Failures go to the stream's error state. A name that the stream
  /// cuts short has its announced length and, where nothing was read, the characters of the name before.
  virtual void load(qv::qvBaseStream& stream);
  /// Reads the keys that all kinds share and appends to what the object holds, so a fresh object is expected.
  /// One message for each problem is appended to `errors`; false when the annotation is not usable.
  virtual bool loadFromVariant(qv::qvVariant::qvVariantMapImpl const& map, qv::qvStreamVersion const& version,
                               std::vector<std::string>& errors);

  /// A deep copy, owned by the caller and without references; null for a kind other than text and raster.
  qvAnnotationInterface* cloneAnnotation() const;

  /// The children; the shared empty list when there are none. Not to be called outside the library's
  /// initialised span.
  SubAnnotList const& getSubAnnots() const;
  /// Number of children, null ones included.
  std::uint32_t getSubAnnotsCount() const;
  /// The children for editing; creates the list.
  SubAnnotList& editSubAnnots();
  /// Releases one reference on each child, in list order, and drops the list.
  void removeSubAnnots() noexcept;

  /// Creates the list that annotations without children share. The library's initialisation calls it.
  static void InitDummySubAnnots();
  /// Destroys that list. The library's termination calls it.
  static void ClearDummySubAnnots() noexcept;

  /// Gives each measure leader's offset the length of the projection of the annotation's position on it,
  /// measured from the leader's first point. A zero offset stays zero.
  void recomputeOffsetVectorLength();

  /// Applies `transformation`, which is in the coordinates of the positions, to the annotation's own
  /// geometry: to position, leaders and measured points as points, to offsets of measure leaders as vectors.
  /// Children are not visited. What moves the view's plane moves the annotation with it.
  void transform(qv::qvGenericTransformation<float> const& transformation);

  std::vector<Leader> m_leaders;          ///< in order; empty by default
  std::vector<MeasureLeader> m_measures;  ///< in order; empty by default
  /// In view coordinates, the origin by default. A free child's is an offset from its parent's; that of a
  /// child with another anchor places nothing.
  Wm4::Vector3<float> m_position;
  Wm4::Vector3<unsigned char> m_color;         ///< red, green, blue; white by default
  std::string m_name;                          ///< empty by default
  qv::qvVariant::qvVariantMapImpl m_metadata;  ///< of the user; empty by default
  std::unique_ptr<SubAnnotList> m_subAnnots;   ///< null until something edits it
  std::uint8_t m_type;                         ///< `Type`; other values are kept
  std::uint8_t m_style = Rectangle;            ///< frame shape and `StyleBits`

 private:
  QVA_HIDDEN void appendCopiesOfChildren(qvAnnotationInterface const& other);

  QVA_HIDDEN static SubAnnotList* ms_dummySubAnnots;
};

}  // namespace qvLegacy
