#include "usdcore/vt/value.h"

#include "usdcore/vt/dictionary.h"
#include "usdcore/vt/types.h"

#include <cstdlib>
#include <cxxabi.h>
#include <typeindex>
#include <unordered_map>

#define VT_STRINGIFY_(x) #x
#define VT_STRINGIFY(x) VT_STRINGIFY_(x)

PXR_NAMESPACE_OPEN_SCOPE

namespace {

// The names OpenUSD prints for the value types, from the one type table.
const std::unordered_map<std::type_index, std::string>& KnownTypeNames()
{
    static const auto* names = [] {
        auto* map = new std::unordered_map<std::type_index, std::string>;
#define VT_ADD_TYPE_NAME_(type, name)                                         \
    map->emplace(typeid(type), #type);                                        \
    map->emplace(typeid(VtArray<type>), "VtArray<" #type ">");
        VT_ARRAY_VALUE_TYPES(VT_ADD_TYPE_NAME_)
#undef VT_ADD_TYPE_NAME_
        map->emplace(typeid(VtDictionary), "VtDictionary");
        return map;
    }();
    return *names;
}

} // namespace

std::string Vt_GetTypeName(const std::type_info& info)
{
    const auto known = KnownTypeNames().find(info);
    if (known != KnownTypeNames().end()) {
        return known->second;
    }
    int status = 0;
    char* demangled = abi::__cxa_demangle(info.name(), nullptr, nullptr, &status);
    std::string name = status == 0 && demangled ? demangled : info.name();
    std::free(demangled);
    const std::string prefix = std::string(VT_STRINGIFY(PXR_NS)) + "::";
    for (size_t at = name.find(prefix); at != std::string::npos; at = name.find(prefix, at)) {
        name.erase(at, prefix.size());
    }
    return name;
}

std::string VtValue::GetTypeName() const
{
    return Vt_GetTypeName(GetType());
}

void Vt_StreamUnprintable(std::ostream& out, const std::type_info& type)
{
    out << '<' << Vt_GetTypeName(type) << '>';
}

void VtValue::Vt_ReportBadGet(const std::type_info& wanted, const std::type_info& held)
{
    TF_CODING_ERROR("Attempted to get value of type '%s' from VtValue holding '%s'",
                    Vt_GetTypeName(wanted).c_str(), Vt_GetTypeName(held).c_str());
}

PXR_NAMESPACE_CLOSE_SCOPE
