#pragma once

#include <memory>
#include <vector>

#include "qvSvg/itemInterface.h"

namespace qv::svg {

/// A group of items, drawn in list order, the first at the back.
class QV_EXPORT Node : public ItemInterface {
 public:
  using Children = std::vector<std::shared_ptr<ItemInterface>>;

  Node();
  ~Node() override;

  ItemKind getKind() const noexcept override;
  Children& editChildren() noexcept { return m_children; }
  Children const& getChildren() const noexcept { return m_children; }

 private:
  Children m_children;
};

}  // namespace qv::svg
