#include "usdcore/sdf/types.h"

#include <functional>
#include <ostream>

PXR_NAMESPACE_OPEN_SCOPE

std::ostream& operator<<(std::ostream& out, const SdfValueBlock&)
{
    return out << "None";
}

std::ostream& operator<<(std::ostream& out, const SdfAnimationBlock&)
{
    return out << "AnimationBlock";
}

SdfUnregisteredValue::SdfUnregisteredValue(const std::string& value) : _value(value) {}

SdfUnregisteredValue::SdfUnregisteredValue(const VtDictionary& value) : _value(value) {}

SdfUnregisteredValue::SdfUnregisteredValue(const SdfUnregisteredValueListOp& value)
    : _value(value)
{
}

size_t hash_value(const SdfUnregisteredValue& value)
{
    // Only strings are worth telling apart by content; dictionaries and list
    // ops are rare and fall back to equality within one bucket per type.
    if (value.GetValue().IsHolding<std::string>()) {
        return std::hash<std::string>()(value.GetValue().UncheckedGet<std::string>());
    }
    return value.GetValue().GetType().hash_code();
}

std::ostream& operator<<(std::ostream& out, const SdfUnregisteredValue& value)
{
    const VtValue& held = value.GetValue();
    if (held.IsHolding<std::string>()) {
        return out << held.UncheckedGet<std::string>();
    }
    if (held.IsHolding<SdfUnregisteredValueListOp>()) {
        return out << held.UncheckedGet<SdfUnregisteredValueListOp>();
    }
    if (held.IsHolding<VtDictionary>()) {
        out << "{";
        bool first = true;
        for (const auto& entry : held.UncheckedGet<VtDictionary>()) {
            out << (first ? "" : ", ") << entry.first;
            first = false;
        }
        return out << "}";
    }
    return out;
}

std::ostream& operator<<(std::ostream& out, SdfSpecifier specifier)
{
    switch (specifier) {
    case SdfSpecifierDef:
        return out << "def";
    case SdfSpecifierOver:
        return out << "over";
    case SdfSpecifierClass:
        return out << "class";
    case SdfNumSpecifiers:
        break;
    }
    return out << "SdfSpecifier(" << static_cast<int>(specifier) << ")";
}

std::ostream& operator<<(std::ostream& out, SdfSpecType specType)
{
    static const char* const names[] = {
        "Unknown",  "Attribute", "Connection",   "Expression",         "Mapper",  "MapperArg",
        "Prim",     "PseudoRoot", "Relationship", "RelationshipTarget", "Variant", "VariantSet",
    };
    const int index = static_cast<int>(specType);
    if (index >= 0 && index < SdfNumSpecTypes) {
        return out << "SdfSpecType" << names[index];
    }
    return out << "SdfSpecType(" << index << ")";
}

PXR_NAMESPACE_CLOSE_SCOPE
