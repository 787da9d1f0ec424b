#include "usdcore/sdf/path.h"
#include "usdcore/tf/diagnostic.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <thread>
#include <vector>

PXR_NAMESPACE_USING_DIRECTIVE

namespace {

SdfPath P(const char* text)
{
    return SdfPath(std::string(text));
}

} // namespace

TEST(SdfPathParsing, EveryKindPrintsBackAsWritten)
{
    const char* texts[] = {
        "/", ".", "..", "../..", "/World", "/World/Geom/mesh_0", "World/Geom", "../Sibling/Child",
        "/World.visibility", "/World.primvars:st:indices", ".size", "/Model{lod=high}",
        "/Model{lod=high}Geom", "/Model{lod=high}{shading=red}Geom.color", "/Model{lod=}",
        "/A.rel[/B.attr]", "/A.rel[/B].note", "/A.rel[/B.r[/C]]", "/A.attr.mapper[/B.x]",
        "/A.attr.mapper[/B.x].arg", "/A.attr.expression", "/A.r[/B].a.mapper[/C.d]",
    };
    for (const char* text : texts) {
        TfDiagnosticCapture capture;
        const SdfPath path = P(text);
        EXPECT_FALSE(path.IsEmpty()) << text;
        EXPECT_EQ(path.GetString(), text);
        EXPECT_STREQ(path.GetText(), text);
        EXPECT_EQ(path.GetAsToken(), TfToken(text));
        EXPECT_EQ(capture.GetDiagnostics().size(), 0u) << text;
    }
}

TEST(SdfPathParsing, SlashAfterVariantSelectionIsDroppedWhenPrinted)
{
    EXPECT_EQ(P("/Model{lod=high}/Geom"), P("/Model{lod=high}Geom"));
    EXPECT_EQ(P("/Model{ lod = high }").GetString(), "/Model{lod=high}");
}

TEST(SdfPathParsing, IllFormedTextGivesTheEmptyPathAndAWarning)
{
    const char* texts[] = {
        "//A", "/A/", "/A//B", "/.x", "/A.", "/A..b", "/1abc", "/A/B-C", "/A.x[", "/A.x[]",
        "/A[/B]", "/A{lod}", "/A{=x}", "/A{lod=x", "/A.x{v=a}", "/A.x/B", ".../A", "../.x",
        "/A.x.y", "/A.rel[/B]x", "A B", "/A.x:", "/A.x::y",
    };
    for (const char* text : texts) {
        TfDiagnosticCapture capture;
        EXPECT_TRUE(P(text).IsEmpty()) << text;
        EXPECT_TRUE(capture.Contains(TF_DIAGNOSTIC_WARNING_TYPE, "Ill-formed SdfPath")) << text;
        EXPECT_FALSE(SdfPath::IsValidPathString(text)) << text;
    }
}

TEST(SdfPathParsing, EmptyTextIsTheEmptyPathWithoutComplaint)
{
    TfDiagnosticCapture capture;
    EXPECT_TRUE(P("").IsEmpty());
    EXPECT_EQ(capture.GetDiagnostics().size(), 0u);
    EXPECT_EQ(SdfPath(), SdfPath::EmptyPath());
    EXPECT_EQ(SdfPath().GetString(), "");
}

TEST(SdfPathParsing, DeeplyNestedTargetsAreRejectedNotRecursedInto)
{
    std::string text = "/A";
    for (int i = 0; i < 40; ++i) {
        text = "/A.r[" + text + "]";
    }
    TfDiagnosticCapture capture;
    EXPECT_TRUE(SdfPath(text).IsEmpty());
}

TEST(SdfPathParsing, ErrorMessageSaysWhere)
{
    std::string error;
    EXPECT_FALSE(SdfPath::IsValidPathString("/A/B.", &error));
    EXPECT_NE(error.find("offset 5"), std::string::npos) << error;
}

