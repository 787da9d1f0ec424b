#include "usdcore/usdGeom/mesh.h"

PXR_NAMESPACE_OPEN_SCOPE

const float UsdGeomMesh::SHARPNESS_INFINITE = 10.0f;

const TfToken& UsdGeomMesh::_GetStaticTypeName()
{
    static const TfToken name("Mesh");
    return name;
}

PXR_NAMESPACE_CLOSE_SCOPE
