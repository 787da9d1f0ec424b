#include "TavrinAnimation/src/TavrinKeyFrameDataMorph.h"

#include "host/CTavrinArchive.h"
#include "host/CTavrinGeometry.h"

namespace Tavrin {

namespace {
// Archive versions of the morph record: first written at 13003 with all the
// object's weights in one key frame; one key frame per target from 13014 on.
constexpr unsigned int kMorphRecordVersion = 13003;
constexpr unsigned int kPerTargetMorphVersion = 13014;
} // namespace

CTavrinKeyFrameDataMorph::CTavrinKeyFrameDataMorph(const CTavrinID& target, const CTavrinID& morphedObject,
                                                   double weight)
    : CTavrinKeyFrameData(target), m_morphedObjectID(morphedObject), m_weight(weight) {}

bool CTavrinKeyFrameDataMorph::ArchiveReadWrite(CTavrinArchiveBase& archive) {
    if (archive.Version() < kMorphRecordVersion || !archive.IsDocumentArchive())
        return true;
    if (!CTavrinArchivable::ArchiveReadWrite(archive))
        return false;
    if (archive.Version() >= kPerTargetMorphVersion)
        return archive.ReadWrite(m_morphedObjectID) && archive.ReadWrite(m_weight);

    unsigned int count = static_cast<unsigned int>(m_legacyWeights.size());
    if (!archive.ReadWrite(count))
        return false;
    if (!archive.IsReaderArchive()) {
        for (double& weight : m_legacyWeights) {
            if (!archive.ReadWrite(weight))
                return false;
        }
        return true;
    }
    // The count is not trusted: weights are appended one by one as they
    // arrive, so a short record fails without a large allocation.
    for (unsigned int i = 0; i < count; ++i) {
        double weight = 0.0;
        if (!archive.ReadWrite(weight))
            return false;
        m_legacyWeights.push_back(weight);
    }
    return true;
}

void CTavrinKeyFrameDataMorph::Apply() {
    auto* object = dynamic_cast<CTavrin3DObject*>(m_morphedObjectID.Entity());
    auto* target = dynamic_cast<CTavrinGeometry*>(EntityID().Entity());
    if (!object || !target || !object->HasMorphingGeometry())
        return;
    object->MorphingTable()->SetMorphWeight(target, m_weight);
}

CTavrinKeyFrameData* CTavrinKeyFrameDataMorph::CreateCopy(bool atWorkingFrame) const {
    if (!atWorkingFrame)
        return new CTavrinKeyFrameDataMorph(*this);
    auto* snapshot = new CTavrinKeyFrameDataMorph(EntityID(), m_morphedObjectID, m_weight);
    snapshot->SetAllFrames(WorkingFrame());
    snapshot->SetOriginalEntityID(OriginalEntityID());
    return snapshot;
}

} // namespace Tavrin
