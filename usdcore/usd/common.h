#pragma once

// Handles of the stage, declared where every usd header can reach them.

#include "usdcore/pxr.h"
#include "usdcore/tf/declarePtrs.h"

PXR_NAMESPACE_OPEN_SCOPE

TF_DECLARE_WEAK_AND_REF_PTRS(UsdStage);

/// OpenUSD's name for the weak stage handle.
using UsdStageWeakPtr = UsdStagePtr;

PXR_NAMESPACE_CLOSE_SCOPE
