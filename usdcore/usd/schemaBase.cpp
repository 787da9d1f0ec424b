#include "usdcore/usd/schemaBase.h"

#include "usdcore/tf/diagnostic.h"
#include "usdcore/usd/stage.h"

PXR_NAMESPACE_OPEN_SCOPE

UsdPrim Usd_SchemaGetPrim(const UsdStagePtr& stage, const SdfPath& path)
{
    if (!stage) {
        TF_CODING_ERROR("Invalid stage");
        return UsdPrim();
    }
    return stage->GetPrimAtPath(path);
}

PXR_NAMESPACE_CLOSE_SCOPE
