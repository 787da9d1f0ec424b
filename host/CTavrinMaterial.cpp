#include "host/CTavrinMaterial.h"

#include "host/CTavrinDocument.h"

namespace Tavrin {

void CTavrinTexture::SetFilename(CTavrinString fullFilename, bool systemSeparators)
{
    if (systemSeparators)
        fullFilename.ReplaceSlashWithSystemSlash();
    m_fullFilename = std::move(fullFilename);
}

CTavrinString CTavrinTexture::FullFilename(bool withExtension) const
{
    CTavrinString result = m_fullFilename;
    if (!withExtension)
        result.RemoveExt();
    return result;
}

CTavrinString CTavrinTexture::Filename() const
{
    CTavrinString result = m_fullFilename;
    result.RemovePath();
    return result;
}

namespace {

struct ValueInfo {
    const char* name;
    int components;
    double fallback;
};

constexpr ValueInfo valueInfos[] = {
#define TAVRIN_MATERIAL_INFO(name, components, fallback) {#name, components, fallback},
    TAVRIN_MATERIAL_VALUES(TAVRIN_MATERIAL_INFO)
#undef TAVRIN_MATERIAL_INFO
};

} // namespace

CTavrinMaterialValues::CTavrinMaterialValues()
{
    for (std::size_t i = 0; i < count; ++i)
        m_values[i].fill(valueInfos[i].fallback);
}

void CTavrinMaterialValues::Assign(enumMaterialValue value, double a, double b, double c)
{
    m_values[Index(value)] = {a, b, c};
    m_assigned.set(Index(value));
}

const char* CTavrinMaterialValues::Name(enumMaterialValue value)
{
    return valueInfos[Index(value)].name;
}

int CTavrinMaterialValues::Components(enumMaterialValue value)
{
    return valueInfos[Index(value)].components;
}

CTavrinBasicMaterial::CTavrinBasicMaterial() : DisplacementAmount(m_values, enumMaterialValue::DisplacementAmount)
{
}

template <class Material, class Texture>
std::vector<std::pair<const char*, Texture*>> CTavrinBasicMaterial::SlotsOf(Material& material)
{
    return {{"Texture", &material.m_texture},
            {"SpecularMap", &material.m_specularMap},
            {"OcclusionMap", &material.m_occlusionMap},
            {"ThicknessMap", &material.m_thicknessMap},
            {"RoughnessMap", &material.m_roughnessMap},
            {"EtaMap", &material.m_etaMap},
            {"NormalTexture", &material.NormalTexture},
            {"OpacityTexture", &material.OpacityTexture},
            {"DisplacementTexture", &material.DisplacementTexture},
            {"RoughnessTexture", &material.RoughnessTexture},
            {"MetalnessTexture", &material.MetalnessTexture},
            {"EmissionTexture", &material.EmissionTexture}};
}

std::vector<std::pair<const char*, const CTavrinTexture*>> CTavrinBasicMaterial::TextureSlots() const
{
    return SlotsOf<const CTavrinBasicMaterial, const CTavrinTexture>(*this);
}

std::vector<std::pair<const char*, CTavrinTexture*>> CTavrinBasicMaterial::EditableTextureSlots()
{
    return SlotsOf<CTavrinBasicMaterial, CTavrinTexture>(*this);
}

void CTavrinCommonBasicMaterial::SetColor(double r, double g, double b, double, bool)
{
    m_values.Assign(enumMaterialValue::Color, r, g, b);
}

void CTavrinCommonBasicMaterial::SetAlpha(double alpha, bool)
{
    m_values.Assign(enumMaterialValue::Alpha, alpha);
}

void CTavrinCommonBasicMaterial::SetRoughness(double roughness, bool)
{
    m_values.Assign(enumMaterialValue::Roughness, roughness);
}

void CTavrinCommonBasicMaterial::SetMetalness(double metalness, bool)
{
    m_values.Assign(enumMaterialValue::Metalness, metalness);
}

void CTavrinCommonBasicMaterial::SetEmission(double r, double g, double b, double, bool)
{
    m_values.Assign(enumMaterialValue::Emission, r, g, b);
}

void CTavrinCommonBasicMaterial::SetSpecular(double r, double g, double b, double, bool)
{
    m_values.Assign(enumMaterialValue::Specular, r, g, b);
}

void CTavrinCommonBasicMaterial::SetOcclusionStrength(double strength)
{
    m_values.Assign(enumMaterialValue::OcclusionStrength, strength);
}

void CTavrinCommonBasicMaterial::SetCoatThickness(double thickness)
{
    m_values.Assign(enumMaterialValue::CoatThickness, thickness);
}

void CTavrinCommonBasicMaterial::SetEta(double eta)
{
    m_values.Assign(enumMaterialValue::Eta, eta);
}

void CTavrinCommonBasicMaterial::SetTexture(const CTavrinTexture& texture, enumTextureType type)
{
    if (type == TEXTURE_TYPE_DIFFUSE)
        m_texture = texture;
}

CTavrinMaterial* CTavrinMaterial::Create(CTavrinDocument* document)
{
    return document ? document->Adopt(std::make_unique<CTavrinMaterial>()) : nullptr;
}

void CTavrinMaterial::LoadBasicMaterial(const CTavrinBasicMaterial* basicMaterial, bool)
{
    if (basicMaterial != m_basicMaterial.get())
        m_basicMaterial.reset(basicMaterial);
}

} // namespace Tavrin
