#include "TavrinAnimation/src/TavrinSceneStatesContainer.h"

#include "TavrinAnimation/src/TavrinProcessWideInstance.h"

namespace Tavrin {

namespace {
CTavrinAnimationCollapsingGroup* s_currentSceneStatesGroup = nullptr;
} // namespace

CTavrinSceneStatesContainer::CTavrinSceneStatesContainer()
    : m_defaultGroup(std::make_unique<CTavrinAnimationCollapsingGroup>(CTavrinUUID(), CTavrinString("Default"), -1)) {
    s_currentSceneStatesGroup = m_defaultGroup.get();
}

CTavrinSceneStatesContainer::~CTavrinSceneStatesContainer() {
    if (s_currentSceneStatesGroup == m_defaultGroup.get())
        s_currentSceneStatesGroup = nullptr;
}

CTavrinSceneStatesContainer* CTavrinSceneStatesContainer::GetInstance() {
    return CTavrinProcessWideInstance<CTavrinSceneStatesContainer>::Get();
}

void CTavrinSceneStatesContainer::SetInstance(CTavrinSceneStatesContainer* instance) {
    CTavrinProcessWideInstance<CTavrinSceneStatesContainer>::Set(instance);
}

CTavrinAnimationCollapsingGroup* CTavrinSceneStatesContainer::CurrentGroup() {
    return s_currentSceneStatesGroup;
}

} // namespace Tavrin
