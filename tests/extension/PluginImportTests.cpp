// An import through the loaded plug-in gives what the reader gives when
// called directly: the same progress and the same document.

#include "InitialisedPlugin.h"

#include "TavrinAnimation/src/TavrinSequenceContainer.h"
#include "TavrinAnimation/src/TavrinSequenceJson.h"
#include "host/CTavrinDocument.h"
#include "host/CTavrinDocumentJson.h"
#include "usdreader/CTavrinUSDReaderHandler.h"

#include <QTemporaryDir>

#include <fstream>
#include <map>
#include <memory>
#include <new>
#include <set>
#include <string>
#include <utility>
#include <vector>

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

// A transform animated over ten frames, with a child: the import makes its
// sequence while converting the first prim, before the second is reported.
constexpr const char* kAnimatedScene = R"(#usda 1.0
(
    metersPerUnit = 1
    upAxis = "Z"
)

def Xform "Mover"
{
    double3 xformOp:translate.timeSamples = {
        0: (0, 0, 0),
        10: (5, 0, 0),
    }
    uniform token[] xformOpOrder = ["xformOp:translate"]

    def Xform "Child"
    {
    }
}
)";

using Reports = std::vector<std::pair<CTavrinString, int>>;

// What the application sees of its sequence container: the sequences, the
// groups, and which sequences each group lists.
struct SequenceContainerState {
    std::map<Tavrin::CTavrinUUID, std::set<Tavrin::CTavrinUUID>> groupsOfSequences;
    std::set<Tavrin::CTavrinUUID> defaultGroupMembers;
    size_t groupCount = 0;

    static SequenceContainerState Of(const Tavrin::CTavrinSequenceContainer& container)
    {
        SequenceContainerState state;
        for (const auto& [uuid, sequence] : container.Sequences()) {
            const Tavrin::CTavrinAnimationCollapsingGroup* group = container.FindGroup(sequence->GroupGuid());
            state.groupsOfSequences[uuid] = group ? group->SequenceGuids() : std::set<Tavrin::CTavrinUUID>();
        }
        state.defaultGroupMembers = container.DefaultGroup()->SequenceGuids();
        state.groupCount = container.GroupCount();
        return state;
    }
    bool operator==(const SequenceContainerState& other) const
    {
        return groupsOfSequences == other.groupsOfSequences && defaultGroupMembers == other.defaultGroupMembers &&
               groupCount == other.groupCount;
    }
};

class PluginImport : public InitialisedPlugin {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_folder.isValid());
        m_scenePath = m_folder.filePath("scene.usda").toStdString();
        std::ofstream(m_scenePath) << kScene;
    }

    CTavrinString WrittenScene(const char* name, const char* text) const
    {
        const std::string path = m_folder.filePath(name).toStdString();
        std::ofstream(path) << text;
        return CTavrinString::FromUtf8(path);
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

// A callback of the application may throw (running out of memory, say) at
// any report; the import must then end as a failed import does, and take
// back what it had handed to the application.
TEST_F(PluginImport, AnImportInterruptedByAnExceptionEndsAsAFailedImport)
{
    ASSERT_NE(Importer(), nullptr);
    auto* container = new Tavrin::CTavrinSequenceContainer();
    Basic()->SetSequenceContainer(container);
    ASSERT_EQ(Tavrin::CTavrinSequenceContainer::GetInstance(), container);

    CTavrinImportRequest request;
    request.filePath = WrittenScene("animated.usda", kAnimatedScene);
    request.folder = TextureFolder();
    // An import that succeeds leaves a sequence and its group behind, which
    // the failed imports after it must not disturb.
    Reports completeReports;
    request.progressCallback = [&](CTavrinString message, int value) { completeReports.emplace_back(message, value); };
    std::unique_ptr<CTavrinDocument> complete(Importer()->Import(request));
    ASSERT_NE(complete, nullptr);
    ASSERT_EQ(container->Sequences().size(), 1u);
    const SequenceContainerState before = SequenceContainerState::Of(*container);
    const std::pair<CTavrinString, int> failure(CTavrinString("This file is not supported"), -1);

    for (size_t failing = 1; failing <= completeReports.size(); ++failing) {
        SCOPED_TRACE(completeReports[failing - 1].first.toStdString());
        Reports reports;
        request.progressCallback = [&](CTavrinString message, int value) {
            reports.emplace_back(message, value);
            if (reports.size() == failing)
                throw std::bad_alloc();
        };
        std::unique_ptr<CTavrinDocument> document(Importer()->Import(request));
        EXPECT_EQ(document, nullptr);
        ASSERT_EQ(reports.size(), failing + 1);
        EXPECT_EQ(reports.back(), failure);
        EXPECT_TRUE(SequenceContainerState::Of(*container) == before);
    }

    // Not even the closing report gets through, and what is thrown is no
    // standard exception.
    request.progressCallback = [](CTavrinString, int value) {
        if (value != 1)
            throw value;
    };
    std::unique_ptr<CTavrinDocument> document(Importer()->Import(request));
    EXPECT_EQ(document, nullptr);
    EXPECT_TRUE(SequenceContainerState::Of(*container) == before);

    Basic()->SetSequenceContainer(nullptr);
}

} // namespace

// What an animated import leaves in the application's own container: one
// sequence named after the file, in a fresh group captioned with the file's
// base name and listing just that sequence.
TEST_F(PluginImport, AnAnimatedImportLandsInTheApplicationsContainerInAGroupOfItsOwn)
{
    ASSERT_NE(Importer(), nullptr);
    auto* container = new Tavrin::CTavrinSequenceContainer();
    Basic()->SetSequenceContainer(container);
    ASSERT_EQ(Tavrin::CTavrinSequenceContainer::GetInstance(), container);
    const size_t groupsBefore = container->GroupCount();

    CTavrinImportRecord record;
    const auto document = ImportThroughPlugin(WrittenScene("walk cycle.usda", kAnimatedScene), TextureFolder(), record);
    ASSERT_NE(document, nullptr);
    ASSERT_EQ(container->Sequences().size(), 1u);
    Tavrin::CTavrinSequence& sequence = *container->Sequences().begin()->second;
    EXPECT_EQ(sequence.Name(), CTavrinString("walk cycle_Animation"));
    const Tavrin::CTavrinAnimationCollapsingGroup* group = container->FindGroup(sequence.GroupGuid());
    ASSERT_NE(group, nullptr);
    EXPECT_NE(group, container->DefaultGroup());
    EXPECT_EQ(group->Caption(), CTavrinString("walk cycle"));
    EXPECT_EQ(group->SequenceGuids(), std::set<Tavrin::CTavrinUUID>{sequence.Guid()});
    EXPECT_EQ(container->GroupCount(), groupsBefore + 1);
    EXPECT_TRUE(container->DefaultGroup()->SequenceGuids().empty());

    Basic()->SetSequenceContainer(nullptr);
}
