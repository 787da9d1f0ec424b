// The process-wide naming counters, in a program of their own so that they
// start from zero: two imports in one run make Sequence1 and Sequence2, and
// Group 1 and Group 2.

#include "TavrinAnimation/src/TavrinSequenceContainer.h"

#include <gtest/gtest.h>

using namespace Tavrin;

TEST(AnimationCounters, TwoImportsNumberTheirSequencesAndGroups) {
    CTavrinSequenceContainer* container = CTavrinSequenceContainer::GetInstance();
    std::vector<CTavrinSequence*> sequences;
    std::vector<CTavrinAnimationCollapsingGroup*> groups;
    for (int import = 0; import < 2; ++import) {
        CTavrinSequence* sequence = CTavrinSequence::Create();
        container->AddSequence(sequence);
        CTavrinAnimationCollapsingGroup* group = container->CreateGroup();
        sequence->SetGroup(group);
        sequences.push_back(sequence);
        groups.push_back(group);
    }
    EXPECT_EQ(sequences[0]->Name(), CTavrinString("Sequence1"));
    EXPECT_EQ(sequences[1]->Name(), CTavrinString("Sequence2"));
    EXPECT_EQ(groups[0]->Caption(), CTavrinString("Group 1"));
    EXPECT_EQ(groups[1]->Caption(), CTavrinString("Group 2"));
    EXPECT_EQ(sequences[1]->Group(), groups[1]);

    // A new container does not restart the numbering.
    CTavrinSequenceContainer::SetInstance(new CTavrinSequenceContainer());
    EXPECT_EQ(CTavrinSequenceContainer::GetInstance()->CreateGroup()->Caption(), CTavrinString("Group 3"));
    CTavrinSequencePtr third(CTavrinSequence::Create());
    EXPECT_EQ(third->Name(), CTavrinString("Sequence3"));
    CTavrinSequenceContainer::SetInstance(nullptr);
}
