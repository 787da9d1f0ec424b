// Operations on basic materials that only the animation model calls: making
// a kind again from its archived name, copies, blending, the named value
// members and the archive records.

#include "host/CTavrinMaterial.h"

#include "host/CTavrinDocument.h"
#include "host/CTavrinGeometry.h"
#include "host/CTavrinStructureDescription.h"

namespace Tavrin {

namespace {

constexpr const char* kGeneralMaterialTypeName = "CTavrinBasicGeneralMaterial";

enumMaterialValue ValueAt(std::size_t index) {
    return static_cast<enumMaterialValue>(index);
}

} // namespace

CTavrinString CTavrinBasicMaterial::TypeName() const
{
    return CTavrinString("CTavrinBasicMaterial");
}

CTavrinString CTavrinBasicGeneralMaterial::TypeName() const
{
    return CTavrinString(kGeneralMaterialTypeName);
}

CTavrinBasicMaterial* CTavrinBasicMaterial::CreateBasicMaterial(const CTavrinString& typeName)
{
    if (typeName == CTavrinString(kGeneralMaterialTypeName))
        return CTavrinBasicGeneralMaterial::Create();
    return nullptr;
}

void CTavrinBasicMaterial::Destroy(const CTavrinBasicMaterial* material)
{
    delete material;
}

CTavrinBasicMaterial* CTavrinBasicMaterial::CreateCopy() const
{
    CTavrinBasicMaterial* copy = CreateBasicMaterial(TypeName());
    if (!copy)
        return nullptr;
    copy->RestoreFromCopy(this);
    copy->m_values = m_values;
    copy->TakeGeneralPart(*this);
    return copy;
}

CTavrinBasicMaterial* CTavrinBasicMaterial::Interpolate(const CTavrinBasicMaterial& a, const CTavrinBasicMaterial& b,
                                                        double t)
{
    CTavrinBasicMaterial* blend = CTavrinBasicGeneralMaterial::Create();
    const CTavrinBasicMaterial& nearer = t < 0.5 ? a : b;
    blend->RestoreFromCopy(&nearer);
    blend->TakeGeneralPart(nearer);
    for (std::size_t index = 0; index < valueCount; ++index) {
        const enumMaterialValue value = ValueAt(index);
        if (!a.m_values.WasAssigned(value) && !b.m_values.WasAssigned(value))
            continue;
        const auto& from = a.m_values.Value(value);
        const auto& to = b.m_values.Value(value);
        blend->m_values.Assign(value, from[0] + (to[0] - from[0]) * t, from[1] + (to[1] - from[1]) * t,
                               from[2] + (to[2] - from[2]) * t);
    }
    return blend;
}

void* CTavrinBasicMaterial::DataMemberSearch(int index, enumDataMemberType& type, CTavrinString& name, bool changed)
{
    CTavrinDataMembersManager::DataMemberSearch(SPECIAL_COMMAND_COUNT_MEMBERS, type, name, false);
    const int first = m_dataMembersCount;
    if (index == SPECIAL_COMMAND_COUNT_MEMBERS) {
        m_dataMembersCount = first + static_cast<int>(valueCount);
        return nullptr;
    }
    if (index < first)
        return CTavrinDataMembersManager::DataMemberSearch(index, type, name, changed);
    const std::size_t member = static_cast<std::size_t>(index - first);
    if (member >= valueCount) {
        type = DATA_MEMBER_NONE;
        return nullptr;
    }
    const enumMaterialValue value = ValueAt(member);
    const bool colour = CTavrinMaterialValues::Components(value) == 3;
    name = CTavrinString(CTavrinMaterialValues::Name(value));
    type = colour ? DATA_MEMBER_COLOR : DATA_MEMBER_DOUBLE;
    CTavrinColor& colourEdit = m_colourEdits[member];
    double& numberEdit = m_numberEdits[member];
    const auto& stored = m_values.Value(value);
    if (changed) {
        if (colour)
            m_values.Assign(value, colourEdit.R(), colourEdit.G(), colourEdit.B());
        else
            m_values.Assign(value, numberEdit);
    } else {
        colourEdit = CTavrinColor(stored[0], stored[1], stored[2], 1.0);
        numberEdit = stored[0];
    }
    return colour ? static_cast<void*>(&colourEdit) : static_cast<void*>(&numberEdit);
}

bool CTavrinBasicMaterial::WriteIntoArchive(CTavrinArchiveBase* archive)
{
    return CTavrinStructureDescription::ArchiveDescribedMembers(*archive, *this);
}

bool CTavrinBasicMaterial::ReadFromArchive(CTavrinArchiveBase* archive)
{
    return CTavrinStructureDescription::ArchiveDescribedMembers(*archive, *this);
}

bool CTavrinBasicMaterial::ReadWriteGeneralPart(CTavrinArchiveBase& archive)
{
    for (const auto& [slot, texture] : EditableTextureSlots()) {
        CTavrinString file = texture->FullFilename();
        if (!archive.ReadWrite(file))
            return false;
        if (archive.IsReaderArchive())
            texture->SetFilename(file, true);
    }
    return true;
}

void CTavrinBasicMaterial::TakeGeneralPart(const CTavrinBasicMaterial& other)
{
    const auto from = other.TextureSlots();
    const auto to = EditableTextureSlots();
    for (std::size_t slot = 0; slot < to.size(); ++slot)
        *to[slot].second = *from[slot].second;
}

void CTavrinMaterial::ReplaceWith(const CTavrinBasicMaterial& source)
{
    if (CTavrinBasicMaterial* copy = source.CreateCopy())
        LoadBasicMaterial(copy, false);
}

std::vector<CTavrin3DObject*> CTavrinMaterial::GetObjectsReferencingThisMaterial() const
{
    std::vector<CTavrin3DObject*> objects;
    if (!Document())
        return objects;
    for (CTavrinSceneNode* node : Document()->SceneNodes()) {
        auto* object = dynamic_cast<CTavrin3DObject*>(node);
        if (object && object->Material() == this)
            objects.push_back(object);
    }
    return objects;
}

} // namespace Tavrin
