#include "usdcore/usd/primIndex.h"

#include <algorithm>
#include <tuple>

PXR_NAMESPACE_OPEN_SCOPE

bool Usd_IndexGraph::HasDirectArcs() const
{
    return std::any_of(nodes.begin(), nodes.end(), [](const Usd_IndexNode& node) { return node.direct; });
}

std::vector<int> Usd_IndexGraph::GetStrengthOrder() const
{
    const int count = static_cast<int>(nodes.size());
    if (count <= 1) {
        return std::vector<int>(count, 0);
    }
    std::vector<std::vector<int>> arcsOf(count);
    for (int i = 1; i < count; ++i) {
        arcsOf[nodes[i].parent].push_back(i);
    }
    const auto weaker = [this](int a, int b) {
        const Usd_IndexNode& x = nodes[a];
        const Usd_IndexNode& y = nodes[b];
        return std::make_tuple(x.arc, -x.namespaceDepth, x.siblingNum) <
               std::make_tuple(y.arc, -y.namespaceDepth, y.siblingNum);
    };
    for (std::vector<int>& arcs : arcsOf) {
        std::stable_sort(arcs.begin(), arcs.end(), weaker);
    }
    // Depth first, an owner before its arcs. Specializes wait until all
    // else is placed: their opinions are the weakest of the whole prim.
    std::vector<int> order;
    order.reserve(count);
    std::vector<int> deferred{0};
    std::vector<int> pending;
    for (size_t next = 0; next < deferred.size(); ++next) {
        pending.push_back(deferred[next]);
        while (!pending.empty()) {
            const int node = pending.back();
            pending.pop_back();
            order.push_back(node);
            const std::vector<int>& arcs = arcsOf[node];
            for (auto arc = arcs.rbegin(); arc != arcs.rend(); ++arc) {
                if (nodes[*arc].arc == Usd_ArcType::Specialize) continue;
                pending.push_back(*arc);
            }
            for (int arc : arcs) {
                if (nodes[arc].arc == Usd_ArcType::Specialize) deferred.push_back(arc);
            }
        }
    }
    return order;
}

PXR_NAMESPACE_CLOSE_SCOPE
