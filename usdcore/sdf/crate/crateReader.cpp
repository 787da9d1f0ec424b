#include "usdcore/sdf/crate/crateReader.h"

#include "usdcore/sdf/crate/structure.h"
#include "usdcore/sdf/crate/valueReader.h"
#include "usdcore/sdf/data.h"
#include "usdcore/sdf/listOp.h"
#include "usdcore/sdf/payload.h"
#include "usdcore/sdf/schema.h"
#include "usdcore/sdf/types.h"
#include "usdcore/tf/diagnostic.h"

#include <string>
#include <vector>

PXR_NAMESPACE_OPEN_SCOPE

namespace {

bool BuildPaths(const Sdf_CrateStructure& structure, const std::vector<TfToken>& tokens,
                std::vector<SdfPath>* paths, Sdf_CrateError* error)
{
    paths->resize(size_t(structure.pathCount));
    // Steps come parents first, so every parent is built before its children.
    for (const Sdf_CratePathStep& step : structure.pathSteps) {
        if (step.parentIndex == Sdf_CrateNoParent) {
            (*paths)[step.pathIndex] = SdfPath::AbsoluteRootPath();
            continue;
        }
        const SdfPath& parent = (*paths)[step.parentIndex];
        const TfToken& element = tokens[step.tokenIndex];
        SdfPath path = step.isProperty ? parent.AppendProperty(element)
                                       : parent.AppendElementToken(element);
        if (path.IsEmpty()) {
            return error->Fail("invalid path element '" + element.GetString() + "' under <" +
                               parent.GetString() + ">");
        }
        (*paths)[step.pathIndex] = std::move(path);
    }
    return true;
}

// Files before payload list ops (0.8.0) store a single payload; layers hold
// payloads as list ops, where an empty asset path meant "explicitly none".
VtValue PayloadAsListOp(const VtValue& value)
{
    if (!value.IsHolding<SdfPayload>()) {
        return value;
    }
    const SdfPayload& payload = value.UncheckedGet<SdfPayload>();
    SdfPayloadListOp listOp;
    if (payload.GetAssetPath().empty()) {
        listOp.ClearAndMakeExplicit();
    } else {
        listOp.SetExplicitItems(SdfPayloadVector(1, payload));
    }
    return VtValue(listOp);
}

bool ReadSpecs(const Sdf_CrateStructure& structure, const std::vector<TfToken>& tokens,
               const std::vector<SdfPath>& paths, Sdf_CrateValueReader& values, SdfData* data,
               Sdf_CrateError* error)
{
    data->Reserve(structure.specs.size());
    for (const Sdf_CrateSpec& spec : structure.specs) {
        const SdfPath& path = paths[spec.pathIndex];
        if (path.IsEmpty()) {
            return error->Fail("spec refers to path " + std::to_string(spec.pathIndex) +
                               ", which the path tree does not define");
        }
        // The structure stage checked that the run is terminated.
        size_t end = spec.fieldSetIndex;
        while (structure.fieldSets[end] != Sdf_CrateFieldSetEnd) ++end;
        SdfData::FieldVector fields;
        fields.reserve(end - spec.fieldSetIndex);
        for (size_t i = spec.fieldSetIndex; i != end; ++i) {
            const Sdf_CrateField& field = structure.fields[structure.fieldSets[i]];
            const TfToken& name = tokens[field.tokenIndex];
            VtValue value;
            if (!values.Unpack(Sdf_CrateValueRep(field.valueRep), &value)) {
                return error->AddContext("field '" + name.GetString() + "' of <" +
                                         path.GetString() + ">");
            }
            if (value.IsEmpty()) {
                continue;
            }
            if (name == SdfFieldKeys->Payload) {
                value = PayloadAsListOp(value);
            }
            fields.emplace_back(name, std::move(value));
        }
        data->CreateSpec(path, static_cast<SdfSpecType>(spec.specType), std::move(fields));
    }
    return true;
}

} // namespace

bool SdfCrateReadData(std::string_view bytes, const std::string& identifier, SdfData* data)
{
    Sdf_CrateError error;
    Sdf_CrateStructure structure;
    std::vector<TfToken> tokens;
    std::vector<SdfPath> paths;
    bool ok = Sdf_CrateReadStructure(bytes, &structure, &error);
    if (ok) {
        tokens.reserve(structure.tokens.size());
        for (std::string_view token : structure.tokens) {
            tokens.emplace_back(token);
        }
        ok = BuildPaths(structure, tokens, &paths, &error);
    }
    if (ok) {
        Sdf_CrateValueReader values(bytes, identifier, structure.version, tokens,
                                    structure.strings, paths, &error);
        ok = ReadSpecs(structure, tokens, paths, values, data, &error);
    }
    if (!ok) {
        TF_RUNTIME_ERROR("Cannot read crate file '%s': %s", identifier.c_str(),
                         error.GetMessage().c_str());
    }
    return ok;
}

PXR_NAMESPACE_CLOSE_SCOPE
