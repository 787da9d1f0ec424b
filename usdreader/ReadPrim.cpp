#include "host/CTavrinGeometry.h"
#include "host/CTavrinSceneNode.h"
#include "usdreader/CTavrinUSDReaderHandler.h"

PXR_NAMESPACE_USING_DIRECTIVE

namespace Tavrin {

// Meshes, implicit shapes (when the options take them), skeleton roots and
// transforms make nodes, tested in this order (a mesh is also a transform).
// Any other prim makes none and lends its path to its parent's node, so that
// its children hang under the nearest converted ancestor.
void CTavrinUSDReaderHandler::ReadPrim(const UsdPrim& prim, CTavrinSceneNode* parentNode)
{
    const std::string name = prim.GetName().GetString();
    const SdfPath& path = prim.GetPath();

    // Joints are entered under their bare names. A prim that bears the name
    // of a joint converted earlier is that joint's stand-in in the scene and
    // makes nothing; its children, finding no parent node, become roots.
    if (nodesByPath.count(SdfPath(name)) != 0)
        return;

    CTavrinSceneNode* node = parentNode;
    if (const UsdGeomMesh mesh = UsdGeomMesh::Get(stage, path)) {
        CTavrin3DObject* object = CTavrin3DObject::Create(document);
        ReadTransform(mesh, object, parentNode, name);
        ReadMeshObject(mesh, object);
        node = object;
    } else if (CTavrin3DObject* shape = options.shapes ? ReadShapeObject(prim, parentNode, name) : nullptr) {
        node = shape;
    } else if (const UsdGeomPointInstancer instancer =
                   options.pointInstancers ? UsdGeomPointInstancer::Get(stage, path) : UsdGeomPointInstancer()) {
        node = ReadPointInstancer(instancer, parentNode, name);
    } else if (const UsdSkelRoot skeletonRoot = UsdSkelRoot::Get(stage, path)) {
        node = CTavrinSkeletonJoint::Create(document);
        ReadTransform(skeletonRoot, node, parentNode, name);
    } else if (const UsdGeomXform transform = UsdGeomXform::Get(stage, path)) {
        node = CTavrinTransformNode::Create(document);
        ReadTransform(transform, node, parentNode, name);
    }

    if (node)
        nodesByPath[path] = node;
}

// Parents come before their children, so a parent's node is always in
// nodesByPath by the time its children look for it; the first prim of the
// walk hangs under parentNode.
std::size_t CTavrinUSDReaderHandler::ReadSubtree(const UsdPrimRange& range, CTavrinSceneNode* parentNode,
                                                 bool reportsProgress)
{
    std::size_t read = 0;
    for (auto it = range.begin(); it != range.end(); ++it) {
        const UsdPrim& prim = *it;
        if (prototypeRoots.count(prim.GetPath())) {
            it.PruneChildren();
            continue;
        }
        if (reportsProgress) {
            ++visitedPrimCount;
            if (progressCallback && primCount > 0) {
                const int percent = static_cast<int>(static_cast<double>(visitedPrimCount) / primCount * 96.0 + 2.0);
                if (percent <= 98)
                    ReportProgress("Reading Geometries", percent);
            }
        }
        const auto parentEntry = it == range.begin() ? nodesByPath.end() : nodesByPath.find(prim.GetParent().GetPath());
        ReadPrim(prim, parentEntry != nodesByPath.end() ? parentEntry->second : parentNode);
        ++read;
    }
    return read;
}

} // namespace Tavrin
