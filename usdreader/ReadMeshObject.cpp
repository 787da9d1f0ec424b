#include "host/CTavrinGeometry.h"
#include "host/CTavrinMaterial.h"
#include "usdreader/CTavrinUSDReaderHandler.h"

PXR_NAMESPACE_USING_DIRECTIVE

namespace Tavrin {

namespace {

// Display colour and opacity reduce to the first authored value: indices and
// interpolation of the primvars are not looked at, so per-face or per-vertex
// colours become one colour for the whole mesh.
void ReadDisplayColor(const UsdGeomMesh& mesh, CTavrinBasicGeneralMaterial* basicMaterial)
{
    VtVec3fArray colors;
    if (mesh.GetDisplayColorPrimvar().GetAttr().Get(&colors, UsdTimeCode::Default()) && !colors.empty()) {
        const GfVec3f& color = colors[0];
        basicMaterial->SetColor(color[0], color[1], color[2], 1.0, true);
    }
    VtFloatArray opacities;
    if (mesh.GetDisplayOpacityPrimvar().GetAttr().Get(&opacities, UsdTimeCode::Default()) &&
        !opacities.empty())
        basicMaterial->SetAlpha(opacities[0], true);
}

} // namespace

// Skeleton first (the joints must exist when the skin weights are read),
// then the material, then the geometry. Subsets only lend the mesh a
// material; the mesh is never split by subset.
void CTavrinUSDReaderHandler::ReadMeshObject(const UsdGeomMesh& mesh, CTavrin3DObject* node)
{
    if (!node)
        return;
    const UsdPrim prim = mesh.GetPrim();
    ReadSkeletonBinding(prim);

    CTavrinMaterial* material = CTavrinMaterial::Create(document);
    CTavrinBasicGeneralMaterial* basicMaterial = CTavrinBasicGeneralMaterial::Create();
    // Written before the bound material is read, whose values override it.
    ReadDisplayColor(mesh, basicMaterial);

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

    CTavrinGeometry* geometry = CTavrinGeometry::Create(document);
    ReadMeshGeometry(mesh, geometry, node);
    node->SetGeometry(geometry);
    // The coordinate primvar's name belongs to this mesh alone.
    stPrimvarName = TfToken();
}

} // namespace Tavrin
