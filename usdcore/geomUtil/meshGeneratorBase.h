#pragma once

#include "usdcore/gf/matrix4d.h"
#include "usdcore/gf/vec3d.h"
#include "usdcore/pxOsd/meshTopology.h"
#include "usdcore/pxr.h"

#include <cstddef>
#include <iterator>

PXR_NAMESPACE_OPEN_SCOPE

/// What the mesh generators share: the topology of rings of points closed
/// by optional fans at either end, and the writing of generated points to
/// a caller's iterator (of GfVec3f or GfVec3d), through an optional frame.
///
/// The generators only describe surfaces for imaging; the layout of their
/// points and faces is the one OpenUSD's imaging draws.
class GeomUtilMeshGeneratorBase
{
public:
    GeomUtilMeshGeneratorBase() = delete;

protected:
    /// How the end of a tube of quad strips is closed: not at all, by a
    /// fan sharing the strip's ring of points (a smooth join), or by a fan
    /// over a coincident ring of its own (a crease once normals are made).
    enum _CapStyle { CapStyleNone, CapStyleSharedEdge, CapStyleSeparateEdge };

    /// Faces of a closed tube of numRadial segments: the bottom fan, then
    /// numQuadStrips strips of quads, then the top fan, all right-handed
    /// and seen as outward from the tube's axis. Points are numbered bottom
    /// pole, rings of numRadial points from the bottom up, top pole; a
    /// separate-edge cap owns the ring next to it.
    static PxOsdMeshTopology _GenerateCappedQuadTopology(size_t numRadial, size_t numQuadStrips,
                                                         _CapStyle bottomCapStyle, _CapStyle topCapStyle);

    /// Takes points in double precision and stores them, through the frame
    /// when one is given, in the point type of the caller's iterator.
    class _PointWriter
    {
    public:
        template <class PointIterType>
        _PointWriter(PointIterType& iter, const GfMatrix4d* framePtr)
            : _write(&_WriteTo<PointIterType>), _iter(&iter), _framePtr(framePtr)
        {
        }
        void Write(const GfVec3d& point) const { _write(_iter, _framePtr ? _framePtr->Transform(point) : point); }

    private:
        template <class PointIterType>
        static void _WriteTo(void* iter, const GfVec3d& point)
        {
            using PointType = typename std::iterator_traits<PointIterType>::value_type;
            PointIterType& it = *static_cast<PointIterType*>(iter);
            *it = PointType(point);
            ++it;
        }

        void (*_write)(void*, const GfVec3d&);
        void* _iter;
        const GfMatrix4d* _framePtr;
    };
};

PXR_NAMESPACE_CLOSE_SCOPE