TEST(SdfPathQueries, KindsOfPaths)
{
    EXPECT_TRUE(P("/").IsAbsoluteRootPath());
    EXPECT_FALSE(P("/").IsPrimPath());
    EXPECT_TRUE(P("/").IsAbsoluteRootOrPrimPath());
    EXPECT_TRUE(P(".").IsPrimPath());
    EXPECT_TRUE(P("/A").IsRootPrimPath());
    EXPECT_FALSE(P("/A/B").IsRootPrimPath());
    EXPECT_TRUE(P("/A/B").IsPrimPath());
    EXPECT_TRUE(P("/A/B").IsAbsolutePath());
    EXPECT_FALSE(P("A/B").IsAbsolutePath());
    EXPECT_TRUE(P("/A.x").IsPropertyPath());
    EXPECT_TRUE(P("/A.x").IsPrimPropertyPath());
    EXPECT_FALSE(P("/A.x").IsPrimPath());
    EXPECT_TRUE(P("/A.ns:x").IsNamespacedPropertyPath());
    EXPECT_FALSE(P("/A.x").IsNamespacedPropertyPath());
    EXPECT_TRUE(P("/A{v=x}").IsPrimVariantSelectionPath());
    EXPECT_FALSE(P("/A{v=x}").IsPrimPath());
    EXPECT_TRUE(P("/A{v=x}B").IsPrimPath());
    EXPECT_TRUE(P("/A{v=x}B").ContainsPrimVariantSelection());
    EXPECT_FALSE(P("/A/B").ContainsPrimVariantSelection());
    EXPECT_TRUE(P("/A.r[/B]").IsTargetPath());
    EXPECT_TRUE(P("/A.r[/B]").ContainsTargetPath());
    EXPECT_TRUE(P("/A.r[/B].a").IsRelationalAttributePath());
    EXPECT_TRUE(P("/A.r[/B].a").IsPropertyPath());
    EXPECT_TRUE(P("/A.x.mapper[/B.y]").IsMapperPath());
    EXPECT_TRUE(P("/A.x.mapper[/B.y].arg").IsMapperArgPath());
    EXPECT_TRUE(P("/A.x.expression").IsExpressionPath());
    EXPECT_TRUE(P("/A.x").ContainsPropertyElements());
    EXPECT_FALSE(P("/A{v=x}").ContainsPropertyElements());
}

TEST(SdfPathQueries, ElementCountsNamesAndElements)
{
    EXPECT_EQ(P("/").GetPathElementCount(), 0u);
    EXPECT_EQ(P(".").GetPathElementCount(), 0u);
    EXPECT_EQ(P("/A/B.x").GetPathElementCount(), 3u);
    EXPECT_EQ(P("/A{v=x}B").GetPathElementCount(), 3u);
    EXPECT_EQ(P("../A").GetPathElementCount(), 2u);

    EXPECT_EQ(P("/A/B").GetName(), "B");
    EXPECT_EQ(P("/A/B.x:y").GetNameToken(), TfToken("x:y"));
    EXPECT_EQ(P("/A.r[/B].note").GetName(), "note");
    EXPECT_EQ(P("/A{v=x}").GetName(), "x");
    EXPECT_EQ(P("/A{v=}").GetName(), "v");
    EXPECT_EQ(P("/A.r[/B]").GetName(), "");
    EXPECT_EQ(P("/A.x.expression").GetName(), "expression");
    EXPECT_EQ(P("/").GetName(), "/");
    EXPECT_EQ(P(".").GetName(), ".");
    EXPECT_EQ(P("..").GetName(), "..");

    EXPECT_EQ(P("/").GetElementString(), "");
    EXPECT_EQ(P(".").GetElementToken(), TfToken());
    EXPECT_EQ(P("/A/B").GetElementString(), "B");
    EXPECT_EQ(P("/A.x").GetElementString(), ".x");
    EXPECT_EQ(P("/A{v=x}").GetElementString(), "{v=x}");
    EXPECT_EQ(P("/A.r[/B]").GetElementString(), "[/B]");
    EXPECT_EQ(P("/A.r[/B]").GetElementToken(), TfToken("[/B]"));

    EXPECT_EQ(P("/A{lod=high}").GetVariantSelection(),
              std::make_pair(std::string("lod"), std::string("high")));
    EXPECT_EQ(P("/A").GetVariantSelection(), std::make_pair(std::string(), std::string()));
    EXPECT_EQ(P("/A.r[/B/C].a").GetTargetPath(), P("/B/C"));
    EXPECT_TRUE(P("/A.r").GetTargetPath().IsEmpty());
}

