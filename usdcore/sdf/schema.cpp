#include "usdcore/sdf/schema.h"

#include "usdcore/sdf/valueTypeRegistry.h"

PXR_NAMESPACE_OPEN_SCOPE

TF_DEFINE_PUBLIC_TOKENS(SdfFieldKeys, SDF_FIELD_KEYS);
TF_DEFINE_PUBLIC_TOKENS(SdfChildrenKeys, SDF_CHILDREN_KEYS);

const SdfSchema& SdfSchema::GetInstance()
{
    static const SdfSchema instance;
    return instance;
}

SdfValueTypeName SdfSchema::FindType(const TfToken& typeName) const
{
    return Sdf_ValueTypeRegistry::FindByName(typeName);
}

SdfValueTypeName SdfSchema::FindType(const char* typeName) const
{
    return FindType(TfToken(typeName));
}

SdfValueTypeName SdfSchema::FindType(const std::string& typeName) const
{
    return FindType(TfToken(typeName));
}

SdfValueTypeName SdfSchema::FindType(const VtValue& value, const TfToken& role) const
{
    return Sdf_ValueTypeRegistry::FindByValue(value, role);
}

std::vector<SdfValueTypeName> SdfSchema::GetAllTypes() const
{
    return Sdf_ValueTypeRegistry::GetAll();
}

PXR_NAMESPACE_CLOSE_SCOPE
