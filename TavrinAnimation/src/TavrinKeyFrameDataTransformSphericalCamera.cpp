#include "TavrinAnimation/src/TavrinKeyFrameDataTransformSphericalCamera.h"

#include "TavrinAnimation/src/TavrinArchiveValues.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace Tavrin {

namespace {
// File version from which the centre of the views is stored; older records
// orbit the origin.
constexpr unsigned int kCentreVersion = 10064;
constexpr double kPi = 3.14159265358979323846;
} // namespace

CTavrinKeyFrameDataTransformSphericalCamera::CTavrinKeyFrameDataTransformSphericalCamera(
    const CTavrinID& entity, const CTavrinBasicCamera& camera)
    : CTavrinKeyFrameDataTransformCamera(entity, camera), m_centre(camera.LookAt()) {}

CTavrinString CTavrinKeyFrameDataTransformSphericalCamera::LayoutName(int layout) {
    switch (layout) {
    case LAYOUT_HEMISPHERICAL:
        return CTavrinString("Hemispherical");
    case LAYOUT_SPHERICAL:
        return CTavrinString("Spherical");
    default:
        return CTavrinString("Round Table");
    }
}

void CTavrinKeyFrameDataTransformSphericalCamera::NormaliseGrid() {
    m_layout = std::clamp(m_layout, static_cast<int>(LAYOUT_ROUND_TABLE), static_cast<int>(LAYOUT_SPHERICAL));
    m_layoutName = LayoutName(m_layout);
    m_columns = std::max(m_columns, 1);
    // A layout that climbs needs a row at each end of its climb.
    m_rows = std::max(m_rows, m_layout == LAYOUT_ROUND_TABLE ? 1 : 2);
}

void CTavrinKeyFrameDataTransformSphericalCamera::FitEndFrameToGrid() {
    const long long last = static_cast<long long>(StartFrame()) + static_cast<long long>(m_rows) * m_columns - 1;
    SetEndFrame(static_cast<int>(std::min<long long>(last, std::numeric_limits<int>::max())), false);
}

void CTavrinKeyFrameDataTransformSphericalCamera::SetGrid(int layout, int rows, int columns, bool verticalWrap) {
    m_layout = layout;
    m_rows = rows;
    m_columns = columns;
    m_verticalWrap = verticalWrap;
    NormaliseGrid();
    FitEndFrameToGrid();
}

CTavrinMatrix CTavrinKeyFrameDataTransformSphericalCamera::Matrix() const {
    const int columns = std::max(m_columns, 1);
    const int rows = std::max(m_rows, 1);
    const long long views = static_cast<long long>(rows) * columns;
    const long long view = std::clamp<long long>(static_cast<long long>(WorkingFrame()) - StartFrame(), 0, views - 1);
    const double azimuth = 2.0 * kPi * static_cast<double>(view % columns) / columns;
    const double row = static_cast<double>(view / columns);
    double elevation = 0.0;
    if (m_layout == LAYOUT_HEMISPHERICAL && rows > 1)
        elevation = 0.5 * kPi * row / (rows - 1);
    else if (m_layout == LAYOUT_SPHERICAL && m_verticalWrap)
        elevation = 2.0 * kPi * row / rows;
    else if (m_layout == LAYOUT_SPHERICAL && rows > 1)
        elevation = -0.5 * kPi + kPi * row / (rows - 1);

    // The camera climbs about the horizontal axis square to its offset from
    // the centre, then turns about the vertical through the centre.
    const CTavrin3DVertex offset =
        CTavrin3DVertex(m_matrix.M(0, 3), m_matrix.M(1, 3), m_matrix.M(2, 3)) - m_centre;
    const CTavrin3DVertex climbAxis = CTavrin3DVertex(0, 1, 0) ^ offset;
    CTavrinMatrix turn = CTavrinMatrix::DefineByRotation(azimuth, 0, 1, 0);
    if (climbAxis.Length() > 1e-12)
        turn *= CTavrinMatrix::DefineByRotation(-elevation, climbAxis.X(), climbAxis.Y(), climbAxis.Z());
    return CTavrinMatrix::CreateTranslation(m_centre.X(), m_centre.Y(), m_centre.Z()) * turn *
           CTavrinMatrix::CreateTranslation(-m_centre.X(), -m_centre.Y(), -m_centre.Z()) * m_matrix;
}

