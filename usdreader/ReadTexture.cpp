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

// The file that relative, a path inside folder, names there; empty when it
// leaves the folder, names a folder or nothing is there.
CTavrinString FileInside(const CTavrinString& folder, const CTavrinString& relative)
{
    const CTavrinContainedPath inside = ResolveContainedPath(relative);
    if (folder.IsEmpty() || !inside.contained || !inside.namesFile)
        return CTavrinString();
    const CTavrinString file = folder + inside.path;
    return FileExists(file) ? file : CTavrinString();
}

bool IsPackage(const std::string& path)
{
    CTavrinString extension = CTavrinString(path).Extension();
    extension.ToLower();
    return extension == CTavrinString("usdz");
}

} // namespace

CTavrinString CTavrinUSDReaderHandler::FindTextureFile(const SdfAssetPath& asset)
{
    // The authored path under the unpack folder: how textures of a package
    // have always been found.
    const CTavrinString unpacked = FileInside(unpackFolder, CTavrinString(asset.GetAssetPath()));
    if (!unpacked.IsEmpty())
        return unpacked;

    // Otherwise where USD found it, relative to the layer that authored it.
    const std::string& resolved = asset.GetResolvedPath();
    if (resolved.empty())
        return CTavrinString();
    if (!ArIsPackageRelativePath(resolved)) {
        // A package is taken for self-contained: what it names outside itself
        // (an absolute path) is not read into the document's folder.
        if (stage && IsPackage(stage->GetRootLayer()->GetRealPath()))
            return CTavrinString();
        return FileExists(CTavrinString(resolved)) ? CTavrinString(resolved) : CTavrinString();
    }
    // An entry of a package, perhaps of a package inside a package: each is
    // looked up in the folder its package was unpacked into.
    std::pair<std::string, std::string> split = ArSplitPackageRelativePathOuter(resolved);
    CTavrinString file(split.first);
    while (!split.second.empty() && !file.IsEmpty()) {
        const CTavrinString folder = UnpackedFolderOf(file.toStdString());
        split = ArSplitPackageRelativePathOuter(split.second);
        file = FileInside(folder, CTavrinString(split.first));
    }
    return file;
}

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

    const CTavrinString found = FindTextureFile(asset);
    const CTavrinString copy = found.IsEmpty() ? found : textureCopies.Copy(found, textureFolder);
    if (copy.IsEmpty()) {
        // Once per shader and path: a material bound to many meshes asks
        // again for each.
        const std::string shaderPath = shader.GetPath().GetString();
        if (reportedTextures.insert(shaderPath + '\n' + asset.GetAssetPath()).second) {
            if (found.IsEmpty())
                TF_WARN("texture '%s' of <%s> is not found where its layer puts it, or lies outside its "
                        "package; the input gets no texture",
                        asset.GetAssetPath().c_str(), shaderPath.c_str());
            else
                TF_WARN("texture '%s' of <%s> could not be copied into '%s'; the input gets no texture",
                        asset.GetAssetPath().c_str(), shaderPath.c_str(), textureFolder.toStdString().c_str());
        }
        return CTavrinTexture();
    }
    return CTavrinTexture(copy);
}

} // namespace Tavrin
