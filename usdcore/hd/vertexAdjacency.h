#pragma once

#include "usdcore/pxr.h"
#include "usdcore/vt/types.h"

PXR_NAMESPACE_OPEN_SCOPE

class HdMeshTopology;

/// For each point of a mesh, the face corners it stands at, each as the
/// pair of neighbours (previous, next) around its face, turned to the
/// right-handed winding. The table holds first an (offset, count) pair per
/// point, then at each offset count such pairs.
class Hd_VertexAdjacency final
{
public:
    /// Empties the table when an index lies outside the points the
    /// topology names (a warning says which).
    void BuildAdjacencyTable(const HdMeshTopology* topology);

    int GetNumPoints() const { return _numPoints; }
    const VtIntArray& GetAdjacencyTable() const { return _adjacencyTable; }

private:
    int _numPoints = 0;
    VtIntArray _adjacencyTable;
};

PXR_NAMESPACE_CLOSE_SCOPE
