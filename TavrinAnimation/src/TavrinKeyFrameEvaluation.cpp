#include "TavrinAnimation/src/TavrinKeyFrameEvaluation.h"

#include "TavrinAnimation/src/TavrinKeyFrameDataLight.h"
#include "TavrinAnimation/src/TavrinKeyFrameDataMaterial.h"
#include "TavrinAnimation/src/TavrinKeyFrameDataMorph.h"
#include "TavrinAnimation/src/TavrinKeyFrameDataTransformSphericalCamera.h"
#include "TavrinAnimation/src/TavrinKeyFrameDataVertices.h"
#include "TavrinAnimation/src/TavrinTransformInterpolation.h"
#include "host/CTavrinLight.h"
#include "host/CTavrinMaterial.h"
#include "host/CTavrinTransform.h"

#include <algorithm>
#include <optional>

namespace Tavrin {

namespace {

double LinearByFrame(double valueA, double valueB, int frame, int frameA, int frameB) {
    if (frameA == frameB)
        return valueA;
    const double span = static_cast<double>(frameB) - frameA;
    return valueA + (static_cast<double>(frame) - frameA) / span * (valueB - valueA);
}

// The matrix between two transform members, blended in the space the
// entity's transform is uniformised in so that non-uniform parent scaling
// does not skew the rotation. Nothing when the entity is no transform.
std::optional<CTavrinMatrix> MatrixBetween(const CTavrinKeyFrameDataTransform& before,
                                           const CTavrinKeyFrameDataTransform& after, const CTavrin3DVertex& pivot,
                                           int frame) {
    auto* transform = dynamic_cast<CTavrinTransform*>(before.EntityID().Entity());
    if (!transform)
        return std::nullopt;
    const CTavrinMatrix uniformization = transform->UniformizationMatrix();
    const CTavrinMatrix inverseUniformization = uniformization.Inverse();
    CTavrin3DVertex uniformPivot = pivot;
    uniformPivot.ModifyByTransform(inverseUniformization);
    return InterpolateTransformMatrix(before.Matrix() * uniformization, after.Matrix() * uniformization,
                                      uniformPivot, frame, before.WorkingFrame(), after.WorkingFrame(),
                                      before.EaseOutMode(), after.EaseInMode()) *
           inverseUniformization;
}

// The pivot of the key frame numbered later.
CTavrin3DVertex PivotBetween(const CTavrinKeyFrameDataTransform& before, const CTavrinKeyFrameDataTransform& after) {
    return before.SerialNumber() > after.SerialNumber() ? before.Pivot() : after.Pivot();
}

CTavrinKeyFrameDataPtr BetweenTransforms(CTavrinKeyFrameData& beforeData, CTavrinKeyFrameData& afterData,
                                         int frame) {
    auto* before = dynamic_cast<CTavrinKeyFrameDataTransform*>(&beforeData);
    auto* after = dynamic_cast<CTavrinKeyFrameDataTransform*>(&afterData);
    if (!before || !after)
        return nullptr;
    const CTavrin3DVertex pivot = PivotBetween(*before, *after);
    const std::optional<CTavrinMatrix> matrix = MatrixBetween(*before, *after, pivot, frame);
    if (!matrix)
        return nullptr;
    auto* between = CTavrinKeyFrameDataTransform::Create(before->EntityID(), *matrix);
    between->SetPivot(pivot);
    return between;
}

CTavrin3DVertex LerpPoint(const CTavrin3DVertex& from, const CTavrin3DVertex& to, double t) {
    return from + (to - from) * t;
}

// Lens values blend linearly; whole cameras blend by position, target and up
// when both key frames ask for it, else by the transform matrices.
CTavrinKeyFrameDataPtr BetweenCameras(CTavrinKeyFrameData& beforeData, CTavrinKeyFrameData& afterData, int frame) {
    auto* before = dynamic_cast<CTavrinKeyFrameDataTransformCamera*>(&beforeData);
    auto* after = dynamic_cast<CTavrinKeyFrameDataTransformCamera*>(&afterData);
    if (!before || !after)
        return nullptr;
    const int frameA = before->WorkingFrame();
    const int frameB = after->WorkingFrame();
    const auto lens = [&](double valueA, double valueB) { return LinearByFrame(valueA, valueB, frame, frameA, frameB); };
    const double fieldOfView = lens(before->FieldOfView(), after->FieldOfView());
    const double depthOfField = lens(before->DepthOfFieldDistance(), after->DepthOfFieldDistance());
    const double fieldStop = lens(before->DepthOfFieldFieldStop(), after->DepthOfFieldFieldStop());

    CTavrinKeyFrameDataTransformCamera* between = nullptr;
    if (before->BlendsCameras() && after->BlendsCameras()) {
        const CTavrinBasicCamera cameraA = before->BasicCamera();
        const CTavrinBasicCamera cameraB = after->BasicCamera();
        const double t = LinearByFrame(0.0, 1.0, frame, frameA, frameB);
        const CTavrinBasicCamera camera(LerpPoint(cameraA.Position(), cameraB.Position(), t),
                                        LerpPoint(cameraA.LookAt(), cameraB.LookAt(), t),
                                        LerpPoint(cameraA.CamUp(), cameraB.CamUp(), t));
        between = new CTavrinKeyFrameDataTransformCamera(before->EntityID(), camera);
        between->SetBlendsCameras(true);
    } else {
        const CTavrin3DVertex pivot = PivotBetween(*before, *after);
        const std::optional<CTavrinMatrix> matrix = MatrixBetween(*before, *after, pivot, frame);
        if (!matrix)
            return nullptr;
        between = new CTavrinKeyFrameDataTransformCamera(before->EntityID(), before->BasicCamera());
        between->SetMatrix(*matrix);
        between->SetPivot(pivot);
    }
    between->SetFieldOfView(fieldOfView);
    between->SetDepthOfField(before->DepthOfFieldEnabled(), depthOfField, fieldStop);
    return between;
}

// The two views, each at its working frame, blended as cameras with the
// ease of the pair; the result shows the one blended view.
CTavrinKeyFrameDataPtr BetweenSphericalCameras(CTavrinKeyFrameData& beforeData, CTavrinKeyFrameData& afterData,
                                               int frame) {
    auto* before = dynamic_cast<CTavrinKeyFrameDataTransformSphericalCamera*>(&beforeData);
    auto* after = dynamic_cast<CTavrinKeyFrameDataTransformSphericalCamera*>(&afterData);
    if (!before || !after)
        return nullptr;
    const double t = TransitionFraction(frame, before->WorkingFrame(), after->WorkingFrame(), before->EaseOutMode(),
                                        after->EaseInMode());
    const CTavrinBasicCamera cameraA = before->BasicCamera();
    const CTavrinBasicCamera cameraB = after->BasicCamera();
    CTavrinBasicCamera camera(LerpPoint(cameraA.Position(), cameraB.Position(), t),
                              LerpPoint(cameraA.LookAt(), cameraB.LookAt(), t),
                              LerpPoint(cameraA.CamUp(), cameraB.CamUp(), t));
    camera.SetFOV(cameraA.FOV() + (cameraB.FOV() - cameraA.FOV()) * t);
    camera.SetDOF(cameraA.DOFEnabled(), cameraA.DOFDistance() + (cameraB.DOFDistance() - cameraA.DOFDistance()) * t,
                  cameraA.DOFFieldStop() + (cameraB.DOFFieldStop() - cameraA.DOFFieldStop()) * t);
    auto* between = new CTavrinKeyFrameDataTransformSphericalCamera(before->EntityID(), camera);
    between->SetCentre(before->Centre() + (after->Centre() - before->Centre()) * t);
    return between;
}

// The two payloads blended with the ease of the pair. The blend keeps the
// original entity of before when both payloads are the same (named)
// material, else it belongs to after's.
CTavrinKeyFrameDataPtr BetweenMaterials(CTavrinKeyFrameData& beforeData, CTavrinKeyFrameData& afterData,
                                        int frame) {
    auto* before = dynamic_cast<CTavrinKeyFrameDataMaterial*>(&beforeData);
    auto* after = dynamic_cast<CTavrinKeyFrameDataMaterial*>(&afterData);
    if (!before || !after)
        return nullptr;
    const double t = TransitionFraction(frame, before->WorkingFrame(), after->WorkingFrame(), before->EaseOutMode(),
                                        after->EaseInMode());
    auto* between = new CTavrinKeyFrameDataMaterial(
        before->EntityID(), CTavrinBasicMaterial::Interpolate(*before->Material(), *after->Material(), t));
    const bool sameMaterial = before->Material()->Name() == after->Material()->Name();
    between->SetOriginalEntityID(sameMaterial ? before->OriginalEntityID() : after->OriginalEntityID());
    return between;
}

// The two lights blended with the ease of the pair; lights of two kinds do
// not blend, and before then holds until after.
CTavrinKeyFrameDataPtr BetweenLights(CTavrinKeyFrameData& beforeData, CTavrinKeyFrameData& afterData, int frame) {
    auto* before = dynamic_cast<CTavrinKeyFrameDataLight*>(&beforeData);
    auto* after = dynamic_cast<CTavrinKeyFrameDataLight*>(&afterData);
    if (!before || !after)
        return nullptr;
    const double t = TransitionFraction(frame, before->WorkingFrame(), after->WorkingFrame(), before->EaseOutMode(),
                                        after->EaseInMode());
    CTavrinBasicLight* blend = CTavrinBasicLight::Interpolate(*before->Light(), *after->Light(), t);
    if (!blend)
        return CTavrinKeyFrameDataPtr(before);
    return CTavrinKeyFrameDataPtr(new CTavrinKeyFrameDataLight(before->EntityID(), blend));
}

// Vector by vector, with the ease of the pair. Where the counts differ the
// vectors past the shorter table are before's.
CTavrinKeyFrameDataPtr BetweenVertices(CTavrinKeyFrameData& beforeData, CTavrinKeyFrameData& afterData, int frame) {
    auto* before = dynamic_cast<CTavrinKeyFrameDataVertices*>(&beforeData);
    auto* after = dynamic_cast<CTavrinKeyFrameDataVertices*>(&afterData);
    if (!before || !after)
        return nullptr;
    const CTavrinBasic3DVectorsTable* tableA = before->WorkingFrameTable();
    const CTavrinBasic3DVectorsTable* tableB = after->WorkingFrameTable();
    if (!tableA || !tableB)
        return nullptr;
    const double t = TransitionFraction(frame, before->WorkingFrame(), after->WorkingFrame(), before->EaseOutMode(),
                                        after->EaseInMode());
    std::vector<CTavrin3DVertex> vectors = tableA->Vectors();
    const std::size_t blended = std::min(vectors.size(), tableB->Vectors().size());
    for (std::size_t i = 0; i < blended; ++i)
        vectors[i] = LerpPoint(vectors[i], tableB->Vectors()[i], t);
    return CTavrinKeyFrameDataPtr(
        new CTavrinKeyFrameDataVertices(before->EntityID(), new CTavrinBasic3DVectorsTable(std::move(vectors))));
}

CTavrinKeyFrameDataPtr BetweenMorphs(CTavrinKeyFrameData& beforeData, CTavrinKeyFrameData& afterData, int frame) {
    auto* before = dynamic_cast<CTavrinKeyFrameDataMorph*>(&beforeData);
    auto* after = dynamic_cast<CTavrinKeyFrameDataMorph*>(&afterData);
    if (!before || !after)
        return nullptr;
    const double weight =
        LinearByFrame(before->Weight(), after->Weight(), frame, before->WorkingFrame(), after->WorkingFrame());
    return CTavrinKeyFrameDataPtr(
        new CTavrinKeyFrameDataMorph(before->EntityID(), before->MorphedObjectID(), weight));
}

} // namespace

CTavrinKeyFrameDataPtr InterpolateKeyFrameData(CTavrinKeyFrameData& before, CTavrinKeyFrameData& after, int frame) {
    switch (before.Type()) {
    case KEYFRAME_TRANSFORM:
    case KEYFRAME_ROUND_TABLE:
    case KEYFRAME_BSPLINE_FOLLOWER:
        return BetweenTransforms(before, after, frame);
    case KEYFRAME_CAMERA:
        return BetweenCameras(before, after, frame);
    case KEYFRAME_MATERIAL:
        return BetweenMaterials(before, after, frame);
    case KEYFRAME_LIGHT:
        return BetweenLights(before, after, frame);
    case KEYFRAME_VERTICES:
        return BetweenVertices(before, after, frame);
    case KEYFRAME_SPHERICAL_CAMERA:
        return BetweenSphericalCameras(before, after, frame);
    case KEYFRAME_HIDE_SHOW:
        before.SetWorkingFrame(frame);
        return CTavrinKeyFrameDataPtr(before.CreateCopy(false));
    case KEYFRAME_MORPH:
        return BetweenMorphs(before, after, frame);
    default:
        return nullptr;
    }
}

} // namespace Tavrin
