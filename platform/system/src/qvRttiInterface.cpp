#include "qvSystem/qvRttiInterface.h"

#include <map>
#include <mutex>

namespace qv {

namespace {

struct Registry {
  std::mutex m_mutex;
  std::map<std::string, qvRttiInterface::FactoryFunction> m_factories;
};

/// Made at first use and never destroyed: static objects of other libraries register and unregister in it
/// while they are loaded and unloaded.
Registry& registry() {
  static Registry& instance = *new Registry;
  return instance;
}

}  // namespace

qvRtti const qvRttiInterface::TYPE("qvCore.qvRttiInterface", nullptr);

std::string const qvRttiInterface::sEmptyString;

qvRttiInterface::~qvRttiInterface() = default;

void qvRttiInterface::RegisterFactoryFunction(std::string const& typeName, FactoryFunction factory) {
  Registry& all = registry();
  std::lock_guard const lock(all.m_mutex);
  all.m_factories.insert_or_assign(typeName, factory);
}

void qvRttiInterface::UnregisterFactoryFunction(std::string const& typeName) {
  Registry& all = registry();
  std::lock_guard const lock(all.m_mutex);
  all.m_factories.erase(typeName);
}

qvRttiInterface::FactoryFunction qvRttiInterface::FindFactoryFunction(std::string const& typeName) {
  Registry& all = registry();
  std::lock_guard const lock(all.m_mutex);
  auto const found = all.m_factories.find(typeName);
  return found == all.m_factories.end() ? nullptr : found->second;
}

}  // namespace qv
