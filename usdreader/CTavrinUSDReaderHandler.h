#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "host/CTavrinMatrix.h"
#include "host/CTavrinString.h"
#include "host/CTavrinTexture.h"
#include "usdreader/CTavrinImportHandler.h"
#include "usdreader/CTavrinImportOptions.h"
#include "usdreader/TavrinTextureCopies.h"
#include "usdreader/UsdApi.h"

// The schema classes appear here only in signatures; the converters that use
// them get their definitions through UsdApi.h.
PXR_NAMESPACE_OPEN_SCOPE
class UsdGeomGprim;
class UsdGeomMesh;
class UsdGeomXformable;
class UsdShadeMaterial;
class UsdShadeShader;
class UsdSkelAnimation;
class UsdSkelSkeleton;
PXR_NAMESPACE_CLOSE_SCOPE

namespace Tavrin {

class CTavrin3DObject;
class CTavrinBasicGeneralMaterial;
class CTavrinDocument;
class CTavrinGeometry;
class CTavrinRigGeometryTable;
class CTavrinSceneNode;
class CTavrinSequence;
class CTavrinSkeletonJoint;

// The state of one import. Every converter is a member operation and works on
// these members; one object serves exactly one call of ReadUSDFile. The maps
// point at nodes the document owns; the document and the sequence belong to
// the caller and the sequence container once the import returns.
class CTavrinUSDReaderHandler : public CTavrinImportHandler {
public:
    // Prims visited so far by the converting walk, and prims it will visit.
    std::int32_t visitedPrimCount = 0;
    std::int32_t primCount = 0;
    // Absolute prim path to the node made for it (or, for a prim that makes
    // no node, its parent's node); a joint's name, as a one-element relative
    // path, to that joint.
    std::map<PXR_NS::SdfPath, CTavrinSceneNode*> nodesByPath;
    // The prototype roots of the stage's point instancers, which make nodes
    // only as copies below the instances.
    std::set<PXR_NS::SdfPath> prototypeRoots;
    // The point instancers being expanded, outermost first: one met again
    // inside its own prototype is not expanded a second time.
    std::vector<PXR_NS::SdfPath> expandingInstancers;
    // Prims converted as instances' copies so far, against the limit.
    std::size_t instancedPrimCount = 0;
    PXR_NS::UsdStageRefPtr stage;
    CTavrinDocument* document = nullptr;
    // Both end with one backslash (the system separator after conversion).
    CTavrinString textureFolder;
    CTavrinString unpackFolder;
    std::int32_t unnamedJointCount = 0;
    // Up-axis and unit correction, pre-multiplied onto every root node.
    CTavrinMatrix rootMatrix;
    // Position in the skeleton's joint list to the joint made for it.
    std::map<int, CTavrinSkeletonJoint*> jointsByIndex;
    // The texture-coordinate primvar of the mesh being converted.
    PXR_NS::TfToken stPrimvarName;
    // The texture files copied into textureFolder so far.
    CTavrinTextureCopies textureCopies;
    // Shader path and asset path of the textures already reported as not
    // found or not copied.
    std::set<std::string> reportedTextures;
    // Other packages that textures were found in, by canonical path, and the
    // folders they were unpacked into (which stay, like unpackFolder).
    std::map<CTavrinString, CTavrinString> packageFolders;
    CTavrinSequence* sequence = nullptr;
    // Axis permutation and signs of converted matrices, points and normals.
    std::array<std::int32_t, 4> axisOrder = {0, 1, 2, 3};
    std::array<std::int32_t, 4> axisSign = {1, 1, 1, 1};
    // Key frames this import may still add. A file whose last sample lies
    // billions of frames away, or a crate file whose millions of samples
    // share one stored array, would otherwise make key frames until memory
    // runs out. About a million: a rig of a hundred joints over ten thousand
    // frames, and about half a kilobyte each in the model (twice that while
    // written as JSON), so a hostile file of a few bytes stays near a
    // gigabyte.
    std::int64_t keyFrameBudget = std::int64_t{1} << 20;
    // What the request chose; set before ReadUSDFile.
    CTavrinImportOptions options;

    // The driver: the document made from the file at path, textures copied
    // into folder; null when the file could not be read.
    CTavrinDocument* ReadUSDFile(CTavrinString path, CTavrinString folder);

