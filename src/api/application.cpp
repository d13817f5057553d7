#include "api/application.h"

#include <limits>
#include <stdexcept>

namespace tabvex {

namespace {

constexpr int kHandleStep = 4;

CApplication g_Application; // built when the library is loaded, destroyed when it is unloaded

} // namespace

CApplication& Application() {
    return g_Application;
}

int CMifRegistry::Create() {
    if (m_nLastHandle > std::numeric_limits<int>::max() - kHandleStep) {
        throw std::length_error("handles");
    }
    const int handle = m_nLastHandle + kHandleStep;
    std::list<CMifInstance> created;
    created.emplace_back(handle);
    m_ByHandle.emplace(handle, created.begin());
    m_Instances.splice(m_Instances.end(), created); // the iterator stays good
    m_nLastHandle = handle;
    return handle;
}

void CMifRegistry::Destroy(int handle) {
    if (const CMifInstance* instance = Find(handle)) {
        const auto found = m_ByHandle.find(instance->nHandle);
        m_Instances.erase(found->second);
        m_ByHandle.erase(found);
    }
}

CMifInstance* CMifRegistry::Find(int handle) {
    if (m_Instances.empty()) {
        return nullptr;
    }
    const auto found = m_ByHandle.find(handle);
    return found == m_ByHandle.end() ? &m_Instances.back() : &*found->second;
}

} // namespace tabvex
