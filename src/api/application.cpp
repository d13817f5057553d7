#include "api/application.h"

namespace tabvex {

namespace {

constexpr int kHandleStep = 4;

CApplication g_Application; // built when the library is loaded, destroyed when it is unloaded

} // namespace

CApplication& Application() {
    return g_Application;
}

int CMifRegistry::Create() {
    const int handle = m_nLastHandle + kHandleStep;
    m_Instances.emplace_hint(m_Instances.end(), handle, std::make_unique<CMifInstance>(handle));
    m_nLastHandle = handle;
    return handle;
}

void CMifRegistry::Destroy(int handle) {
    if (const CMifInstance* instance = Find(handle)) {
        m_Instances.erase(instance->nHandle);
    }
}

CMifInstance* CMifRegistry::Find(int handle) {
    if (m_Instances.empty()) {
        return nullptr;
    }
    const auto found = m_Instances.find(handle);
    return (found == m_Instances.end() ? m_Instances.rbegin()->second : found->second).get();
}

} // namespace tabvex
