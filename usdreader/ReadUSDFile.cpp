#include "TavrinAnimation/src/TavrinAnimationCollapsingGroup.h"
#include "TavrinAnimation/src/TavrinSequence.h"
#include "host/CTavrinDocument.h"
#include "usdreader/CTavrinUSDReaderHandler.h"
#include "usdreader/TavrinFileHelpers.h"
#include "utilities/TavrinPlatform.h"

PXR_NAMESPACE_USING_DIRECTIVE

namespace Tavrin {

namespace {

// A quarter turn, kept at the value documents made so far were imported with
// (a hair off pi/2), so that re-imports line up with them.
constexpr double quarterTurn = 1.57079632675;

// The host is Z-up and measures in metres: a Y-up stage is turned a quarter
// about X, and every stage is scaled by its metres per unit.
CTavrinMatrix RootCorrection(const UsdStageRefPtr& stage)
{
    CTavrinMatrix rootMatrix;
    if (UsdGeomGetStageUpAxis(stage).GetString() == "Y")
        rootMatrix = CTavrinMatrix::CreateRotaionAroundX(quarterTurn);
    const double metersPerUnit = UsdGeomGetStageMetersPerUnit(stage);
    return rootMatrix * CTavrinMatrix::CreateScalling(metersPerUnit, metersPerUnit, metersPerUnit);
}

// The sequence is named after the file, so that the application lists it
// beside the document it came with.
void NameSequence(CTavrinSequence& sequence, CTavrinString path)
{
    path.RemovePath();
    path.RemoveExt();
    sequence.SetName(path + CTavrinString("_Animation"));
    if (CTavrinAnimationCollapsingGroup* group = sequence.Group())
        group->SetCaption(path);
}

// Deletes the temporary copy, if one was made, however the read ends. The
// stage goes first: it holds the copy's layer files open.
struct TemporaryCopyRemoval {
    CTavrinUSDReaderHandler& handler;
    std::string path;

    ~TemporaryCopyRemoval()
    {
        if (path.empty())
            return;
        handler.stage = UsdStageRefPtr();
        RemoveFile(CTavrinString(path));
    }
};

} // namespace

CTavrinDocument* CTavrinUSDReaderHandler::ReadUSDFile(CTavrinString path, CTavrinString folder)
{
    ReportProgress("Initilizing", 1);

    // USD is given narrow paths only. Where those are UTF-8 the file is read
    // where it is, so that what it names beside itself is found; elsewhere a
    // path with characters outside ASCII is read through a copy.
    const bool readsTemporaryCopy = !narrowPathsAreUtf8 && path.HasUnicode();
    const std::string usdPath = readsTemporaryCopy ? MakeTemporaryCopy(path) : path.toStdString();
    const TemporaryCopyRemoval removeTemporaryCopy{*this, readsTemporaryCopy ? usdPath : std::string()};

    if (!UsdStage::IsSupportedFile(usdPath)) {
        ReportProgress("This file is not supported", -1);
        return nullptr;
    }
    stage = UsdStage::Open(usdPath, UsdStage::LoadAll);
    if (!stage) {
        ReportProgress("Trying to read empty file", -1);
        return nullptr;
    }

    document = CTavrinDocument::Create(true);
    textureFolder = folder + CTavrinString::SystemSeparator;
    // The package is unpacked from the original file: the copy exists only
    // for USD's sake.
    UnpackToTemporaryFolder(path);
    rootMatrix = RootCorrection(stage);

    // Instanced content is walked as instance proxies: at the instance's
    // place, named and parented as if authored there.
    const Usd_PrimFlagsPredicate walked =
        options.instances ? UsdTraverseInstanceProxies(UsdPrimDefaultPredicate) : UsdPrimDefaultPredicate;
    // A first walk counts, so that progress can be told in percent, and
    // finds the prototypes of point instancers, which the second leaves to
    // their instancers.
    for (const UsdPrim& prim : stage->Traverse(walked)) {
        ++primCount;
        if (const UsdGeomPointInstancer instancer =
                options.pointInstancers ? UsdGeomPointInstancer(prim) : UsdGeomPointInstancer()) {
            SdfPathVector prototypes;
            instancer.GetPrototypesRel().GetTargets(&prototypes);
            prototypeRoots.insert(prototypes.begin(), prototypes.end());
        }
    }
    ReadSubtree(stage->Traverse(walked), nullptr, true);

    ReportProgress("Finalizing", 99);
    if (sequence)
        NameSequence(*sequence, path);
    ReportProgress("Done", 100);
    return document;
}

} // namespace Tavrin
