#pragma once
// Key frame data of a camera that shoots a grid of views around a centre, one
// view per frame: columns turn about the vertical through the centre, rows
// raise the camera towards the poles. A product turntable is the one-row
// layout; the hemispherical layout climbs from the horizon to the top, the
// spherical one runs from pole to pole.

#include "TavrinAnimation/src/TavrinKeyFrameDataTransformCamera.h"

namespace Tavrin {

class CTavrinKeyFrameDataTransformSphericalCamera : public CTavrinKeyFrameDataTransformCamera {
public:
    enum Layout : int { LAYOUT_ROUND_TABLE = 0, LAYOUT_HEMISPHERICAL = 1, LAYOUT_SPHERICAL = 2 };

    CTavrinKeyFrameDataTransformSphericalCamera(const CTavrinID& entity, const CTavrinBasicCamera& camera);
    CTavrinKeyFrameDataTransformSphericalCamera(const CTavrinKeyFrameDataTransformSphericalCamera& other) = default;

    bool ReadFromArchive(CTavrinArchiveBase* archive) override;
    bool WriteIntoArchive(CTavrinArchiveBase* archive) override;
    bool RestoreFromCopy(const CTavrinDataMembersManager* copy) override;
    // After the host base's members: "Type" (read-only text), "Start Frame",
    // "Columns", then "Rows" unless the layout is the round table, then
    // "Vertical Wrap" for the spherical layout.
    void* DataMemberSearch(int index, enumDataMemberType& type, CTavrinString& name, bool changed) override;

    int Type() const override { return KEYFRAME_SPHERICAL_CAMERA; }
    CTavrinKeyFrameData* CreateCopy(bool atWorkingFrame) const override;
    // The stored placement carried to the view of the working frame.
    CTavrinMatrix Matrix() const override;

    int LayoutType() const { return m_layout; }
    int Rows() const { return m_rows; }
    int Columns() const { return m_columns; }
    bool VerticalWrap() const { return m_verticalWrap; }
    CTavrin3DVertex Centre() const { return m_centre; }
    void SetCentre(const CTavrin3DVertex& centre) { m_centre = centre; }
    // The grid, brought into range (at least one column, at least one row
    // and two for the layouts that climb), with the end frame moved so that
    // the key frame has one frame per view.
    void SetGrid(int layout, int rows, int columns, bool verticalWrap);
    // "Round Table", "Hemispherical" or "Spherical".
    static CTavrinString LayoutName(int layout);

private:
    void NormaliseGrid();
    // End frame = start frame + views - 1.
    void FitEndFrameToGrid();

    int m_layout = LAYOUT_ROUND_TABLE;
    int m_rows = 1;
    int m_columns = 1;
    bool m_verticalWrap = false;
    CTavrin3DVertex m_centre;
    // The read-only "Type" member shows this text.
    CTavrinString m_layoutName = LayoutName(LAYOUT_ROUND_TABLE);
};

} // namespace Tavrin
