#include "host/CTavrin3DVertex.h"

#include <cmath>

#include "host/CTavrinMatrix.h"

namespace Tavrin {

double CTavrin3DVertex::Length() const
{
    return std::sqrt(Dot(*this));
}

void CTavrin3DVertex::Normalize()
{
    const double length = Length();
    if (length > 0.0)
        *this *= 1.0 / length;
}

void CTavrin3DVertex::ModifyByTransform(const CTavrinMatrix& matrix)
{
    *this = matrix.TransformPoint(*this);
}

bool CTavrin3DVertex::ReadFromArchive(CTavrinArchiveBase* archive)
{
    return archive->ReadDouble(m_x) && archive->ReadDouble(m_y) && archive->ReadDouble(m_z);
}

bool CTavrin3DVertex::WriteIntoArchive(CTavrinArchiveBase* archive)
{
    return archive->WriteDouble(m_x) && archive->WriteDouble(m_y) && archive->WriteDouble(m_z);
}

} // namespace Tavrin