CTavrinKeyFrameData* CTavrinKeyFrameDataTransformSphericalCamera::CreateCopy(bool atWorkingFrame) const {
    if (!atWorkingFrame)
        return new CTavrinKeyFrameDataTransformSphericalCamera(*this);
    auto* snapshot = new CTavrinKeyFrameDataTransformSphericalCamera(EntityID(), BasicCamera());
    snapshot->SetPivot(Pivot());
    snapshot->m_centre = m_centre;
    snapshot->SetAllFrames(WorkingFrame());
    snapshot->SetOriginalEntityID(OriginalEntityID());
    return snapshot;
}

bool CTavrinKeyFrameDataTransformSphericalCamera::RestoreFromCopy(const CTavrinDataMembersManager* copy) {
    auto* source = dynamic_cast<const CTavrinKeyFrameDataTransformSphericalCamera*>(copy);
    if (!source || !CTavrinKeyFrameDataTransformCamera::RestoreFromCopy(copy))
        return false;
    m_layout = source->m_layout;
    m_rows = source->m_rows;
    m_columns = source->m_columns;
    m_verticalWrap = source->m_verticalWrap;
    m_centre = source->m_centre;
    m_layoutName = source->m_layoutName;
    return true;
}

void* CTavrinKeyFrameDataTransformSphericalCamera::DataMemberSearch(int index, enumDataMemberType& type,
                                                                    CTavrinString& name, bool changed) {
    const int first = BaseDataMembersCount();
    const bool hasRows = m_layout != LAYOUT_ROUND_TABLE;
    const bool hasWrap = m_layout == LAYOUT_SPHERICAL;
    if (index == SPECIAL_COMMAND_COUNT_MEMBERS) {
        m_dataMembersCount = first + 3 + (hasRows ? 1 : 0) + (hasWrap ? 1 : 0);
        return nullptr;
    }
    if (index < first)
        return CTavrinKeyFrameData::DataMemberSearch(index, type, name, changed);
    const int member = index - first;
    switch (member) {
    case 0:
        type = DATA_MEMBER_STRING;
        name = CTavrinString("Type");
        if (changed)
            m_layoutName = LayoutName(m_layout);
        return &m_layoutName;
    case 1: {
        void* start = FrameDataMember(FrameMember::Start, type, name, changed);
        if (changed)
            FitEndFrameToGrid();
        return start;
    }
    case 2:
    case 3:
        type = DATA_MEMBER_INT;
        name = CTavrinString(member == 2 ? "Columns" : "Rows");
        if (changed) {
            NormaliseGrid();
            FitEndFrameToGrid();
        }
        return member == 2 ? &m_columns : &m_rows;
    case 4:
        if (!hasWrap)
            return nullptr;
        type = DATA_MEMBER_BOOL;
        name = CTavrinString("Vertical Wrap");
        return &m_verticalWrap;
    default:
        return nullptr;
    }
}

bool CTavrinKeyFrameDataTransformSphericalCamera::WriteIntoArchive(CTavrinArchiveBase* archive) {
    return CTavrinKeyFrameDataTransformCamera::WriteIntoArchive(archive) && archive->ReadWrite(m_layout) &&
           archive->ReadWrite(m_rows) && archive->ReadWrite(m_columns) && archive->ReadWrite(m_verticalWrap) &&
           archive->ReadWrite(m_centre);
}

bool CTavrinKeyFrameDataTransformSphericalCamera::ReadFromArchive(CTavrinArchiveBase* archive) {
    if (!CTavrinKeyFrameDataTransformCamera::ReadFromArchive(archive) || !archive->ReadWrite(m_layout) ||
        !archive->ReadWrite(m_rows) || !archive->ReadWrite(m_columns) || !archive->ReadWrite(m_verticalWrap))
        return false;
    // A damaged grid would leave no view to show.
    NormaliseGrid();
    if (FileVersionBeingRead() < kCentreVersion) {
        m_centre = CTavrin3DVertex();
        return true;
    }
    return archive->ReadWrite(m_centre);
}

} // namespace Tavrin
