#pragma once

// Small scenes written as text, imported the way the application imports
// them, and the result in the document's JSON form.

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "host/CTavrinDocument.h"
#include "host/CTavrinDocumentJson.h"
#include "usdreader/CTavrinUSDReaderHandler.h"

namespace TavrinReaderTests {

// A fresh folder, removed with everything in it when the object goes.
class ScratchFolder {
public:
    ScratchFolder();
    ~ScratchFolder();
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    const std::filesystem::path& Path() const { return m_path; }
    // Writes text to name inside the folder and returns the file's path.
    std::string Write(const std::string& name, const std::string& text) const;
    // Writes a .usdz package (stored entries; the first is the root layer)
    // under name and returns its path.
    std::string WritePackage(const std::string& name,
                             const std::vector<std::pair<std::string, std::string>>& entries) const;

private:
    std::filesystem::path m_path;
};

using ProgressReports = std::vector<std::pair<std::string, int>>;

struct ImportResult {
    std::unique_ptr<Tavrin::CTavrinUSDReaderHandler> handler;
    std::unique_ptr<Tavrin::CTavrinDocument> document;
    ProgressReports progress;
    // The "document" member of the JSON form; null without a document.
    Tavrin::CTavrinJson json;
};

// Imports the file at path with textures going to folder; with
// withCallback false no progress callback is given. prepare, when given,
// sees the reader state before the import starts.
ImportResult ImportFile(const std::string& path, const std::string& folder, bool withCallback = true,
                        const std::function<void(Tavrin::CTavrinUSDReaderHandler&)>& prepare = {});

// Writes usda under fileName in scratch and imports it.
ImportResult ImportText(const ScratchFolder& scratch, const std::string& usda,
                        const std::string& fileName = "scene.usda");
// The same in a scratch folder of its own, gone once the import is done.
ImportResult ImportText(const std::string& usda);

// A handler whose stage is the scene written from usda, with a document, for
// calling one converter at a time.
struct OpenedScene {
    Tavrin::CTavrinUSDReaderHandler handler;
    std::unique_ptr<Tavrin::CTavrinDocument> document;
};
std::unique_ptr<OpenedScene> OpenScene(const ScratchFolder& scratch, const std::string& usda);
std::unique_ptr<OpenedScene> OpenScene(const std::string& usda);

// usda text of a Z-up stage in metres, whose root correction is the
// identity, so that root nodes show their own matrices.
std::string ZUpScene(const std::string& body);

// The translation of a host matrix in its JSON form (row by row, for column
// vectors).
std::vector<double> TranslationOf(const Tavrin::CTavrinJson& matrix);

// The node of the JSON form with this name; null JSON when there is none or
// more than one.
Tavrin::CTavrinJson NodeNamed(const Tavrin::CTavrinJson& documentJson, const std::string& name);
std::vector<std::string> NodeNames(const Tavrin::CTavrinJson& documentJson);

// One key frame of the JSON form's sequence.
struct KeyFrame {
    int start;
    int end;
    int serial;
    std::vector<double> matrix;

    std::vector<double> Translation() const { return TranslationOf(Tavrin::CTavrinJson(matrix)); }
};

// The key frames of the named node's track, by start frame; none without a
// sequence.
std::vector<KeyFrame> KeyFramesOf(const Tavrin::CTavrinJson& documentJson, const std::string& node);
std::vector<int> StartsOf(const std::vector<KeyFrame>& keyFrames);

} // namespace TavrinReaderTests
