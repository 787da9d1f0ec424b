#include <algorithm>
#include <string>

#include "host/CTavrinMaterial.h"
#include "usdreader/CTavrinUSDReaderHandler.h"

PXR_NAMESPACE_USING_DIRECTIVE

namespace Tavrin {

namespace {

using BasicMaterial = CTavrinBasicGeneralMaterial;

// One row per shader input the host understands: where a connected texture
// goes, and where an authored value goes (a colour, a scalar, or nowhere).
struct PreviewSurfaceInput {
    const char* name;
    void (*applyTexture)(BasicMaterial& material, const CTavrinTexture& texture);
    void (*applyColor)(BasicMaterial& material, const GfVec3f& color);
    void (*applyScalar)(BasicMaterial& material, float value);
};

// Colours go to the host with full intensity; values are taken as authored,
// except that a displacement never pulls the surface in.
const PreviewSurfaceInput previewSurfaceInputs[] = {
    {"diffuseColor",
     [](BasicMaterial& m, const CTavrinTexture& t) { m.SetTexture(t, TEXTURE_TYPE_DIFFUSE); },
     [](BasicMaterial& m, const GfVec3f& c) { m.SetColor(c[0], c[1], c[2], 1.0, true); }, nullptr},
    {"normal", [](BasicMaterial& m, const CTavrinTexture& t) { m.NormalTexture = t; }, nullptr, nullptr},
    {"opacity", [](BasicMaterial& m, const CTavrinTexture& t) { m.OpacityTexture = t; }, nullptr,
     [](BasicMaterial& m, float v) { m.SetAlpha(v, true); }},
    {"displacement", [](BasicMaterial& m, const CTavrinTexture& t) { m.DisplacementTexture = t; }, nullptr,
     [](BasicMaterial& m, float v) { m.DisplacementAmount = std::max(static_cast<double>(v), 0.0); }},
    {"roughness", [](BasicMaterial& m, const CTavrinTexture& t) { m.RoughnessTexture = t; }, nullptr,
     [](BasicMaterial& m, float v) { m.SetRoughness(v, true); }},
    {"metallic", [](BasicMaterial& m, const CTavrinTexture& t) { m.MetalnessTexture = t; }, nullptr,
     [](BasicMaterial& m, float v) { m.SetMetalness(v, true); }},
    {"emissiveColor", [](BasicMaterial& m, const CTavrinTexture& t) { m.EmissionTexture = t; },
     [](BasicMaterial& m, const GfVec3f& c) { m.SetEmission(c[0], c[1], c[2], 1.0, true); }, nullptr},
    {"specularColor", [](BasicMaterial& m, const CTavrinTexture& t) { m.SetSpecularMap(t); },
     [](BasicMaterial& m, const GfVec3f& c) { m.SetSpecular(c[0], c[1], c[2], 1.0, true); }, nullptr},
    {"occlusion", [](BasicMaterial& m, const CTavrinTexture& t) { m.SetOcclusionMap(t); }, nullptr,
     [](BasicMaterial& m, float v) { m.SetOcclusionStrength(v); }},
    {"clearcoat", [](BasicMaterial& m, const CTavrinTexture& t) { m.SetThicknessMap(t); }, nullptr,
     [](BasicMaterial& m, float v) { m.SetCoatThickness(v); }},
    {"clearcoatRoughness", [](BasicMaterial& m, const CTavrinTexture& t) { m.SetRoughnessMap(t); }, nullptr,
     [](BasicMaterial& m, float v) { m.SetRoughness(v, true); }},
    {"ior", [](BasicMaterial& m, const CTavrinTexture& t) { m.SetEtaMap(t); }, nullptr,
     [](BasicMaterial& m, float v) { m.SetEta(v); }},
};

const PreviewSurfaceInput* FindPreviewSurfaceInput(const std::string& baseName)
{
    for (const PreviewSurfaceInput& input : previewSurfaceInputs) {
        if (baseName == input.name)
            return &input;
    }
    return nullptr;
}

// Only a value authored at the default time counts: time samples and bare
// connections give none, and a value of another type fails to read.
void ApplyAuthoredValue(const PreviewSurfaceInput& row, const UsdShadeInput& input, BasicMaterial& material)
{
    if (row.applyColor) {
        GfVec3f color;
        if (input.Get(&color, UsdTimeCode::Default()))
            row.applyColor(material, color);
    } else if (row.applyScalar) {
        float value = 0.0f;
        if (input.Get(&value, UsdTimeCode::Default()))
            row.applyScalar(material, value);
    }
}

bool IsInputAttribute(const UsdShadeInput& input)
{
    return input.GetAttr() && UsdShadeInput::IsInput(input.GetAttr());
}

} // namespace

// Whatever shader feeds the surface is read by these rules, whatever its
// identifier says. Several shaders, and several inputs aimed at the same host
// value, simply overwrite each other in the order USD lists them.
void CTavrinUSDReaderHandler::ReadPreviewSurface(const UsdShadeMaterial& material, CTavrinBasicGeneralMaterial* basicMaterial)
{
    const UsdShadeOutput surface = material.GetOutput(UsdShadeTokens->surface);
    SdfPathVector sourcePaths;
    if (surface && surface.GetRawConnectedSourcePaths(&sourcePaths)) {
        for (const SdfPath& sourcePath : sourcePaths) {
            const UsdShadeShader shader = UsdShadeShader::Get(stage, sourcePath.GetPrimPath());
            if (!shader)
                continue;
            for (const UsdShadeInput& input : shader.GetInputs()) {
                // A texture is read (and copied) for every connected input,
                // recognised or not: it may name the mesh's UV primvar.
                CTavrinTexture texture;
                UsdShadeConnectableAPI source;
                TfToken sourceName;
                UsdShadeAttributeType sourceType;
                if (input.GetConnectedSource(&source, &sourceName, &sourceType)) {
                    if (const UsdShadeShader textureShader = UsdShadeShader::Get(stage, source.GetPath()))
                        texture = ReadTexture(textureShader);
                }

                const TfToken baseName = input.GetBaseName();
                const PreviewSurfaceInput* row = FindPreviewSurfaceInput(baseName.GetString());
                if (!row)
                    continue;
                if (!texture.IsEmpty())
                    row->applyTexture(*basicMaterial, texture);
                ApplyAuthoredValue(*row, shader.GetInput(baseName), *basicMaterial);
            }
        }
    }

    // The material's own UV primvar name comes last: a primvar reader found
    // through a texture is more specific and wins.
    if (stPrimvarName.IsEmpty()) {
        const UsdShadeInput frameInput = material.GetInput(TfToken("frame:stPrimvarName"));
        if (IsInputAttribute(frameInput))
            frameInput.Get(&stPrimvarName, UsdTimeCode::Default());
    }
}

} // namespace Tavrin
