// The crate reader must fill a layer exactly as the text reader does for the
// same scene: same fields, same value types, same values. The text below is
// the Blender scene of translated-cube.usdc, written out by hand (a subset:
// the moved cube and its mesh).

#include "corpusFiles.h"

#include "usdcore/sdf/crate/crateReader.h"
#include "usdcore/sdf/data.h"
#include "usdcore/sdf/schema.h"
#include "usdcore/sdf/usda/usdaReader.h"

#include <gtest/gtest.h>

#include <string>

PXR_NAMESPACE_USING_DIRECTIVE

namespace {

const char* const kCubeText = R"(#usda 1.0
(
    doc = "Blender v3.1.0"
    metersPerUnit = 1
    upAxis = "Z"
)

def Xform "Cube"
{
    matrix4d xformOp:transform = ( (1, 0, 0, 0), (0, 1, 0, 0), (0, 0, 1, 0), (-1.1853550672531128, 0, 1.9550952911376953, 1) )
    uniform token[] xformOpOrder = ["xformOp:transform"]

    def Mesh "Cube"
    {
        int[] faceVertexCounts = [4, 4, 4, 4, 4, 4]
        int[] faceVertexIndices = [0, 4, 6, 2, 3, 2, 6, 7, 7, 6, 4, 5, 5, 1, 3, 7, 1, 0, 2, 3, 5, 4, 0, 1]
        point3f[] points = [(1, 1, 1), (1, 1, -1), (1, -1, 1), (1, -1, -1), (-1, 1, 1), (-1, 1, -1), (-1, -1, 1), (-1, -1, -1)]
        uniform token subdivisionScheme = "none"
    }
}
)";

TEST(CrateVersusUsda, EveryFieldOfTheTextFormMatchesTheCrateForm)
{
    const char* const file = "lighttransport_tinyusdz/models/translated-cube.usdc";
    const std::string bytes = ReadCorpusFile(file);
    if (bytes.empty()) {
        GTEST_SKIP() << "corpus file absent: " << file;
    }
    SdfData crate, text;
    ASSERT_TRUE(SdfCrateReadData(bytes, file, &crate));
    ASSERT_TRUE(SdfUsdaReadData(kCubeText, "cube.usda", &text));

    struct Comparer : SdfAbstractDataSpecVisitor {
        const SdfData* crate;
        size_t compared = 0;
        bool VisitSpec(const SdfAbstractData& layer, const SdfPath& path) override
        {
            EXPECT_EQ(crate->GetSpecType(path), layer.GetSpecType(path)) << path.GetString();
            for (const TfToken& field : layer.List(path)) {
                // The text holds a subset of the scene's children.
                if (field == SdfChildrenKeys->PrimChildren ||
                    field == SdfChildrenKeys->PropertyChildren) {
                    continue;
                }
                const VtValue expected = layer.Get(path, field);
                const VtValue actual = crate->Get(path, field);
                // The text reader authors `custom` and `variability` on every
                // attribute, as OpenUSD's does; Blender's writer left them out
                // where they hold their fallbacks.
                if (actual.IsEmpty() &&
                    (field == SdfFieldKeys->Custom || field == SdfFieldKeys->Variability)) {
                    continue;
                }
                EXPECT_EQ(actual.GetTypeName(), expected.GetTypeName())
                    << path.GetString() << " " << field.GetString();
                EXPECT_TRUE(actual == expected) << path.GetString() << " " << field.GetString();
                ++compared;
            }
            return true;
        }
        void Done(const SdfAbstractData&) override {}
    } comparer;
    comparer.crate = &crate;
    text.VisitSpecs(&comparer);
    // 3 layer fields, 2 prims x 2 fields, 6 attributes x 2 fields, and the
    // variability of the 2 uniform attributes.
    EXPECT_GE(comparer.compared, 21u);
}

} // namespace
