#pragma once
// The process-wide container of the application's scene states. The import
// never reaches the scene states themselves; the plug-in keeps the container
// so that the application can install its own instance.

#include "TavrinAnimation/src/TavrinAnimationCollapsingGroup.h"

#include <memory>

namespace Tavrin {

class CTavrinSceneStatesContainer {
public:
    CTavrinSceneStatesContainer();
    CTavrinSceneStatesContainer(const CTavrinSceneStatesContainer&) = delete;
    CTavrinSceneStatesContainer& operator=(const CTavrinSceneStatesContainer&) = delete;
    ~CTavrinSceneStatesContainer();

    CTavrinAnimationCollapsingGroup* DefaultGroup() const { return m_defaultGroup.get(); }

    static CTavrinSceneStatesContainer* GetInstance();
    static void SetInstance(CTavrinSceneStatesContainer* instance);
    static CTavrinAnimationCollapsingGroup* CurrentGroup();

private:
    std::unique_ptr<CTavrinAnimationCollapsingGroup> m_defaultGroup;
};

} // namespace Tavrin