TEST(SdfPathNavigation, ParentPaths)
{
    EXPECT_EQ(P("/A/B").GetParentPath(), P("/A"));
    EXPECT_EQ(P("/A").GetParentPath(), SdfPath::AbsoluteRootPath());
    EXPECT_TRUE(P("/").GetParentPath().IsEmpty());
    EXPECT_TRUE(SdfPath().GetParentPath().IsEmpty());
    EXPECT_EQ(P("/A.x").GetParentPath(), P("/A"));
    EXPECT_EQ(P("/A{v=x}").GetParentPath(), P("/A"));
    EXPECT_EQ(P("/A{v=x}B").GetParentPath(), P("/A{v=x}"));
    EXPECT_EQ(P("/A.r[/B].a").GetParentPath(), P("/A.r[/B]"));
    EXPECT_EQ(P("/A.r[/B]").GetParentPath(), P("/A.r"));
    EXPECT_EQ(P("A").GetParentPath(), SdfPath::ReflexiveRelativePath());
    EXPECT_EQ(P(".").GetParentPath(), P(".."));
    EXPECT_EQ(P("..").GetParentPath(), P("../.."));
    EXPECT_EQ(P("../A").GetParentPath(), P(".."));
}

TEST(SdfPathNavigation, PrimPathsAndVariantStripping)
{
    EXPECT_EQ(P("/A/B.x").GetPrimPath(), P("/A/B"));
    EXPECT_EQ(P("/A.r[/B].a").GetPrimPath(), P("/A"));
    EXPECT_EQ(P("/A{v=x}").GetPrimPath(), P("/A"));
    EXPECT_EQ(P("/A{v=x}B.y").GetPrimPath(), P("/A{v=x}B"));
    EXPECT_EQ(P("/A{v=x}.y").GetPrimOrPrimVariantSelectionPath(), P("/A{v=x}"));
    EXPECT_EQ(P("/").GetAbsoluteRootOrPrimPath(), P("/"));
    EXPECT_EQ(P("/A.x").GetAbsoluteRootOrPrimPath(), P("/A"));
    EXPECT_EQ(P("/A{v=x}B{w=y}C.z").StripAllVariantSelections(), P("/A/B/C.z"));
    EXPECT_EQ(P("/A/B").StripAllVariantSelections(), P("/A/B"));
}

TEST(SdfPathNavigation, PrefixesAndCommonPrefix)
{
    EXPECT_EQ(P("/A/B.x").GetPrefixes(), (SdfPathVector{P("/A"), P("/A/B"), P("/A/B.x")}));
    EXPECT_TRUE(P("/").GetPrefixes().empty());
    EXPECT_TRUE(P("/A/B.x").HasPrefix(P("/A")));
    EXPECT_TRUE(P("/A/B.x").HasPrefix(P("/")));
    EXPECT_TRUE(P("/A/B").HasPrefix(P("/A/B")));
    EXPECT_FALSE(P("/A/BC").HasPrefix(P("/A/B")));
    EXPECT_FALSE(P("/A").HasPrefix(P("/A/B")));
    EXPECT_FALSE(P("A/B").HasPrefix(P("/A")));
    EXPECT_FALSE(P("/A").HasPrefix(SdfPath()));
    EXPECT_EQ(P("/A/B/C").GetCommonPrefix(P("/A/B/D.x")), P("/A/B"));
    EXPECT_EQ(P("/A").GetCommonPrefix(P("/B")), P("/"));
}

