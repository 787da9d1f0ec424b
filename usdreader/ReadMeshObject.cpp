#include "host/CTavrinGeometry.h"
#include "host/CTavrinMaterial.h"
#include "usdreader/CTavrinUSDReaderHandler.h"

PXR_NAMESPACE_USING_DIRECTIVE

namespace Tavrin {

namespace {

// Display colour and opacity reduce to the first authored value: indices and
// interpolation of the primvars are not looked at, so per-face or per-vertex
// colours become one colour for the whole mesh.
void ReadDisplayColor(const UsdGeomGprim& gprim, CTavrinBasicGeneralMaterial* basicMaterial)
{
    VtVec3fArray colors;
    if (gprim.GetDisplayColorPrimvar().GetAttr().Get(&colors, UsdTimeCode::Default()) && !colors.empty()) {
        const GfVec3f& color = colors[0];
        basicMaterial->SetColor(color[0], color[1], color[2], 1.0, true);
    }
    VtFloatArray opacities;
    if (gprim.GetDisplayOpacityPrimvar().GetAttr().Get(&opacities, UsdTimeCode::Default()) &&
        !opacities.empty())
        basicMaterial->SetAlpha(opacities[0], true);
}

} // namespace

// Subsets only lend the object a material; the object is never split by
// subset.
void CTavrinUSDReaderHandler::ReadObjectMaterial(const UsdGeomGprim& gprim, CTavrin3DObject* node)
{
    const UsdPrim prim = gprim.GetPrim();
    CTavrinMaterial* material = CTavrinMaterial::Create(document);
    CTavrinBasicGeneralMaterial* basicMaterial = CTavrinBasicGeneralMaterial::Create();
    // Written before the bound material is read, whose values override it.
    ReadDisplayColor(gprim, basicMaterial);

    CTavrinString materialName;
    if (!ReadMaterialBinding(prim, basicMaterial, &materialName)) {
        for (const UsdPrim& child : prim.GetChildren()) {
            if (UsdGeomSubset::Get(stage, child.GetPath()) &&
                ReadMaterialBinding(child, basicMaterial, &materialName))
                break;
        }
    }
    material->SetName(materialName);
    material->LoadBasicMaterial(basicMaterial, false);
    node->SetMaterial(material);
}

// Skeleton first (the joints must exist when the skin weights are read),
// then the material, then the geometry.
void CTavrinUSDReaderHandler::ReadMeshObject(const UsdGeomMesh& mesh, CTavrin3DObject* node)
{
    if (!node)
        return;
    ReadSkeletonBinding(mesh.GetPrim());
    ReadObjectMaterial(mesh, node);

    CTavrinGeometry* geometry = CTavrinGeometry::Create(document);
    ReadMeshGeometry(mesh, geometry, node);
    node->SetGeometry(geometry);
    // The coordinate primvar's name belongs to this mesh alone.
    stPrimvarName = TfToken();
}

} // namespace Tavrin
