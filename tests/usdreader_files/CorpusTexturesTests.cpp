#include <gtest/gtest.h>

#include <unzip.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <memory>
#include <set>

#include "ScratchFolder.h"
#include "host/CTavrinDocument.h"
#include "host/CTavrinDocumentJson.h"
#include "usdreader/CTavrinUSDReaderHandler.h"

PXR_NAMESPACE_USING_DIRECTIVE
using namespace Tavrin;

namespace {

namespace fs = std::filesystem;

// Every entry of a zip archive, read with minizip independently of the
// importer's extraction.
std::map<std::string, std::string> ReadEntries(const std::string& path)
{
    std::map<std::string, std::string> entries;
    unzFile zip = unzOpen64(path.c_str());
    if (!zip)
        return entries;
    for (int status = unzGoToFirstFile(zip); status == UNZ_OK; status = unzGoToNextFile(zip)) {
        char name[1025] = {};
        if (unzGetCurrentFileInfo64(zip, nullptr, name, 1024, nullptr, 0, nullptr, 0) != UNZ_OK ||
            unzOpenCurrentFile(zip) != UNZ_OK)
            continue;
        std::string bytes;
        char block[4096];
        for (int read; (read = unzReadCurrentFile(zip, block, sizeof block)) > 0;)
            bytes.append(block, size_t(read));
        unzCloseCurrentFile(zip);
        entries[name] = bytes;
    }
    unzClose(zip);
    return entries;
}

// The authored "file" asset paths of the stage's texture readers.
std::set<std::string> TextureAssetPaths(const UsdStageRefPtr& stage)
{
    std::set<std::string> paths;
    for (const UsdPrim& prim : stage->Traverse()) {
        const UsdShadeShader shader(prim);
        TfToken id;
        if (!shader || !shader.GetShaderId(&id) || id != TfToken("UsdUVTexture"))
            continue;
        SdfAssetPath asset;
        if (shader.GetInput(TfToken("file")).Get(&asset, UsdTimeCode::Default()))
            paths.insert(asset.GetAssetPath());
    }
    return paths;
}

std::set<std::string> ReferencedTextures(const CTavrinDocument& document)
{
    std::set<std::string> paths;
    const CTavrinJson json = DocumentToJson(document, {});
    for (const auto& node : json["nodes"]) {
        if (node.contains("material") && !node["material"].is_null()) {
            for (const auto& [slot, path] : node["material"]["textures"].items())
                paths.insert(path.get<std::string>());
        }
    }
    return paths;
}

std::vector<std::string> CorpusPackages()
{
    std::vector<std::string> packages;
    std::error_code error;
    for (fs::recursive_directory_iterator it(TAVRIN_CORPUS_DIR, error), end; !error && it != end; it.increment(error)) {
        if (it->is_regular_file() && it->path().extension() == ".usdz")
            packages.push_back(it->path().string());
    }
    std::sort(packages.begin(), packages.end());
    return packages;
}

} // namespace

// Every texture that a texture reader of a package names, and that the
// package holds, ends up in the import's folder under its file name,
// byte-identical to the entry, and the document refers to that copy.
TEST(CorpusTextures, PackageTexturesAreCopiedIntoTheFolderAndReferredTo)
{
    const std::vector<std::string> packages = CorpusPackages();
    if (packages.empty())
        GTEST_SKIP() << "no .usdz files under " << TAVRIN_CORPUS_DIR;

    ScratchFolder scratch;
    int checkedTextures = 0;
    for (const std::string& package : packages) {
        SCOPED_TRACE(package);
        const std::map<std::string, std::string> entries = ReadEntries(package);
        const UsdStageRefPtr stage = UsdStage::Open(package);
        if (!stage)
            continue;
        std::set<std::string> expected;
        for (const std::string& asset : TextureAssetPaths(stage)) {
            if (entries.count(asset))
                expected.insert(asset);
        }
        if (expected.empty())
            continue;

        const std::string folder = scratch / fs::path(package).stem().string();
        CTavrinUSDReaderHandler handler;
        const std::unique_ptr<CTavrinDocument> document(handler.ReadUSDFile(Text(package), Text(folder)));
        ASSERT_NE(document, nullptr);
        const std::set<std::string> referenced = ReferencedTextures(*document);
        for (const std::string& asset : expected) {
            const std::string copy = folder + "/" + fs::path(asset).filename().string();
            EXPECT_EQ(referenced.count(copy), 1u) << asset;
            EXPECT_TRUE(ReadFile(copy) == entries.at(asset)) << asset << " differs from its copy " << copy;
            ++checkedTextures;
        }
        for (const std::string& path : referenced)
            EXPECT_EQ(path.rfind(folder + "/", 0), 0u) << path;
    }
    EXPECT_GT(checkedTextures, 0);
}
