#include "usdcore/sdf/valueTypeName.h"

#include "usdcore/sdf/assetPath.h"
#include "usdcore/sdf/timeCode.h"
#include "usdcore/sdf/valueTypeRegistry.h"
#include "usdcore/vt/types.h"

#include <algorithm>
#include <deque>
#include <functional>
#include <map>
#include <ostream>
#include <typeindex>
#include <unordered_map>
#include <utility>

PXR_NAMESPACE_OPEN_SCOPE

TF_DEFINE_PUBLIC_TOKENS(SdfValueRoleNames, SDF_VALUE_ROLE_NAME_TOKENS);

// What names of one C++ type and role share: one per scalar or array type.
struct Sdf_ValueCoreType {
    std::string cppTypeName;
    TfToken role;
    VtValue defaultValue;
    // The current name first, then older ones.
    std::vector<TfToken> aliases;
};

struct Sdf_ValueTypeImpl {
    TfToken name;
    const Sdf_ValueCoreType* type = nullptr;
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
        // The current names first, so that each type's first alias is its
        // current name.
#define SDF_REGISTER_VALUE_TYPE_(member, name, type, role)                    \
    Add<type>(name, #type, TfToken(#role));
        SDF_VALUE_TYPES(SDF_REGISTER_VALUE_TYPE_)
#undef SDF_REGISTER_VALUE_TYPE_
#define SDF_REGISTER_LEGACY_VALUE_TYPE_(name, type, role)                     \
    Add<type>(name, #type, TfToken(#role));
        SDF_LEGACY_VALUE_TYPES(SDF_REGISTER_LEGACY_VALUE_TYPE_)
#undef SDF_REGISTER_LEGACY_VALUE_TYPE_
    }

    const Sdf_ValueTypeImpl* Find(const TfToken& name) const
    {
        auto found = _byName.find(name);
        return found == _byName.end() ? nullptr : found->second;
    }

    // The type of the current name of the core type.
    const Sdf_ValueTypeImpl* Find(const std::type_info& type, const TfToken& role) const
    {
        auto found = _coreTypes.find({std::type_index(type), role});
        return found == _coreTypes.end() ? nullptr : Find(found->second.aliases.front());
    }

    const std::deque<Sdf_ValueTypeImpl>& All() const { return _impls; }

private:
    template <class T>
    void Add(const char* name, const char* cppTypeName, const TfToken& role)
    {
        Sdf_ValueTypeImpl& scalar = _impls.emplace_back();
        scalar.name = TfToken(name);
        scalar.type = CoreType<T>(scalar.name, cppTypeName, role, VtValue(DefaultOf<T>()));
        Sdf_ValueTypeImpl& array = _impls.emplace_back();
        array.name = TfToken(std::string(name) + "[]");
        array.type = CoreType<VtArray<T>>(array.name, "VtArray<" + std::string(cppTypeName) + ">", role,
                                          VtValue(VtArray<T>()));
        scalar.scalar = array.scalar = &scalar;
        scalar.array = array.array = &array;
        _byName.emplace(scalar.name, &scalar);
        _byName.emplace(array.name, &array);
    }

    // The core type of \p T and \p role, made at its first name; later
    // names become its aliases.
    template <class T>
    const Sdf_ValueCoreType* CoreType(const TfToken& name, const std::string& cppTypeName, const TfToken& role,
                                      VtValue defaultValue)
    {
        Sdf_ValueCoreType& core = _coreTypes[{std::type_index(typeid(T)), role}];
        if (core.aliases.empty()) {
            core.cppTypeName = cppTypeName;
            core.role = role;
            core.defaultValue = std::move(defaultValue);
        }
        core.aliases.push_back(name);
        return &core;
    }

    // Node-based containers: the names point into them.
    std::deque<Sdf_ValueTypeImpl> _impls;
    std::map<std::pair<std::type_index, TfToken>, Sdf_ValueCoreType> _coreTypes;
    std::unordered_map<TfToken, const Sdf_ValueTypeImpl*, TfToken::HashFunctor> _byName;
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

const std::vector<TfToken>& SdfValueTypeName::GetAliasesAsTokens() const
{
    static const std::vector<TfToken>* none = new std::vector<TfToken>;
    return _impl ? _impl->type->aliases : *none;
}

const std::string& SdfValueTypeName::GetCPPTypeName() const
{
    return _impl ? _impl->type->cppTypeName : EmptyString();
}

const TfToken& SdfValueTypeName::GetRole() const
{
    static const TfToken empty;
    return _impl ? _impl->type->role : empty;
}

const VtValue& SdfValueTypeName::GetDefaultValue() const
{
    static const VtValue* empty = new VtValue;
    return _impl ? _impl->type->defaultValue : *empty;
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
    return std::hash<const void*>()(_impl ? _impl->type : nullptr);
}

bool SdfValueTypeName::operator==(const SdfValueTypeName& rhs) const
{
    // One registry makes one core type per C++ type and role.
    return (_impl ? _impl->type : nullptr) == (rhs._impl ? rhs._impl->type : nullptr);
}

bool SdfValueTypeName::operator==(const std::string& rhs) const
{
    const std::vector<TfToken>& aliases = GetAliasesAsTokens();
    return std::find(aliases.begin(), aliases.end(), rhs) != aliases.end();
}

bool SdfValueTypeName::operator==(const TfToken& rhs) const
{
    const std::vector<TfToken>& aliases = GetAliasesAsTokens();
    return std::find(aliases.begin(), aliases.end(), rhs) != aliases.end();
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