TEST(SdfPathBuilding, AppendingElements)
{
    const SdfPath root = SdfPath::AbsoluteRootPath();
    const SdfPath world = root.AppendChild(TfToken("World"));
    EXPECT_EQ(world, P("/World"));
    EXPECT_EQ(world.AppendProperty(TfToken("xformOp:translate")), P("/World.xformOp:translate"));
    EXPECT_EQ(world.AppendVariantSelection("lod", "low").AppendChild(TfToken("G")),
              P("/World{lod=low}G"));
    EXPECT_EQ(world.AppendProperty(TfToken("r")).AppendTarget(P("/T")), P("/World.r[/T]"));
    EXPECT_EQ(P("/W.r[/T]").AppendRelationalAttribute(TfToken("a")), P("/W.r[/T].a"));
    EXPECT_EQ(P("/W.x").AppendMapper(P("/T.y")).AppendMapperArg(TfToken("k")),
              P("/W.x.mapper[/T.y].k"));
    EXPECT_EQ(P("/W.x").AppendExpression(), P("/W.x.expression"));
    EXPECT_EQ(P("/A").AppendPath(P("B/C.x")), P("/A/B/C.x"));
    EXPECT_EQ(P("/A").AppendPath(P(".")), P("/A"));
    EXPECT_EQ(P("/A").AppendElementString("B"), P("/A/B"));
    EXPECT_EQ(P("/A").AppendElementString(".x"), P("/A.x"));
    EXPECT_EQ(P("/A").AppendElementString("{v=sel}"), P("/A{v=sel}"));
    EXPECT_EQ(P("/A.r").AppendElementString("[/T]"), P("/A.r[/T]"));
    EXPECT_EQ(root.AppendElementToken(TfToken("Top")), P("/Top"));
    EXPECT_EQ(P("/Top").AppendElementToken(TfToken("{v=x}")), P("/Top{v=x}"));
    EXPECT_EQ(P("/Top{v=x}").AppendElementToken(TfToken("Geom")), P("/Top{v=x}Geom"));
    EXPECT_EQ(P("/Top").AppendElementToken(TfToken(".size")), P("/Top.size"));
    EXPECT_EQ(SdfPath::ReflexiveRelativePath().AppendChild(TfToken("A")), P("A"));
}

TEST(SdfPathBuilding, InvalidAppendsAreCodingErrors)
{
    TfDiagnosticCapture capture;
    EXPECT_TRUE(P("/A.x").AppendChild(TfToken("B")).IsEmpty());
    EXPECT_TRUE(P("/A").AppendChild(TfToken("1B")).IsEmpty());
    EXPECT_TRUE(P("/").AppendProperty(TfToken("x")).IsEmpty());
    EXPECT_TRUE(P("/A").AppendProperty(TfToken("x y")).IsEmpty());
    EXPECT_TRUE(P("/A").AppendTarget(P("/B")).IsEmpty());
    EXPECT_TRUE(P("/A").AppendPath(P("/B")).IsEmpty());
    EXPECT_TRUE(P("/A").AppendElementString("B/C").IsEmpty());
    EXPECT_TRUE(P("/A.x").AppendElementToken(TfToken("B")).IsEmpty());
    EXPECT_EQ(capture.Count(TF_DIAGNOSTIC_CODING_ERROR_TYPE), 8u);
}

TEST(SdfPathBuilding, SamePathIsTheSameNode)
{
    const SdfPath built = SdfPath::AbsoluteRootPath().AppendChild(TfToken("X")).AppendProperty(
        TfToken("y"));
    const SdfPath parsed = P("/X.y");
    EXPECT_EQ(built, parsed);
    EXPECT_EQ(built.GetHash(), parsed.GetHash());
    EXPECT_EQ(SdfPath::Hash()(built), std::hash<SdfPath>()(parsed));
}

