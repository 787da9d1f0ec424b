#pragma once

// Typedef helpers: TF_DECLARE_WEAK_AND_REF_PTRS(UsdStage) declares the class
// and UsdStageRefPtr, UsdStageConstRefPtr, UsdStagePtr (weak),
// UsdStageConstPtr and their vectors.

#include "usdcore/pxr.h"
#include "usdcore/tf/refPtr.h"
#include "usdcore/tf/weakPtr.h"

#include <vector>

#define TF_DECLARE_REF_PTRS(type)                                             \
    class type;                                                               \
    typedef ::PXR_NS::TfRefPtr<type> type##RefPtr;                            \
    typedef ::PXR_NS::TfRefPtr<const type> type##ConstRefPtr;                 \
    typedef std::vector<type##RefPtr> type##RefPtrVector;                     \
    typedef std::vector<type##ConstRefPtr> type##ConstRefPtrVector

#define TF_DECLARE_WEAK_PTRS(type)                                            \
    class type;                                                               \
    typedef ::PXR_NS::TfWeakPtr<type> type##Ptr;                              \
    typedef ::PXR_NS::TfWeakPtr<const type> type##ConstPtr;                   \
    typedef std::vector<type##Ptr> type##PtrVector;                           \
    typedef std::vector<type##ConstPtr> type##ConstPtrVector

#define TF_DECLARE_WEAK_AND_REF_PTRS(type)                                    \
    TF_DECLARE_WEAK_PTRS(type);                                               \
    TF_DECLARE_REF_PTRS(type)
