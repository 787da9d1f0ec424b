#pragma once
// Lights: the basic light values (kinds made again by name from archives),
// the document's light entity that holds one, and the light sources, scene
// nodes that shine a light.

#include "host/CTavrinSceneNode.h"
#include "host/CTavrinSmallValues.h"

#include <memory>
#include <vector>

namespace Tavrin {

class CTavrinLightSource;

class CTavrinBasicLight : public CTavrinDataMembersManager {
public:
    CTavrinBasicLight(const CTavrinBasicLight&) = delete;
    CTavrinBasicLight& operator=(const CTavrinBasicLight&) = delete;

    // The name under which archives store the kind, to make it again.
    virtual CTavrinString TypeName() const = 0;
    // A new basic light of the kind that typeName names, or null.
    static CTavrinBasicLight* CreateBasicLight(const CTavrinString& typeName);
    static void Destroy(const CTavrinBasicLight* light);
    // A new light of the same kind with the same values.
    CTavrinBasicLight* CreateCopy() const;
    // A new light of the kind of a and b between a (t = 0) and b (t = 1),
    // every double and colour member blended; null when the kinds differ.
    static CTavrinBasicLight* Interpolate(const CTavrinBasicLight& a, const CTavrinBasicLight& b, double t);

    CTavrinColor Color() const { return m_color; }
    void SetColor(const CTavrinColor& color) { m_color = color; }
    double Intensity() const { return m_intensity; }
    void SetIntensity(double intensity) { m_intensity = intensity; }

    // "Name", "Color" (colour), "Intensity" (double), then the kind's own.
    void* DataMemberSearch(int index, enumDataMemberType& type, CTavrinString& name, bool changed) override;
    // The light's own record: its members as described at the archive's version.
    bool ReadFromArchive(CTavrinArchiveBase* archive) override;
    bool WriteIntoArchive(CTavrinArchiveBase* archive) override;

protected:
    CTavrinBasicLight() = default;

private:
    CTavrinColor m_color{1.0, 1.0, 1.0, 1.0};
    double m_intensity = 1.0;
};

class CTavrinBasicPointLight : public CTavrinBasicLight {
public:
    CTavrinBasicPointLight() = default;
    CTavrinString TypeName() const override;

    double Range() const { return m_range; }
    void SetRange(double range) { m_range = range; }
    // The base members, then "Range" (double).
    void* DataMemberSearch(int index, enumDataMemberType& type, CTavrinString& name, bool changed) override;

private:
    double m_range = 10.0;
};

// A light of the document: the values that the light sources shining it share.
class CTavrinLight : public CTavrinEntity {
public:
    static CTavrinLight* Create(CTavrinDocument* document);
    enumEntityType EntityType() const override { return ENTITY_LIGHT; }

    const CTavrinBasicLight* BasicLight() const { return m_basicLight.get(); }
    // Takes over the basic light, ownership included.
    void LoadBasicLight(CTavrinBasicLight* basicLight);

    // The live light sources of the document that shine this light.
    std::vector<CTavrinLightSource*> GetLightSourcesReferencingThisLight() const;
    // Those of them that are not deleted.
    int NumberOfUndeletedLightSourcesReferencingThisLight() const;

private:
    struct BasicLightDestroyer {
        void operator()(CTavrinBasicLight* light) const { CTavrinBasicLight::Destroy(light); }
    };
    std::unique_ptr<CTavrinBasicLight, BasicLightDestroyer> m_basicLight;
};

// A scene node that shines a light. Deleting it (as the application's undo
// does) keeps the node but takes it out of the scene.
class CTavrinLightSource : public CTavrinSceneNode {
public:
    static CTavrinLightSource* Create(CTavrinDocument* document);
    enumEntityType EntityType() const override { return ENTITY_LIGHT_SOURCE; }

    CTavrinLight* Light() const;
    void SetLight(const CTavrinLight* light);
    bool IsDeleted() const { return m_deleted; }
    void SetDeleted(bool deleted) { m_deleted = deleted; }

private:
    CTavrinID m_lightID;
    bool m_deleted = false;
};

} // namespace Tavrin
