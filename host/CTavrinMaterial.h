#pragma once

#include <array>
#include <bitset>
#include <memory>
#include <utility>
#include <vector>

#include "host/CTavrinEntity.h"
#include "host/CTavrinTexture.h"

namespace Tavrin {

class CTavrin3DObject;
class CTavrinDocument;

// The values a basic material's setters assign: name, number of components
// and the host's default. One list serves storage, recording and the JSON.
#define TAVRIN_MATERIAL_VALUES(X)             \
    X(Color, 3, 0.8)                          \
    X(Alpha, 1, 1.0)                          \
    X(Roughness, 1, 0.5)                      \
    X(Metalness, 1, 0.0)                      \
    X(Emission, 3, 0.0)                       \
    X(Specular, 3, 1.0)                       \
    X(OcclusionStrength, 1, 1.0)              \
    X(CoatThickness, 1, 0.0)                  \
    X(Eta, 1, 1.5)                            \
    X(DisplacementAmount, 1, 0.0)

enum class enumMaterialValue {
#define TAVRIN_MATERIAL_ENUM(name, components, fallback) name,
    TAVRIN_MATERIAL_VALUES(TAVRIN_MATERIAL_ENUM)
#undef TAVRIN_MATERIAL_ENUM
    Count
};

enum enumTextureType {
    TEXTURE_TYPE_NONE = 0,
    TEXTURE_TYPE_DIFFUSE = 1,
};

// Records which values were assigned, so a document tells what the import
// did. Entries: for each value, the last assignment, or its default.
class CTavrinMaterialValues {
public:
    CTavrinMaterialValues();
    void Assign(enumMaterialValue value, double a, double b = 0.0, double c = 0.0);
    bool WasAssigned(enumMaterialValue value) const { return m_assigned[Index(value)]; }
    const std::array<double, 3>& Value(enumMaterialValue value) const { return m_values[Index(value)]; }

    static const char* Name(enumMaterialValue value);
    static int Components(enumMaterialValue value);

private:
    static std::size_t Index(enumMaterialValue value) { return static_cast<std::size_t>(value); }
    static constexpr std::size_t count = static_cast<std::size_t>(enumMaterialValue::Count);
    std::array<std::array<double, 3>, count> m_values;
    std::bitset<count> m_assigned;
};

// A double member that remembers whether it was ever assigned.
class CTavrinRecordedDouble {
public:
    CTavrinRecordedDouble(CTavrinMaterialValues& values, enumMaterialValue which) : m_values(values), m_which(which) {}
    CTavrinRecordedDouble(const CTavrinRecordedDouble&) = delete;
    CTavrinRecordedDouble& operator=(const CTavrinRecordedDouble& other) { return *this = double(other); }
    CTavrinRecordedDouble& operator=(double value)
    {
        m_values.Assign(m_which, value);
        return *this;
    }
    operator double() const { return m_values.Value(m_which)[0]; }

private:
    CTavrinMaterialValues& m_values;
    enumMaterialValue m_which;
};

// The host's basic material: values set through its setters and texture
// maps, six of which the importer assigns directly.
class CTavrinBasicMaterial : public CTavrinDataMembersManager {
public:
    CTavrinBasicMaterial();
    CTavrinBasicMaterial(const CTavrinBasicMaterial&) = delete;
    CTavrinBasicMaterial& operator=(const CTavrinBasicMaterial&) = delete;

    CTavrinTexture NormalTexture;
    CTavrinTexture OpacityTexture;
    CTavrinTexture DisplacementTexture;
    CTavrinTexture RoughnessTexture;
    CTavrinTexture MetalnessTexture;
    CTavrinTexture EmissionTexture;
    CTavrinRecordedDouble DisplacementAmount;

    const CTavrinMaterialValues& Values() const { return m_values; }
    // Every texture slot by its name, in a fixed order, empty ones included.
    std::vector<std::pair<const char*, const CTavrinTexture*>> TextureSlots() const;

    // The name under which archives store the kind, to make it again.
    virtual CTavrinString TypeName() const;
    // A new basic material of the kind that typeName names, or null.
    static CTavrinBasicMaterial* CreateBasicMaterial(const CTavrinString& typeName);
    static void Destroy(const CTavrinBasicMaterial* material);
    // A new material of the same kind with the same name, values and textures.
    CTavrinBasicMaterial* CreateCopy() const;
    // A new general material between a (t = 0) and b (t = 1): the values
    // that either assigned component by component, the textures and the name
    // of the nearer one.
    static CTavrinBasicMaterial* Interpolate(const CTavrinBasicMaterial& a, const CTavrinBasicMaterial& b,
                                             double t);

