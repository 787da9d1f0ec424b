#include "TavrinAnimation/src/TavrinKeyFrameDataHideShow.h"

#include "host/CTavrinArchive.h"
#include "host/CTavrinNodeQueries.h"

namespace Tavrin {

namespace {
// Visibility key frames were first archived at this version.
constexpr unsigned int kHideShowRecordVersion = 10212;
} // namespace

CTavrinKeyFrameDataHideShow::CTavrinKeyFrameDataHideShow(const CTavrinID& entity, bool hide)
    : CTavrinKeyFrameData(entity), m_hide(hide) {}

bool CTavrinKeyFrameDataHideShow::ArchiveReadWrite(CTavrinArchiveBase& archive) {
    if (archive.Version() < kHideShowRecordVersion || !archive.IsDocumentArchive())
        return true;
    return CTavrinArchivable::ArchiveReadWrite(archive) && archive.ReadWrite(m_hide);
}

void CTavrinKeyFrameDataHideShow::Apply() {
    auto* node = dynamic_cast<CTavrinSceneNode*>(EntityID().Entity());
    if (!node)
        return;
    // Showing must reach nodes hidden before; hiding can pass them by.
    const std::vector<CTavrinSceneNode*> tree =
        CTavrinNodePath::ListAllSelectedSceneTrees({node->NodePathToRoot(true)}, !m_hide, true);
    for (CTavrinSceneNode* listed : tree) {
        if (m_hide)
            listed->Hide();
        else
            listed->UnHide();
    }
}

CTavrinKeyFrameData* CTavrinKeyFrameDataHideShow::CreateCopy(bool atWorkingFrame) const {
    if (!atWorkingFrame)
        return new CTavrinKeyFrameDataHideShow(*this);
    auto* snapshot = new CTavrinKeyFrameDataHideShow(EntityID(), m_hide);
    snapshot->SetAllFrames(WorkingFrame());
    snapshot->SetOriginalEntityID(OriginalEntityID());
    return snapshot;
}

} // namespace Tavrin
