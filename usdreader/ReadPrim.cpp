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

} // namespace Tavrin
