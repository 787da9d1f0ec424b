#include "usdreader/CTavrinUSDReaderHandler.h"
#include "usdreader/TavrinContainedPath.h"
#include "usdreader/TavrinFileHelpers.h"

PXR_NAMESPACE_USING_DIRECTIVE

namespace Tavrin {

namespace {

// The shader's input of that name, when the name is one of its inputs.
bool FindInput(const UsdShadeShader& shader, const char* name, UsdShadeInput* input)
{
    *input = shader.GetInput(TfToken(name));
    return input->GetAttr().IsValid() && UsdShadeInput::IsInput(input->GetAttr());
}

} // namespace

CTavrinTexture CTavrinUSDReaderHandler::ReadTexture(const UsdShadeShader& shader)
{
    // The first texture of a mesh that follows its "st" to a primvar reader
    // names the mesh's texture coordinates.
    UsdShadeInput st;
    UsdShadeConnectableAPI source;
    TfToken sourceName;
    UsdShadeAttributeType sourceType;
    if (stPrimvarName.IsEmpty() && FindInput(shader, "st", &st) &&
        st.GetConnectedSource(&source, &sourceName, &sourceType)) {
        const UsdShadeShader primvarReader = UsdShadeShader::Get(stage, source.GetPath());
        UsdShadeInput varname;
        if (primvarReader && FindInput(primvarReader, "varname", &varname))
            varname.Get(&stPrimvarName, UsdTimeCode::Default());
    }

    UsdShadeInput file;
    SdfAssetPath asset;
    if (!FindInput(shader, "file", &file) || !file.Get(&asset, UsdTimeCode::Default()))
        return CTavrinTexture();

    // The path as authored, under the folder the file was unpacked into; the
    // copy goes flat into the texture folder.
    const CTavrinString assetPath(asset.GetAssetPath());
    CTavrinString sourcePath = unpackFolder + assetPath;
    sourcePath.ReplaceSlashWithSystemSlash();
    CTavrinString fileName = sourcePath;
    fileName.RemovePath();
    const CTavrinString destination = textureFolder + fileName;

    // A path that leaves the unpack folder, or that names a folder, is
    // treated like a missing file: still referred to, never copied.
    const CTavrinContainedPath inside = ResolveContainedPath(assetPath);
    if (inside.contained && inside.namesFile)
        CopyFileReplacing(sourcePath, destination, true);
    return CTavrinTexture(destination);
}

} // namespace Tavrin
