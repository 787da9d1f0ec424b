#pragma once

#include "usdcore/pxr.h"
#include "usdcore/sdf/path.h"
#include "usdcore/vt/types.h"

#include <cstddef>
#include <string>

PXR_NAMESPACE_OPEN_SCOPE

/// The parent of every joint of a skeleton, as indices into its joint list.
///
/// Joints are named by paths ("Hips", "Hips/Spine"): a joint's parent is the
/// nearest ancestor path that is itself in the list, so "Hips/Spine/Head"
/// hangs from "Hips" when "Hips/Spine" is missing. Joints with no listed
/// ancestor are roots, with the parent index -1.
class UsdSkelTopology
{
public:
    UsdSkelTopology() = default;
    /// From joint paths in text form, as a skeleton's "joints" holds them.
    explicit UsdSkelTopology(const VtTokenArray& paths);
    explicit UsdSkelTopology(const SdfPathVector& paths);
    explicit UsdSkelTopology(const VtIntArray& parentIndices);

    /// True when every parent comes before its child, which also rules out
    /// cycles; otherwise false, with the first offending joint in \p reason.
    bool Validate(std::string* reason = nullptr) const;

    const VtIntArray& GetParentIndices() const { return _parentIndices; }
    size_t GetNumJoints() const { return size(); }
    size_t size() const { return _parentIndices.size(); }

    /// The parent index of joint \p index (-1 for a root). An index past the
    /// joints is a coding error and reads as a root.
    int GetParent(size_t index) const;
    bool IsRoot(size_t index) const { return GetParent(index) < 0; }

    bool operator==(const UsdSkelTopology& o) const { return _parentIndices == o._parentIndices; }
    bool operator!=(const UsdSkelTopology& o) const { return !(*this == o); }

private:
    VtIntArray _parentIndices;
};

PXR_NAMESPACE_CLOSE_SCOPE
