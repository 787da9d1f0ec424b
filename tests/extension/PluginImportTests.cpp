// An import through the loaded plug-in gives what the reader gives when
// called directly: the same progress and the same document.

#include "InitialisedPlugin.h"

#include "TavrinAnimation/src/TavrinSequenceJson.h"
#include "host/CTavrinDocument.h"
#include "host/CTavrinDocumentJson.h"
#include "usdreader/CTavrinUSDReaderHandler.h"

#include <QTemporaryDir>

#include <fstream>
#include <memory>
#include <string>

namespace {

using Tavrin::CTavrinDocument;
using Tavrin::CTavrinImportRecord;
using Tavrin::CTavrinString;

// A root transform with one quad under it, its material bound.
constexpr const char* kScene = R"(#usda 1.0
(
    defaultPrim = "World"
    metersPerUnit = 1
    upAxis = "Z"
)

def Xform "World"
{
    double3 xformOp:translate = (1, 2, 3)
    uniform token[] xformOpOrder = ["xformOp:translate"]

    def Mesh "Quad" (
        prepend apiSchemas = ["MaterialBindingAPI"]
    )
    {
        int[] faceVertexCounts = [4]
        int[] faceVertexIndices = [0, 1, 2, 3]
        point3f[] points = [(0, 0, 0), (1, 0, 0), (1, 1, 0), (0, 1, 0)]
        rel material:binding = </World/Red>
    }

    def Material "Red"
    {
        token outputs:surface.connect = </World/Red/Surface.outputs:surface>

        def Shader "Surface"
        {
            uniform token info:id = "UsdPreviewSurface"
            color3f inputs:diffuseColor = (0.8, 0.1, 0.1)
            token outputs:surface
        }
    }
}
)";

class PluginImport : public InitialisedPlugin {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_folder.isValid());
        m_scenePath = m_folder.filePath("scene.usda").toStdString();
        std::ofstream(m_scenePath) << kScene;
    }

    CTavrinString ScenePath() const { return CTavrinString::FromUtf8(m_scenePath); }
    CTavrinString TextureFolder() const { return CTavrinString::FromUtf8(m_folder.path().toStdString() + "/"); }

    // Imports path with the reader itself; the record keeps what it reported.
    static std::unique_ptr<CTavrinDocument> ImportDirectly(const CTavrinString& path, const CTavrinString& folder,
                                                           CTavrinImportRecord& record)
    {
        record.source = path;
        Tavrin::CTavrinUSDReaderHandler handler;
        handler.SetProgressCallback(RecordingCallback(record));
        std::unique_ptr<CTavrinDocument> document(handler.ReadUSDFile(path, folder));
        record.document = document.get();
        return document;
    }

    static std::unique_ptr<CTavrinDocument> ImportThroughPlugin(const CTavrinString& path,
                                                                const CTavrinString& folder,
                                                                CTavrinImportRecord& record)
    {
        record.source = path;
        CTavrinImportRequest request;
        request.filePath = path;
        request.folder = folder;
        request.progressCallback = RecordingCallback(record);
        std::unique_ptr<CTavrinDocument> document(Importer()->Import(request));
        record.document = document.get();
        return document;
    }

    static CTavrinProgressCallback RecordingCallback(CTavrinImportRecord& record)
    {
        return [&record](CTavrinString message, int value) { record.progress.emplace_back(message, value); };
    }

    static std::string Json(const CTavrinImportRecord& record)
    {
        return Tavrin::ImportRecordToJsonText(record, Tavrin::SequenceJsonWriter(nullptr));
    }

private:
    QTemporaryDir m_folder;
    std::string m_scenePath;
};

TEST_F(PluginImport, GivesTheSameJsonAsTheReaderCalledDirectly)
{
    ASSERT_NE(Importer(), nullptr);
    CTavrinImportRecord direct;
    CTavrinImportRecord viaPlugin;
    const auto directDocument = ImportDirectly(ScenePath(), TextureFolder(), direct);
    const auto pluginDocument = ImportThroughPlugin(ScenePath(), TextureFolder(), viaPlugin);
    ASSERT_NE(directDocument, nullptr);
    ASSERT_NE(pluginDocument, nullptr);
    EXPECT_NE(directDocument.get(), pluginDocument.get());
    EXPECT_EQ(Json(viaPlugin), Json(direct));

    ASSERT_FALSE(viaPlugin.progress.empty());
    EXPECT_EQ(viaPlugin.progress.front(), std::make_pair(CTavrinString("Initilizing"), 1));
    EXPECT_EQ(viaPlugin.progress.back(), std::make_pair(CTavrinString("Done"), 100));
}

TEST_F(PluginImport, WithoutCallbackGivesTheSameDocument)
{
    ASSERT_NE(Importer(), nullptr);
    CTavrinImportRecord reported;
    const auto reportedDocument = ImportThroughPlugin(ScenePath(), TextureFolder(), reported);
    ASSERT_NE(reportedDocument, nullptr);

    CTavrinImportRequest request;
    request.filePath = ScenePath();
    request.folder = TextureFolder();
    std::unique_ptr<CTavrinDocument> silentDocument(Importer()->Import(request));
    ASSERT_NE(silentDocument, nullptr);
    const auto noSequence = Tavrin::SequenceJsonWriter(nullptr);
    EXPECT_EQ(Tavrin::DocumentToJson(*silentDocument, noSequence), Tavrin::DocumentToJson(*reportedDocument, noSequence));
}

TEST_F(PluginImport, AMissingFileEndsWithMinusOneAndNoDocumentAsDirectly)
{
    ASSERT_NE(Importer(), nullptr);
    const CTavrinString missing = ScenePath() + L"-missing.usda";
    CTavrinImportRecord direct;
    CTavrinImportRecord viaPlugin;
    EXPECT_EQ(ImportDirectly(missing, TextureFolder(), direct), nullptr);
    EXPECT_EQ(ImportThroughPlugin(missing, TextureFolder(), viaPlugin), nullptr);
    EXPECT_EQ(Json(viaPlugin), Json(direct));
    ASSERT_FALSE(viaPlugin.progress.empty());
    EXPECT_EQ(viaPlugin.progress.back().second, -1);
}

} // namespace
