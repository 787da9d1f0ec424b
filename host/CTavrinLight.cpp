#include "host/CTavrinLight.h"

#include "host/CTavrinDocument.h"
#include "host/CTavrinStructureDescription.h"


namespace Tavrin {

namespace {
constexpr const char* kPointLightTypeName = "CTavrinBasicPointLight";
constexpr int kBaseLightMembers = 2;
} // namespace

CTavrinBasicLight* CTavrinBasicLight::CreateBasicLight(const CTavrinString& typeName) {
    if (typeName == CTavrinString(kPointLightTypeName))
        return new CTavrinBasicPointLight();
    return nullptr;
}

void CTavrinBasicLight::Destroy(const CTavrinBasicLight* light) {
    delete light;
}

CTavrinBasicLight* CTavrinBasicLight::CreateCopy() const {
    CTavrinBasicLight* copy = CreateBasicLight(TypeName());
    if (!copy)
        return nullptr;
    // Every value of every kind is a member: copying the members copies the light.
    const int count = copy->DataMembersCount();
    auto* self = const_cast<CTavrinBasicLight*>(this);
    for (int index = 0; index < count; ++index) {
        enumDataMemberType type = DATA_MEMBER_NONE;
        CTavrinString name;
        const void* value = self->DataMember(index, type, name);
        switch (type) {
        case DATA_MEMBER_STRING:
            copy->DataMemberValueChanged(*static_cast<const CTavrinString*>(value), index);
            break;
        case DATA_MEMBER_COLOR:
            copy->DataMemberValueChanged(*static_cast<const CTavrinColor*>(value), index);
            break;
        case DATA_MEMBER_DOUBLE:
            copy->DataMemberValueChanged(*static_cast<const double*>(value), index);
            break;
        default:
            break;
        }
    }
    return copy;
}

CTavrinBasicLight* CTavrinBasicLight::Interpolate(const CTavrinBasicLight& a, const CTavrinBasicLight& b, double t) {
    if (!(a.TypeName() == b.TypeName()))
        return nullptr;
    CTavrinBasicLight* blend = a.CreateCopy();
    if (!blend)
        return nullptr;
    auto* to = const_cast<CTavrinBasicLight*>(&b);
    const auto lerp = [t](double from, double toValue) { return from + (toValue - from) * t; };
    const int count = blend->DataMembersCount();
    for (int index = 0; index < count; ++index) {
        enumDataMemberType type = DATA_MEMBER_NONE;
        enumDataMemberType otherType = DATA_MEMBER_NONE;
        CTavrinString name;
        void* value = blend->DataMember(index, type, name);
        const void* other = to->DataMember(index, otherType, name);
        if (type != otherType)
            continue;
        if (type == DATA_MEMBER_DOUBLE) {
            blend->DataMemberValueChanged(lerp(*static_cast<double*>(value), *static_cast<const double*>(other)), index);
        } else if (type == DATA_MEMBER_COLOR) {
            const CTavrinColor from = *static_cast<CTavrinColor*>(value);
            const CTavrinColor toColor = *static_cast<const CTavrinColor*>(other);
            blend->DataMemberValueChanged(CTavrinColor(lerp(from.R(), toColor.R()), lerp(from.G(), toColor.G()),
                                                       lerp(from.B(), toColor.B()), lerp(from.A(), toColor.A())),
                                          index);
        }
    }
    return blend;
}

void* CTavrinBasicLight::DataMemberSearch(int index, enumDataMemberType& type, CTavrinString& name, bool changed) {
    CTavrinDataMembersManager::DataMemberSearch(SPECIAL_COMMAND_COUNT_MEMBERS, type, name, false);
    const int first = m_dataMembersCount;
    if (index == SPECIAL_COMMAND_COUNT_MEMBERS) {
        m_dataMembersCount = first + kBaseLightMembers;
        return nullptr;
    }
    if (index < first)
        return CTavrinDataMembersManager::DataMemberSearch(index, type, name, changed);
    switch (index - first) {
    case 0:
        type = DATA_MEMBER_COLOR;
        name = CTavrinString("Color");
        return &m_color;
    case 1:
        type = DATA_MEMBER_DOUBLE;
        name = CTavrinString("Intensity");
        return &m_intensity;
    default:
        type = DATA_MEMBER_NONE;
        return nullptr;
    }
}

bool CTavrinBasicLight::ReadFromArchive(CTavrinArchiveBase* archive) {
    return CTavrinStructureDescription::ArchiveDescribedMembers(*archive, *this);
}

bool CTavrinBasicLight::WriteIntoArchive(CTavrinArchiveBase* archive) {
    return CTavrinStructureDescription::ArchiveDescribedMembers(*archive, *this);
}

CTavrinString CTavrinBasicPointLight::TypeName() const {
    return CTavrinString(kPointLightTypeName);
}

void* CTavrinBasicPointLight::DataMemberSearch(int index, enumDataMemberType& type, CTavrinString& name,
                                               bool changed) {
    CTavrinBasicLight::DataMemberSearch(SPECIAL_COMMAND_COUNT_MEMBERS, type, name, false);
    const int first = m_dataMembersCount;
    if (index == SPECIAL_COMMAND_COUNT_MEMBERS) {
        m_dataMembersCount = first + 1;
        return nullptr;
    }
    if (index < first)
        return CTavrinBasicLight::DataMemberSearch(index, type, name, changed);
    if (index != first) {
        type = DATA_MEMBER_NONE;
        return nullptr;
    }
    type = DATA_MEMBER_DOUBLE;
    name = CTavrinString("Range");
    return &m_range;
}

CTavrinLight* CTavrinLight::Create(CTavrinDocument* document) {
    return document ? document->Adopt(std::make_unique<CTavrinLight>()) : nullptr;
}

void CTavrinLight::LoadBasicLight(CTavrinBasicLight* basicLight) {
    if (basicLight != m_basicLight.get())
        m_basicLight.reset(basicLight);
}

std::vector<CTavrinLightSource*> CTavrinLight::GetLightSourcesReferencingThisLight() const {
    std::vector<CTavrinLightSource*> sources;
    if (!Document())
        return sources;
    for (CTavrinSceneNode* node : Document()->SceneNodes()) {
        auto* source = dynamic_cast<CTavrinLightSource*>(node);
        if (source && source->Light() == this)
            sources.push_back(source);
    }
    return sources;
}

int CTavrinLight::NumberOfUndeletedLightSourcesReferencingThisLight() const {
    int count = 0;
    for (const CTavrinLightSource* source : GetLightSourcesReferencingThisLight())
        count += source->IsDeleted() ? 0 : 1;
    return count;
}

CTavrinLightSource* CTavrinLightSource::Create(CTavrinDocument* document) {
    return document ? document->Adopt(std::make_unique<CTavrinLightSource>()) : nullptr;
}

CTavrinLight* CTavrinLightSource::Light() const {
    return dynamic_cast<CTavrinLight*>(m_lightID.Entity());
}

void CTavrinLightSource::SetLight(const CTavrinLight* light) {
    if (light)
        m_lightID = light->ID();
    else
        m_lightID.setDefault();
}

} // namespace Tavrin
