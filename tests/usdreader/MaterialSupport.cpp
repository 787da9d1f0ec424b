#include "tests/usdreader/MaterialSupport.h"

PXR_NAMESPACE_USING_DIRECTIVE

namespace TavrinReaderTests {

using namespace Tavrin;

std::string PaintScene(const std::string& surfaceInputs, const std::string& insideMaterial)
{
    return R"(#usda 1.0
def Material "Paint" {
    token outputs:surface.connect = </Paint/Surface.outputs:surface>
    def Shader "Surface" {
        uniform token info:id = "UsdPreviewSurface"
)" + surfaceInputs + R"(
        token outputs:surface
    }
)" + insideMaterial + R"(
}
def Mesh "Box" (prepend apiSchemas = ["MaterialBindingAPI"]) {
    rel material:binding = </Paint>
}
)";
}

BindingResult ReadBinding(CTavrinUSDReaderHandler& handler, const std::string& primPath)
{
    BindingResult result;
    result.name = CTavrinString("before");
    result.material.reset(CTavrinBasicGeneralMaterial::Create());
    result.found = handler.ReadMaterialBinding(handler.stage->GetPrimAtPath(SdfPath(primPath)),
                                               result.material.get(), &result.name);
    return result;
}

std::map<std::string, std::vector<double>> AssignedValues(const CTavrinBasicMaterial& material)
{
    std::map<std::string, std::vector<double>> assigned;
    for (int index = 0; index < static_cast<int>(enumMaterialValue::Count); ++index) {
        const auto value = static_cast<enumMaterialValue>(index);
        if (!material.Values().WasAssigned(value))
            continue;
        const auto& components = material.Values().Value(value);
        assigned[CTavrinMaterialValues::Name(value)] =
            std::vector<double>(components.begin(), components.begin() + CTavrinMaterialValues::Components(value));
    }
    return assigned;
}

std::map<std::string, std::string> FilledTextures(const CTavrinBasicMaterial& material)
{
    std::map<std::string, std::string> filled;
    for (const auto& [slot, texture] : material.TextureSlots()) {
        if (!texture->IsEmpty())
            filled[slot] = texture->FullFilename().toStdString();
    }
    return filled;
}

} // namespace TavrinReaderTests
