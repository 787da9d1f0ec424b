#include "TavrinAnimation/src/TavrinKeyFrameData.h"

#include "TavrinAnimation/src/TavrinKeyFrameDataHideShow.h"
#include "TavrinAnimation/src/TavrinKeyFrameDataLight.h"
#include "TavrinAnimation/src/TavrinKeyFrameDataMaterial.h"
#include "TavrinAnimation/src/TavrinKeyFrameDataMorph.h"
#include "TavrinAnimation/src/TavrinKeyFrameDataTransformBSplineFollower.h"
#include "TavrinAnimation/src/TavrinKeyFrameDataTransformRoundTable.h"
#include "TavrinAnimation/src/TavrinKeyFrameDataTransformSphericalCamera.h"
#include "TavrinAnimation/src/TavrinKeyFrameDataVertices.h"
#include "host/CTavrinApplicationServices.h"
#include "host/CTavrinLight.h"
#include "host/CTavrinMaterial.h"

namespace Tavrin {

CTavrinKeyFrameData* CreateKeyFrameData(const CTavrinID& entity, int type) {
    switch (type) {
    case KEYFRAME_TRANSFORM:
        return CTavrinKeyFrameDataTransform::Create(entity, CTavrinMatrix());
    case KEYFRAME_MATERIAL:
        return new CTavrinKeyFrameDataMaterial(entity, CTavrinBasicGeneralMaterial::Create());
    case KEYFRAME_CAMERA:
        return new CTavrinKeyFrameDataTransformCamera(entity, CTavrinBasicCamera());
    case KEYFRAME_VERTICES:
        return new CTavrinKeyFrameDataVertices(entity, CTavrinTablesCreator::getInstance()->CreateBasic3DVectorsTable());
    case KEYFRAME_LIGHT:
        return new CTavrinKeyFrameDataLight(entity, new CTavrinBasicPointLight());
    case KEYFRAME_ROUND_TABLE:
        return new CTavrinKeyFrameDataTransformRoundTable(entity, CTavrinMatrix());
    case KEYFRAME_BSPLINE_FOLLOWER:
        return new CTavrinKeyFrameDataTransformBSplineFollower(entity, CTavrinMatrix());
    case KEYFRAME_SPHERICAL_CAMERA:
        return new CTavrinKeyFrameDataTransformSphericalCamera(entity, CTavrinBasicCamera());
    case KEYFRAME_HIDE_SHOW:
        return new CTavrinKeyFrameDataHideShow(entity, true);
    case KEYFRAME_MORPH:
        return new CTavrinKeyFrameDataMorph(entity, CTavrinID(), 0.0);
    default:
        return nullptr;
    }
}

} // namespace Tavrin