    // "Name", then every value of the material, colours as colour members
    // and single values as doubles; an edit assigns the value.
    void* DataMemberSearch(int index, enumDataMemberType& type, CTavrinString& name, bool changed) override;
    // The material's own record: its members as described at the archive's
    // version, in member order.
    bool ReadFromArchive(CTavrinArchiveBase* archive) override;
    bool WriteIntoArchive(CTavrinArchiveBase* archive) override;
    // The part every kind shares: the texture file names in slot order.
    bool ReadWriteGeneralPart(CTavrinArchiveBase& archive);
    void TakeGeneralPart(const CTavrinBasicMaterial& other);

protected:
    CTavrinMaterialValues m_values;
    CTavrinTexture m_texture;
    CTavrinTexture m_specularMap;
    CTavrinTexture m_occlusionMap;
    CTavrinTexture m_thicknessMap;
    CTavrinTexture m_roughnessMap;
    CTavrinTexture m_etaMap;

private:
    std::vector<std::pair<const char*, CTavrinTexture*>> EditableTextureSlots();
    // Both lists of slots, from one table.
    template <class Material, class Texture>
    static std::vector<std::pair<const char*, Texture*>> SlotsOf(Material& material);

    // What the value members show and edits land in before they are assigned.
    static constexpr std::size_t valueCount = static_cast<std::size_t>(enumMaterialValue::Count);
    std::array<CTavrinColor, valueCount> m_colourEdits;
    std::array<double, valueCount> m_numberEdits{};
};

// The setter interface of basic materials. The fourth number of the colours
// is an intensity the importer always passes as 1.0, and the flags ask the
// host to refresh dependent values; neither changes what is recorded.
class CTavrinCommonBasicMaterial : public CTavrinBasicMaterial {
public:
    void SetColor(double r, double g, double b, double intensity, bool refresh);
    void SetAlpha(double alpha, bool refresh);
    void SetRoughness(double roughness, bool refresh);
    void SetMetalness(double metalness, bool refresh);
    void SetEmission(double r, double g, double b, double intensity, bool refresh);
    void SetSpecular(double r, double g, double b, double intensity, bool refresh);
    void SetOcclusionStrength(double strength);
    void SetCoatThickness(double thickness);
    void SetEta(double eta);
    // Only the diffuse type (1) has a slot; other types are ignored.
    void SetTexture(const CTavrinTexture& texture, enumTextureType type);
    void SetSpecularMap(const CTavrinTexture& texture) { m_specularMap = texture; }
    void SetOcclusionMap(const CTavrinTexture& texture) { m_occlusionMap = texture; }
    void SetThicknessMap(const CTavrinTexture& texture) { m_thicknessMap = texture; }
    void SetRoughnessMap(const CTavrinTexture& texture) { m_roughnessMap = texture; }
    void SetEtaMap(const CTavrinTexture& texture) { m_etaMap = texture; }
};

class CTavrinBasicGeneralMaterial : public CTavrinCommonBasicMaterial {
public:
    // A new basic material with the host's defaults, owned by the caller
    // until a material loads it.
    static CTavrinBasicGeneralMaterial* Create() { return new CTavrinBasicGeneralMaterial(); }
    CTavrinString TypeName() const override;
};

class CTavrinMaterial : public CTavrinEntity {
public:
    static CTavrinMaterial* Create(CTavrinDocument* document);
    enumEntityType EntityType() const override { return ENTITY_MATERIAL; }

    // Takes over the basic material, ownership included. The flag asks the
    // host to rebuild previews, which this model has none of.
    void LoadBasicMaterial(const CTavrinBasicMaterial* basicMaterial, bool refreshPreview);
    const CTavrinBasicMaterial* BasicMaterial() const { return m_basicMaterial.get(); }
    // Loads a copy of source (nothing when its kind cannot be made again).
    void ReplaceWith(const CTavrinBasicMaterial& source);
    // Materials made only to show a blend stay out of the application's
    // material lists.
    void MarkAsHidden(bool hidden) { m_hidden = hidden; }
    bool IsHidden() const { return m_hidden; }
    // The 3D objects of the document drawn with this material.
    std::vector<CTavrin3DObject*> GetObjectsReferencingThisMaterial() const;

private:
    std::unique_ptr<const CTavrinBasicMaterial> m_basicMaterial;
    bool m_hidden = false;
};

} // namespace Tavrin
