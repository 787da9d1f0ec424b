// Mesh conversion of a generated grid of quads with face-varying normals and
// texture coordinates, and the vertex split alone on the same corners. Each
// quad has a normal of its own (a faceted surface) while the coordinates are
// continuous, so most points are split into four vertices.
#include <benchmark/benchmark.h>

#include <cmath>
#include <memory>
#include <string>
#include <vector>

#include "host/CTavrinDocument.h"
#include "host/CTavrinGeometry.h"
#include "usdcore/sdf/layer.h"
#include "usdreader/CTavrinUSDReaderHandler.h"
#include "usdreader/FaceVaryingSplit.h"

PXR_NAMESPACE_USING_DIRECTIVE

namespace {

// Quads per side of a grid of about `quads` quads.
int GridSide(benchmark::State& state)
{
    return static_cast<int>(std::lround(std::sqrt(static_cast<double>(state.range(0)))));
}

// One of a few tilted normals per quad, varying between neighbours.
GfVec3f FaceNormal(int row, int column)
{
    return GfVec3f(0.1f * static_cast<float>(column % 5 - 2), 0.1f * static_cast<float>(row % 3 - 1), 1.0f);
}

// The four corners of quad (row, column), counter-clockwise.
std::array<int, 4> QuadCorners(int side, int row, int column)
{
    const int first = row * (side + 1) + column;
    return {first, first + 1, first + side + 2, first + side + 1};
}

GfVec2f CornerCoordinate(int side, int point)
{
    const float scale = 1.0f / static_cast<float>(side);
    return GfVec2f(static_cast<float>(point % (side + 1)) * scale, static_cast<float>(point / (side + 1)) * scale);
}

void AppendVector(std::string& text, const float* values, int count)
{
    text += '(';
    for (int i = 0; i < count; ++i) {
        if (i)
            text += ", ";
        text += std::to_string(values[i]);
    }
    text += "), ";
}

std::string GridText(int side)
{
    std::string points, counts, indices, normals, coordinates;
    for (int row = 0; row <= side; ++row) {
        for (int column = 0; column <= side; ++column) {
            const float point[3] = {static_cast<float>(column), static_cast<float>(row), 0.0f};
            AppendVector(points, point, 3);
        }
    }
    for (int row = 0; row < side; ++row) {
        for (int column = 0; column < side; ++column) {
            counts += "4, ";
            const GfVec3f normal = FaceNormal(row, column);
            for (const int corner : QuadCorners(side, row, column)) {
                indices += std::to_string(corner) + ", ";
                AppendVector(normals, normal.data(), 3);
                AppendVector(coordinates, CornerCoordinate(side, corner).data(), 2);
            }
        }
    }
    return "#usda 1.0\ndef Mesh \"Grid\" {\n"
           "point3f[] points = [" + points + "]\n"
           "int[] faceVertexCounts = [" + counts + "]\n"
           "int[] faceVertexIndices = [" + indices + "]\n"
           "normal3f[] normals = [" + normals + "] (\n interpolation = \"faceVarying\"\n)\n"
           "texCoord2f[] primvars:st = [" + coordinates + "] (\n interpolation = \"faceVarying\"\n)\n"
           "}\n";
}

void BM_MeshConversion(benchmark::State& state)
{
    const int side = GridSide(state);
    const SdfLayerRefPtr layer = SdfLayer::OpenFromString(GridText(side), "grid.usda");
    const UsdStageRefPtr stage = UsdStage::Open(layer);
    const UsdGeomMesh mesh = UsdGeomMesh::Get(stage, SdfPath("/Grid"));
    int vertices = 0;
    for (auto _ : state) {
        state.PauseTiming();
        std::unique_ptr<Tavrin::CTavrinDocument> document(Tavrin::CTavrinDocument::Create(true));
        Tavrin::CTavrinUSDReaderHandler handler;
        handler.document = document.get();
        handler.stage = stage;
        Tavrin::CTavrin3DObject* object = Tavrin::CTavrin3DObject::Create(document.get());
        Tavrin::CTavrinGeometry* geometry = Tavrin::CTavrinGeometry::Create(document.get());
        state.ResumeTiming();

        handler.ReadMeshGeometry(mesh, geometry, object);

        state.PauseTiming();
        vertices = geometry->VerticiesTable() ? geometry->VerticiesTable()->GetCount() : 0;
        document.reset();
        state.ResumeTiming();
    }
    state.counters["quads"] = static_cast<double>(side) * side;
    state.counters["vertices"] = vertices;
}

// The same corners as the conversion hands to the split: quads fanned into
// (0, 1, 2) and (0, 2, 3), one normal and one coordinate per corner.
void BM_FaceVaryingSplit(benchmark::State& state)
{
    const int side = GridSide(state);
    std::vector<int> corners;
    std::vector<GfVec3f> normals;
    std::vector<GfVec2f> coordinates;
    for (int row = 0; row < side; ++row) {
        for (int column = 0; column < side; ++column) {
            const std::array<int, 4> quad = QuadCorners(side, row, column);
            for (const int k : {0, 1, 2, 0, 2, 3}) {
                corners.push_back(quad[static_cast<std::size_t>(k)]);
                normals.push_back(FaceNormal(row, column));
                coordinates.push_back(CornerCoordinate(side, quad[static_cast<std::size_t>(k)]));
            }
        }
    }
    Tavrin::CTavrinCornerKeys keys;
    keys.normals = normals.data()->data();
    keys.coordinates = coordinates.data()->data();
    const int pointCount = (side + 1) * (side + 1);
    std::size_t copies = 0;
    for (auto _ : state) {
        state.PauseTiming();
        std::vector<int> work = corners;
        state.ResumeTiming();
        const Tavrin::CTavrinFaceVaryingSplit split =
            Tavrin::SplitFaceVaryingCorners(pointCount, work.data(), work.size(), keys);
        copies = split.copies.size();
        benchmark::DoNotOptimize(work.data());
    }
    state.counters["quads"] = static_cast<double>(side) * side;
    state.counters["vertices"] = static_cast<double>(pointCount + copies);
}

} // namespace

BENCHMARK(BM_MeshConversion)->Arg(250000)->Arg(500000)->Arg(1000000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_FaceVaryingSplit)->Arg(250000)->Arg(500000)->Arg(1000000)->Unit(benchmark::kMillisecond);