    // A copy of source at a fixed ASCII path, for paths USD cannot be given.
    std::string MakeTemporaryCopy(const CTavrinString& source);
    // Sets unpackFolder and unpacks source into it when it is a zip package.
    void UnpackToTemporaryFolder(const CTavrinString& source);
    // Where the package file's entries are on disk: unpackFolder for the
    // imported file, a folder unpacked on first use for another package;
    // empty when there is no such file.
    CTavrinString UnpackedFolderOf(const std::string& package);

    // Prims to nodes.
    void ReadPrim(const PXR_NS::UsdPrim& prim, CTavrinSceneNode* parentNode);
    // The prims of range, each read under the node of its parent (the first
    // under parentNode), with a progress report per prim when
    // reportsProgress; prototypes of point instancers are left to their
    // instancers. The number of prims read.
    std::size_t ReadSubtree(const PXR_NS::UsdPrimRange& range, CTavrinSceneNode* parentNode, bool reportsProgress);
    // A point instancer's node, and below it a transform node per shown
    // instance holding a converted copy of the instance's prototype.
    CTavrinSceneNode* ReadPointInstancer(const PXR_NS::UsdGeomPointInstancer& instancer,
                                         CTavrinSceneNode* parentNode, const std::string& name);
    void ReadTransform(const PXR_NS::UsdGeomXformable& xformable, CTavrinSceneNode* node,
                       CTavrinSceneNode* parentNode, const std::string& name);
    // USD's row-vector matrix as a host column-vector matrix.
    CTavrinMatrix ConvertMatrix(const PXR_NS::GfMatrix4d& matrix) const;

    // Meshes: the per-mesh routine (skeleton, material, geometry) and the
    // geometry itself.
    void ReadMeshObject(const PXR_NS::UsdGeomMesh& mesh, CTavrin3DObject* node);
    void ReadMeshGeometry(const PXR_NS::UsdGeomMesh& mesh, CTavrinGeometry* geometry,
                          CTavrin3DObject* object);
    // The material of a mesh or shape, from its display colour and the
    // material bound to it or to its first bound subset, assigned to node.
    void ReadObjectMaterial(const PXR_NS::UsdGeomGprim& gprim, CTavrin3DObject* node);
    // The skinning step of the geometry: the rig table it attached to
    // geometry for the mesh's pointCount points, or null.
    CTavrinRigGeometryTable* ReadSkinWeights(const PXR_NS::UsdGeomMesh& mesh, CTavrinGeometry* geometry,
                                             CTavrin3DObject* object, std::size_t pointCount);

    // Implicit shapes: the 3D object of a Cube, Sphere, Cylinder, Cone,
    // Capsule or Plane prim, named, parented and placed as a mesh's, with
    // its material and the triangle mesh imaging draws for it; null, and no
    // object made, for any other prim or when the shape's sizes give no
    // surface.
    CTavrin3DObject* ReadShapeObject(const PXR_NS::UsdPrim& prim, CTavrinSceneNode* parentNode,
                                     const std::string& name);

    // Materials: true when prim's direct binding names at least one material.
    bool ReadMaterialBinding(const PXR_NS::UsdPrim& prim, CTavrinBasicGeneralMaterial* basicMaterial,
                             CTavrinString* name);
    void ReadPreviewSurface(const PXR_NS::UsdShadeMaterial& material,
                            CTavrinBasicGeneralMaterial* basicMaterial);
    // The texture file a connected shader names, copied into textureFolder;
    // empty, with a warning when a path was given, when there is none.
    CTavrinTexture ReadTexture(const PXR_NS::UsdShadeShader& shader);
    // The file on disk a texture's asset path names: under unpackFolder as
    // authored, else where USD resolved it; empty when it is nowhere.
    CTavrinString FindTextureFile(const PXR_NS::SdfAssetPath& asset);

    // Skeletons and animation.
    void ReadSkeletonBinding(const PXR_NS::UsdPrim& meshPrim);
    void ReadSkeleton(const PXR_NS::UsdSkelSkeleton& skeleton);
    void ReadSkeletalAnimation(const PXR_NS::UsdSkelAnimation& animation);
    void ReadTransformAnimation(const PXR_NS::UsdGeomXformable& xformable, CTavrinSceneNode* node,
                                CTavrinSceneNode* parentNode);
};

} // namespace Tavrin