TEST(SdfPathBuilding, FindingAPropertyPathNeverMakesOne)
{
    const SdfPath prim = P("/FindMe");
    const SdfPath made = prim.AppendProperty(TfToken("made"));
    EXPECT_EQ(Sdf_FindPropertyPath(prim, TfToken("made")), made);
    // A name no path was built with is absent, and stays so after asking.
    EXPECT_TRUE(Sdf_FindPropertyPath(prim, TfToken("neverMade")).IsEmpty());
    EXPECT_TRUE(Sdf_FindPropertyPath(prim, TfToken("neverMade")).IsEmpty());
    // The same name under another prim is another path.
    EXPECT_TRUE(Sdf_FindPropertyPath(P("/Other"), TfToken("made")).IsEmpty());
    // What AppendProperty refuses reports as it does.
    TfDiagnosticCapture capture;
    EXPECT_TRUE(Sdf_FindPropertyPath(prim, TfToken("x y")).IsEmpty());
    EXPECT_TRUE(Sdf_FindPropertyPath(made, TfToken("z")).IsEmpty());
    EXPECT_EQ(capture.Count(TF_DIAGNOSTIC_CODING_ERROR_TYPE), 2u);
}

TEST(SdfPathEditing, ReplacePrefix)
{
    EXPECT_EQ(P("/A/B.x").ReplacePrefix(P("/A"), P("/C/D")), P("/C/D/B.x"));
    EXPECT_EQ(P("/A/B").ReplacePrefix(P("/A/B"), P("/Z")), P("/Z"));
    EXPECT_EQ(P("/Q/B").ReplacePrefix(P("/A"), P("/Z")), P("/Q/B"));
    EXPECT_EQ(P("/A.r[/A/T]").ReplacePrefix(P("/A"), P("/Z")), P("/Z.r[/Z/T]"));
    EXPECT_EQ(P("/A.r[/A/T]").ReplacePrefix(P("/A"), P("/Z"), false), P("/Z.r[/A/T]"));
    EXPECT_EQ(P("/Q.r[/A/T]").ReplacePrefix(P("/A"), P("/Z")), P("/Q.r[/Z/T]"));
}

TEST(SdfPathEditing, AbsoluteAndRelativeForms)
{
    const SdfPath anchor = P("/A/B");
    EXPECT_EQ(P("C").MakeAbsolutePath(anchor), P("/A/B/C"));
    EXPECT_EQ(P("../C.x").MakeAbsolutePath(anchor), P("/A/C.x"));
    EXPECT_EQ(P("../..").MakeAbsolutePath(anchor), P("/"));
    EXPECT_EQ(P(".").MakeAbsolutePath(anchor), anchor);
    EXPECT_EQ(P(".x").MakeAbsolutePath(anchor), P("/A/B.x"));
    EXPECT_EQ(P("/Q").MakeAbsolutePath(anchor), P("/Q"));
    EXPECT_TRUE(P("../../..").MakeAbsolutePath(anchor).IsEmpty());

    EXPECT_EQ(P("/A/B/C").MakeRelativePath(anchor), P("C"));
    EXPECT_EQ(P("/A/C").MakeRelativePath(anchor), P("../C"));
    EXPECT_EQ(P("/A/B").MakeRelativePath(anchor), P("."));
    EXPECT_EQ(P("/A/B.x").MakeRelativePath(anchor), P(".x"));
    EXPECT_EQ(P("/A").MakeRelativePath(anchor), P(".."));
    EXPECT_EQ(P("/Q/R").MakeRelativePath(anchor), P("../../Q/R"));

    TfDiagnosticCapture capture;
    EXPECT_TRUE(P("C").MakeAbsolutePath(P("A")).IsEmpty());
    EXPECT_TRUE(P("C").MakeAbsolutePath(P("/A.x")).IsEmpty());
}

TEST(SdfPathIdentifiers, Validity)
{
    EXPECT_TRUE(SdfPath::IsValidIdentifier("_abc9"));
    EXPECT_FALSE(SdfPath::IsValidIdentifier("9abc"));
    EXPECT_FALSE(SdfPath::IsValidIdentifier(""));
    EXPECT_FALSE(SdfPath::IsValidIdentifier("a:b"));
    EXPECT_FALSE(SdfPath::IsValidIdentifier("a-b"));
    EXPECT_TRUE(SdfPath::IsValidNamespacedIdentifier("primvars:st:indices"));
    EXPECT_FALSE(SdfPath::IsValidNamespacedIdentifier("primvars:"));
    EXPECT_FALSE(SdfPath::IsValidNamespacedIdentifier(":st"));
    EXPECT_FALSE(SdfPath::IsValidNamespacedIdentifier("a::b"));
}

