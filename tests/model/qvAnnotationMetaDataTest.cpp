#include "annotationLegacy/qvAnnotationMetaData.h"

#include <qvSystem/qvMemoryStream.h>

#include "modelTest.h"

namespace {

using namespace qvLegacy;
using namespace qvLegacy::test;
using ViewPointer = qv::qvPointer<qvAnnotationView>;
using MetadataPointer = qv::qvPointer<qvAnnotationMetaData>;

class AnnotationMetaData : public ModelTest {};
class AnnotationMetaDataClone : public ModelTest {};

ViewPointer newView(std::string const& name) {
  ViewPointer view(new qvAnnotationView);
  view->m_name = name;
  view->m_annotations.emplace_back(newText(name));
  return view;
}

MetadataPointer newMetadata(std::vector<std::string> const& viewNames) {
  MetadataPointer metadata(new qvAnnotationMetaData);
  for (auto const& name : viewNames) metadata->editViews().push_back(newView(name));
  return metadata;
}

std::vector<std::string> namesOfViews(qvAnnotationMetaData const& metadata) {
  std::vector<std::string> names;
  for (auto const& view : metadata.getViews()) names.push_back(view == nullptr ? "null" : view->GetName());
  return names;
}

using Names = std::vector<std::string>;

TEST_F(AnnotationMetaData, ReadsAndEditsTheSameViews) {
  MetadataPointer const metadata = newMetadata({"a"});
  EXPECT_EQ(&metadata->getViews(), &metadata->editViews());
  EXPECT_EQ(&metadata->getViews(), &metadata->m_views);
}

TEST_F(AnnotationMetaData, HasNoNameWhateverIsSet) {
  MetadataPointer const metadata = newMetadata({});
  metadata->SetName("ignored");
  EXPECT_EQ(metadata->GetName(), "");
  EXPECT_EQ(&metadata->GetName(), &qv::qvRttiInterface::sEmptyString);
}

TEST_F(AnnotationMetaData, SavesNothingAndMarksStreamsAbove612) {
  qvAnnotationMetaData const metadata;
  qv::qvMemoryStream older({}, 0x6000C);
  metadata.Save(older);
  EXPECT_FALSE(older.hasStreamError());
  qv::qvMemoryStream newer({}, 0x6000D);
  metadata.Save(newer);
  EXPECT_TRUE(newer.hasStreamError());
}

TEST_F(AnnotationMetaData, AssignmentCopiesViewsDeeplyAndReleasesTheOldOnes) {
  MetadataPointer const source = newMetadata({"a", "b"});
  MetadataPointer const target = newMetadata({"old"});
  ViewPointer const old = target->m_views[0];
  *target = *source;
  EXPECT_EQ(namesOfViews(*target), (Names{"a", "b"}));
  EXPECT_EQ(old->GetReferences(), 1);
  EXPECT_NE(target->m_views[0], source->m_views[0]);
  EXPECT_EQ(target->m_views[0]->GetReferences(), 1);
  EXPECT_NE(target->m_views[0]->m_annotations[0], source->m_views[0]->m_annotations[0]);
  EXPECT_EQ(textOf(target->m_views[0]->m_annotations[0]), "a");
}

TEST_F(AnnotationMetaData, AssignmentKeepsNullViewsNull) {
  MetadataPointer const source = newMetadata({"a"});
  source->m_views.emplace_back();
  qvAnnotationMetaData const copy(*source);
  EXPECT_EQ(namesOfViews(copy), (Names{"a", "null"}));
}

TEST_F(AnnotationMetaData, AssignmentToItselfChangesNothing) {
  MetadataPointer const metadata = newMetadata({"a"});
  auto const before = metadata->m_views;
  qvAnnotationMetaData const& same = *metadata;
  *metadata = same;
  EXPECT_EQ(metadata->m_views, before);
}

TEST_F(AnnotationMetaData, ReleasesTheWholeTreeWithItsLastReference) {
  MetadataPointer metadata = newMetadata({"a"});
  ViewPointer const view = metadata->m_views[0];
  metadata = nullptr;
  EXPECT_EQ(view->GetReferences(), 1);
}

TEST_F(AnnotationMetaData, ForwardsTheRestToItsBase) {
  MetadataPointer const metadata = newMetadata({"a"});
  MetadataPointer const other = newMetadata({});
  EXPECT_EQ(metadata->Equals(other), metadata->qvMetadataInterface::Equals(other));
  EXPECT_FALSE(metadata->Equals(nullptr));
  EXPECT_EQ(metadata->GetObjectByID(metadata->GetID()), metadata);
  EXPECT_EQ(metadata->GetObjectByName("a"), nullptr) << "views are not looked at";
  std::vector<qv::qvObject*> found;
  metadata->GetAllObjectsByName("a", found);
  EXPECT_TRUE(found.empty());
  metadata->PostLink();
}

TEST_F(AnnotationMetaDataClone, IntoNothingMakesAnObjectWithTheViewsAndAsManyEmptyOnes) {
  MetadataPointer const source = newMetadata({"a", "b", "c"});
  qv::qvRttiInterface* made = nullptr;
  EXPECT_TRUE(source->Clone(made));
  ASSERT_NE(made, nullptr);
  MetadataPointer const target(dynamic_cast<qvAnnotationMetaData*>(made));
  EXPECT_EQ(namesOfViews(*target), (Names{"a", "b", "c", "", "", ""}));
  for (std::size_t i = 0; i < 3; ++i) {
    EXPECT_EQ(target->m_views[i], source->m_views[i]);
    EXPECT_EQ(target->m_views[i]->GetReferences(), 2);
    EXPECT_EQ(target->m_views[i + 3]->GetReferences(), 1);
    EXPECT_TRUE(target->m_views[i + 3]->m_annotations.empty());
  }
}

TEST_F(AnnotationMetaDataClone, IntoAnotherReplacesItsViews) {
  MetadataPointer const source = newMetadata({"a"});
  MetadataPointer const target = newMetadata({"x", "y"});
  qv::qvRttiInterface* object = target;
  EXPECT_TRUE(source->Clone(object));
  EXPECT_EQ(object, static_cast<qv::qvRttiInterface*>(target));
  EXPECT_EQ(namesOfViews(*target), (Names{"a", ""}));
}

TEST_F(AnnotationMetaDataClone, OfOneWithoutViewsHasNone) {
  MetadataPointer const source = newMetadata({});
  MetadataPointer const target = newMetadata({"x"});
  qv::qvRttiInterface* object = target;
  EXPECT_TRUE(source->Clone(object));
  EXPECT_TRUE(target->m_views.empty());
}

TEST_F(AnnotationMetaDataClone, IntoAnObjectOfAnotherTypeIsRefused) {
  MetadataPointer const source = newMetadata({"a"});
  ViewPointer const view = newView("view");
  qv::qvRttiInterface* target = view;
  EXPECT_FALSE(source->Clone(target));
  EXPECT_EQ(target, static_cast<qv::qvRttiInterface*>(view));
  EXPECT_EQ(view->GetName(), "view");
  EXPECT_EQ(view->m_annotations.size(), 1U);
}

TEST_F(AnnotationMetaDataClone, IntoItselfActsAsIfTheListHadBeenCopiedFirst) {
  MetadataPointer const metadata = newMetadata({"a", "b"});
  qv::qvRttiInterface* target = metadata;
  EXPECT_TRUE(metadata->Clone(target));
  EXPECT_EQ(namesOfViews(*metadata), (Names{"a", "b", "", ""}));
}

TEST_F(AnnotationMetaDataClone, AppendsADefaultViewForANullEntry) {
  MetadataPointer const source = newMetadata({"a"});
  source->m_views.emplace_back();
  qvAnnotationMetaData target;
  qv::qvRttiInterface* object = &target;
  EXPECT_TRUE(source->Clone(object));
  EXPECT_EQ(namesOfViews(target), (Names{"a", "null", "", ""}));
}

}  // namespace
