#include "usdcore/sdf/valueTypeName.h"

#include "usdcore/sdf/assetPath.h"
#include "usdcore/sdf/timeCode.h"
#include "usdcore/sdf/valueTypeRegistry.h"
#include "usdcore/vt/types.h"

#include <deque>
#include <functional>
#include <map>
#include <ostream>
#include <typeindex>
#include <unordered_map>
#include <utility>

PXR_NAMESPACE_OPEN_SCOPE

TF_DEFINE_PUBLIC_TOKENS(SdfValueRoleNames, SDF_VALUE_ROLE_NAME_TOKENS);

struct Sdf_ValueTypeImpl {
    TfToken name;
    std::string cppTypeName;
    TfToken role;
    VtValue defaultValue;
    const Sdf_ValueTypeImpl* scalar = nullptr;
    const Sdf_ValueTypeImpl* array = nullptr;
};

namespace {

template <class T>
T DefaultOf()
{
    return T();
}

// Unauthored matrices and quaternions read as the identity.
template <>
GfMatrix2d DefaultOf<GfMatrix2d>()
{
    return GfMatrix2d(1.0);
}
template <>
GfMatrix3d DefaultOf<GfMatrix3d>()
{
    return GfMatrix3d(1.0);
}
template <>
GfMatrix4d DefaultOf<GfMatrix4d>()
{
    return GfMatrix4d(1.0);
}
template <>
GfQuath DefaultOf<GfQuath>()
{
    return GfQuath(GfHalf(1.0f));
}
template <>
GfQuatf DefaultOf<GfQuatf>()
{
    return GfQuatf(1.0f);
}
template <>
GfQuatd DefaultOf<GfQuatd>()
{
    return GfQuatd(1.0);
}

class Registry
{
public:
    Registry()
    {
#define SDF_REGISTER_VALUE_TYPE_(member, name, type, role)                    \
    Add<type>(name, #type, TfToken(#role));
        SDF_VALUE_TYPES(SDF_REGISTER_VALUE_TYPE_)
#undef SDF_REGISTER_VALUE_TYPE_
    }

    const Sdf_ValueTypeImpl* Find(const TfToken& name) const
    {
        auto found = _byName.find(name);
        return found == _byName.end() ? nullptr : found->second;
    }

    const Sdf_ValueTypeImpl* Find(const std::type_info& type, const TfToken& role) const
    {
        auto found = _byType.find({std::type_index(type), role});
        return found == _byType.end() ? nullptr : found->second;
    }

    const std::deque<Sdf_ValueTypeImpl>& All() const { return _impls; }

private:
    template <class T>
    void Add(const char* name, const char* cppTypeName, const TfToken& role)
    {
        Sdf_ValueTypeImpl& scalar = _impls.emplace_back();
        scalar.name = TfToken(name);
        scalar.cppTypeName = cppTypeName;
        scalar.role = role;
        scalar.defaultValue = VtValue(DefaultOf<T>());
        Sdf_ValueTypeImpl& array = _impls.emplace_back();
        array.name = TfToken(std::string(name) + "[]");
        array.cppTypeName = "VtArray<" + std::string(cppTypeName) + ">";
        array.role = role;
        array.defaultValue = VtValue(VtArray<T>());
        scalar.scalar = array.scalar = &scalar;
        scalar.array = array.array = &array;
        Index(scalar, typeid(T));
        Index(array, typeid(VtArray<T>));
    }

    void Index(const Sdf_ValueTypeImpl& impl, const std::type_info& type)
    {
        _byName.emplace(impl.name, &impl);
        _byType.emplace(std::make_pair(std::type_index(type), impl.role), &impl);
    }

    std::deque<Sdf_ValueTypeImpl> _impls;
    std::unordered_map<TfToken, const Sdf_ValueTypeImpl*, TfToken::HashFunctor> _byName;
    std::map<std::pair<std::type_index, TfToken>, const Sdf_ValueTypeImpl*> _byType;
};

const Registry& GetRegistry()
{
    static const Registry* registry = new Registry;
    return *registry;
}

const std::string& EmptyString()
{
    static const std::string* empty = new std::string;
    return *empty;
}

} // namespace

SdfValueTypeName Sdf_ValueTypeRegistry::FindByName(const TfToken& name)
{
    return SdfValueTypeName(GetRegistry().Find(name));
}

SdfValueTypeName Sdf_ValueTypeRegistry::FindByValue(const VtValue& value, const TfToken& role)
{
    return value.IsEmpty() ? SdfValueTypeName()
                           : SdfValueTypeName(GetRegistry().Find(value.GetType(), role));
}

std::vector<SdfValueTypeName> Sdf_ValueTypeRegistry::GetAll()
{
    std::vector<SdfValueTypeName> all;
    for (const Sdf_ValueTypeImpl& impl : GetRegistry().All()) {
        all.push_back(SdfValueTypeName(&impl));
    }
    return all;
}

TfToken SdfValueTypeName::GetAsToken() const
{
    return _impl ? _impl->name : TfToken();
}

const std::string& SdfValueTypeName::GetCPPTypeName() const
{
    return _impl ? _impl->cppTypeName : EmptyString();
}

const TfToken& SdfValueTypeName::GetRole() const
{
    static const TfToken empty;
    return _impl ? _impl->role : empty;
}

const VtValue& SdfValueTypeName::GetDefaultValue() const
{
    static const VtValue* empty = new VtValue;
    return _impl ? _impl->defaultValue : *empty;
}

SdfValueTypeName SdfValueTypeName::GetScalarType() const
{
    return SdfValueTypeName(_impl ? _impl->scalar : nullptr);
}

SdfValueTypeName SdfValueTypeName::GetArrayType() const
{
    return SdfValueTypeName(_impl ? _impl->array : nullptr);
}

bool SdfValueTypeName::IsScalar() const
{
    return _impl && _impl->scalar == _impl;
}

bool SdfValueTypeName::IsArray() const
{
    return _impl && _impl->array == _impl;
}

size_t SdfValueTypeName::GetHash() const
{
    return std::hash<const void*>()(_impl);
}

bool SdfValueTypeName::operator==(const std::string& rhs) const
{
    return _impl && _impl->name == rhs;
}

bool SdfValueTypeName::operator==(const TfToken& rhs) const
{
    return _impl && _impl->name == rhs;
}

std::ostream& operator<<(std::ostream& out, const SdfValueTypeName& name)
{
    return out << name.GetAsToken();
}

Sdf_ValueTypeNamesType::Sdf_ValueTypeNamesType()
{
#define SDF_INIT_VALUE_TYPE_NAME_(member, name, type, role)                   \
    member = Sdf_ValueTypeRegistry::FindByName(TfToken(name));                \
    member##Array = member.GetArrayType();
    SDF_VALUE_TYPES(SDF_INIT_VALUE_TYPE_NAME_)
#undef SDF_INIT_VALUE_TYPE_NAME_
}

TfStaticData<Sdf_ValueTypeNamesType> SdfValueTypeNames;

PXR_NAMESPACE_CLOSE_SCOPE