TEST(SdfPathOrdering, FollowsOpenUsdOrder)
{
    // Worked out by hand: empty first; absolute before relative; a prefix
    // before what extends it, so a prim's properties (which extend only
    // the prim) before its children; siblings of different kinds by kind
    // (child prim before variant selection), of one kind by name.
    const SdfPathVector expected = {
        SdfPath(), P("/"),       P("/A"),      P("/A.b"),    P("/A.c"), P("/A.c[/T]"), P("/A/B"),
        P("/A/C"), P("/A{v=a}"), P("/A{v=b}"), P("/A{v=b}.z"), P("/B"),   P("/a"),     P("."),
        P("A"),
    };
    SdfPathVector shuffled = expected;
    std::reverse(shuffled.begin(), shuffled.end());
    std::swap(shuffled[2], shuffled[9]);
    std::sort(shuffled.begin(), shuffled.end());
    EXPECT_EQ(shuffled, expected);
    EXPECT_FALSE(P("/A") < P("/A"));
    EXPECT_TRUE(P("/A") <= P("/A"));
    EXPECT_TRUE(P("/B") > P("/A/Z"));
}

TEST(SdfPathParsing, TruncatedAndCorruptedTextNeverCrashes)
{
    // Every prefix of a path using every element kind, and every single-byte
    // change of it to a character the grammar cares about, must parse or be
    // rejected cleanly (the sanitizer builds check the "cleanly").
    const std::string full = "/A{v=x}B.r[/C.s[/D]].attr.mapper[/E.y].arg";
    const char replacements[] = {'/', '.', '[', ']', '{', '}', '=', ':', ' ', '\0', 'x'};
    TfDiagnosticCapture capture;
    size_t parsed = 0;
    for (size_t length = 0; length <= full.size(); ++length) {
        parsed += !SdfPath(full.substr(0, length)).IsEmpty();
        for (size_t at = 0; at < length; ++at) {
            for (char replacement : replacements) {
                std::string text = full.substr(0, length);
                text[at] = replacement;
                const SdfPath path(text);
                if (!path.IsEmpty()) {
                    // Whatever parses prints as a path that parses to itself.
                    EXPECT_EQ(SdfPath(path.GetString()), path) << text;
                }
            }
        }
    }
    // Parsing prefixes: "/", "/A", "/A{v=x}", "/A{v=x}B", "/A{v=x}B.r",
    // "/A{v=x}B.r[/C.s[/D]]" followed by ".a", ".at", ".att", ".attr",
    // ".attr.mapper[/E.y]" and that followed by ".a", ".ar", ".arg".
    EXPECT_EQ(parsed, 14u);
}

TEST(SdfPathBuilding, ThreadsBuildingOnePathGetOneNode)
{
    // Readers may build paths on several threads: each distinct path must
    // still be a single node, and its lazily built text the same.
    constexpr int kThreads = 4;
    constexpr int kPrims = 500;
    std::vector<SdfPathVector> built(kThreads);
    std::vector<std::thread> threads;
    for (int t = 0; t < kThreads; ++t) {
        threads.emplace_back([t, &built] {
            const SdfPath root = SdfPath::AbsoluteRootPath().AppendChild(TfToken("Threads"));
            for (int i = 0; i < kPrims; ++i) {
                const SdfPath prim = root.AppendChild(TfToken("P" + std::to_string(i)));
                built[t].push_back(prim.AppendProperty(TfToken("x")));
                built[t].back().GetString();
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    for (int t = 1; t < kThreads; ++t) {
        EXPECT_EQ(built[t], built[0]);
    }
    EXPECT_EQ(built[0][123].GetString(), "/Threads/P123.x");
}
