// Point instancers: a node per shown instance, holding a copy of its
// prototype, and no node for the prototypes where they are authored.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <sstream>

#include "tests/usdreader/ImportSupport.h"

using namespace Tavrin;
using namespace TavrinReaderTests;
using ::testing::ElementsAre;

namespace {

// Three prototypes (a tree with a trunk below it, a rock, a bush shape)
// scattered count times along X; every tenth instance is hidden, the
// instance at index 5 made inactive by id.
std::string Forest(int count)
{
    std::ostringstream indices, positions, ids;
    for (int i = 0; i < count; ++i) {
        indices << (i ? ", " : "") << i % 3;
        positions << (i ? ", " : "") << "(" << i << ", 0, 0)";
        ids << (i ? ", " : "") << 1000 + i;
    }
    std::ostringstream hidden;
    for (int i = 0; i < count; i += 10)
        hidden << (i ? ", " : "") << 1000 + i;
    return ZUpScene(R"(
def Xform "World"
{
    def PointInstancer "Forest" (
        inactiveIds = [1005]
    )
    {
        int[] protoIndices = [)" + indices.str() + R"(]
        int64[] ids = [)" + ids.str() + R"(]
        point3f[] positions = [)" + positions.str() + R"(]
        int64[] invisibleIds = [)" + hidden.str() + R"(]
        rel prototypes = [</World/Forest/Prototypes/Tree>, </World/Forest/Prototypes/Rock>, </World/Forest/Prototypes/Bush>]
        def Scope "Prototypes"
        {
            def Xform "Tree"
            {
                double3 xformOp:translate = (0, 0, 1)
                uniform token[] xformOpOrder = ["xformOp:translate"]
                def Mesh "Trunk"
                {
                    int[] faceVertexCounts = [3]
                    int[] faceVertexIndices = [0, 1, 2]
                    point3f[] points = [(0, 0, 0), (1, 0, 0), (0, 1, 0)]
                }
            }
            class Mesh "Rock"
            {
                int[] faceVertexCounts = [3]
                int[] faceVertexIndices = [0, 1, 2]
                point3f[] points = [(0, 0, 0), (1, 0, 0), (0, 1, 0)]
            }
            def Cube "Bush" {}
        }
    }
}
)");
}

// Node names, counted.
std::map<std::string, int> NameCounts(const CTavrinJson& document)
{
    std::map<std::string, int> counts;
    for (const auto& node : document.at("nodes"))
        ++counts[node.at("name").get<std::string>()];
    return counts;
}

} // namespace

TEST(PointInstancers, EachShownInstanceHoldsACopyOfItsPrototype)
{
    const ImportResult result = ImportText(Forest(30));
    ASSERT_NE(result.document, nullptr);
    const CTavrinJson& nodes = result.json.at("nodes");
    // 30 instances, ten of each prototype; hidden by invisibleIds: 0 (a
    // tree), 10 (a rock), 20 (a bush); inactive: 5 (a bush).
    const std::map<std::string, int> counts = NameCounts(result.json);
    EXPECT_EQ(counts.at("Tree"), 9);
    EXPECT_EQ(counts.at("Trunk"), 9);
    EXPECT_EQ(counts.at("Rock"), 9);
    EXPECT_EQ(counts.at("Bush"), 8);
    EXPECT_EQ(counts.count("Tree_0"), 0u);
    EXPECT_EQ(counts.count("Bush_5"), 0u);
    EXPECT_EQ(counts.at("Bush_29"), 1);
    EXPECT_EQ(nodes.size(), 2u + 26u + 9u + 9u + 9u + 8u);

    // Instance 4 is a rock at x = 4 below the instancer; the copy below it
    // keeps the prototype's own transform.
    const CTavrinJson rock = NodeNamed(result.json, "Rock_4");
    ASSERT_FALSE(rock.is_null());
    EXPECT_EQ(rock.at("parent"), NodeNamed(result.json, "Forest").at("id"));
    EXPECT_THAT(TranslationOf(rock.at("localMatrix")), ElementsAre(4, 0, 0));
    const CTavrinJson tree = NodeNamed(result.json, "Tree_3");
    ASSERT_FALSE(tree.is_null());
    int treeCopy = -1;
    for (const auto& node : nodes)
        if (node.at("parent") == tree.at("id"))
            treeCopy = node.at("id").get<int>();
    ASSERT_GE(treeCopy, 0);
    EXPECT_EQ(nodes[treeCopy].at("name"), "Tree");
    EXPECT_THAT(TranslationOf(nodes[treeCopy].at("localMatrix")), ElementsAre(0, 0, 1));
    EXPECT_EQ(nodes[treeCopy + 1].at("name"), "Trunk");
    EXPECT_EQ(nodes[treeCopy + 1].at("parent"), treeCopy);
}

TEST(PointInstancers, WithoutThemThePrototypesAreReadWhereTheyAre)
{
    ScratchFolder scratch;
    const std::string path = scratch.Write("forest.usda", Forest(6));
    const ImportResult result = ImportFile(path, scratch.Path().string(), true, [](CTavrinUSDReaderHandler& handler) {
        handler.options.pointInstancers = false;
    });
    // The class-kept rock is not walked by the default traversal.
    EXPECT_THAT(NodeNames(result.json), ElementsAre("World", "Tree", "Trunk", "Bush"));
}

// An instancer inside its own prototype is expanded once in each copy, not
// without end; one whose arrays disagree makes its own node only.
TEST(PointInstancers, SelfContainingAndMalformedInstancersEndQuietly)
{
    const ImportResult cyclic = ImportText(ZUpScene(R"(
def PointInstancer "Outer"
{
    int[] protoIndices = [0, 0]
    point3f[] positions = [(0, 0, 0), (1, 0, 0)]
    rel prototypes = </Outer/P>
    def Xform "P"
    {
        def PointInstancer "Inner"
        {
            int[] protoIndices = [0]
            point3f[] positions = [(0, 0, 5)]
            rel prototypes = </Outer/P>
        }
    }
}
def PointInstancer "Broken"
{
    int[] protoIndices = [0, 0]
    point3f[] positions = [(0, 0, 0)]
    rel prototypes = </Broken/Q>
    def Xform "Q" {}
}
)"));
    ASSERT_NE(cyclic.document, nullptr);
    const std::map<std::string, int> counts = NameCounts(cyclic.json);
    // Outer's two instances each hold P, whose Inner holds P once more,
    // whose Inner is not expanded again.
    EXPECT_EQ(counts.at("P_1"), 1);
    EXPECT_EQ(counts.at("P"), 4);
    EXPECT_EQ(counts.at("Inner"), 4);
    EXPECT_EQ(counts.at("Broken"), 1);
    EXPECT_EQ(counts.count("Q"), 0u);
}
