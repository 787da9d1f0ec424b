#include "tests/usdreader/ImportSupport.h"

#include <cstdlib>
#include <fstream>

#include <zip.h>

#include "TavrinAnimation/src/TavrinSequenceJson.h"

PXR_NAMESPACE_USING_DIRECTIVE

namespace TavrinReaderTests {

using namespace Tavrin;

ScratchFolder::ScratchFolder()
{
    std::string pattern = (std::filesystem::temp_directory_path() / "tavrin-usdreader-XXXXXX").string();
    if (mkdtemp(pattern.data()))
        m_path = pattern;
}

ScratchFolder::~ScratchFolder()
{
    std::error_code ignored;
    if (!m_path.empty())
        std::filesystem::remove_all(m_path, ignored);
}

std::string ScratchFolder::Write(const std::string& name, const std::string& text) const
{
    const std::filesystem::path path = m_path / std::filesystem::u8path(name);
    std::ofstream(path, std::ios::binary) << text;
    return path.u8string();
}

std::string ScratchFolder::WritePackage(const std::string& name,
                                        const std::vector<std::pair<std::string, std::string>>& entries) const
{
    const std::string path = (m_path / std::filesystem::u8path(name)).u8string();
    zipFile zip = zipOpen64(path.c_str(), APPEND_STATUS_CREATE);
    if (!zip)
        return path;
    for (const auto& [entryName, data] : entries) {
        zip_fileinfo info = {};
        if (zipOpenNewFileInZip64(zip, entryName.c_str(), &info, nullptr, 0, nullptr, 0, nullptr, 0, 0, 0) == ZIP_OK) {
            zipWriteInFileInZip(zip, data.data(), static_cast<unsigned>(data.size()));
            zipCloseFileInZip(zip);
        }
    }
    zipClose(zip, nullptr);
    return path;
}

ImportResult ImportFile(const std::string& path, const std::string& folder, bool withCallback,
                        const std::function<void(CTavrinUSDReaderHandler&)>& prepare)
{
    ImportResult result;
    result.handler = std::make_unique<CTavrinUSDReaderHandler>();
    if (prepare)
        prepare(*result.handler);
    if (withCallback) {
        ProgressReports* progress = &result.progress;
        result.handler->SetProgressCallback([progress](CTavrinString message, int value) {
            progress->emplace_back(message.toStdString(), value);
        });
    }
    result.document.reset(result.handler->ReadUSDFile(CTavrinString(path), CTavrinString(folder)));
    result.json = result.document ? DocumentToJson(*result.document, SequenceJsonWriter(result.handler->sequence))
                                  : CTavrinJson(nullptr);
    return result;
}

ImportResult ImportText(const ScratchFolder& scratch, const std::string& usda, const std::string& fileName)
{
    const std::string path = scratch.Write(fileName, usda);
    return ImportFile(path, (scratch.Path() / "textures").string());
}

ImportResult ImportText(const std::string& usda)
{
    return ImportText(ScratchFolder(), usda);
}

std::unique_ptr<OpenedScene> OpenScene(const ScratchFolder& scratch, const std::string& usda)
{
    auto scene = std::make_unique<OpenedScene>();
    scene->handler.stage = UsdStage::Open(scratch.Write("scene.usda", usda));
    scene->document.reset(CTavrinDocument::Create(true));
    scene->handler.document = scene->document.get();
    return scene;
}

std::unique_ptr<OpenedScene> OpenScene(const std::string& usda)
{
    return OpenScene(ScratchFolder(), usda);
}

std::string ZUpScene(const std::string& body)
{
    return "#usda 1.0\n(\n    upAxis = \"Z\"\n    metersPerUnit = 1\n)\n" + body;
}

std::vector<double> TranslationOf(const CTavrinJson& matrix)
{
    return {matrix.at(3).get<double>(), matrix.at(7).get<double>(), matrix.at(11).get<double>()};
}

CTavrinJson NodeNamed(const CTavrinJson& documentJson, const std::string& name)
{
    CTavrinJson found;
    int matches = 0;
    for (const CTavrinJson& node : documentJson.at("nodes")) {
        if (node.at("name") == name) {
            found = node;
            ++matches;
        }
    }
    return matches == 1 ? found : CTavrinJson(nullptr);
}

std::vector<std::string> NodeNames(const CTavrinJson& documentJson)
{
    std::vector<std::string> names;
    for (const CTavrinJson& node : documentJson.at("nodes"))
        names.push_back(node.at("name").get<std::string>());
    return names;
}

std::vector<KeyFrame> KeyFramesOf(const CTavrinJson& documentJson, const std::string& node)
{
    std::vector<KeyFrame> keyFrames;
    const CTavrinJson& sequence = documentJson.at("sequence");
    if (sequence.is_null())
        return keyFrames;
    const CTavrinJson id = NodeNamed(documentJson, node).at("id");
    for (const CTavrinJson& track : sequence.at("tracks")) {
        if (track.at("node") != id)
            continue;
        for (const CTavrinJson& key : track.at("keyframes"))
            keyFrames.push_back({key.at("start"), key.at("end"), key.at("serial"), key.at("matrix")});
    }
    return keyFrames;
}

std::vector<int> StartsOf(const std::vector<KeyFrame>& keyFrames)
{
    std::vector<int> starts;
    for (const KeyFrame& key : keyFrames)
        starts.push_back(key.start);
    return starts;
}

} // namespace TavrinReaderTests
