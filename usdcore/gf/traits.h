#pragma once

#include "usdcore/gf/half.h"
#include "usdcore/pxr.h"

#include <type_traits>

PXR_NAMESPACE_OPEN_SCOPE

// Precision order of Gf scalars. Conversions between vectors, quaternions
// and matrices are implicit when they cannot lose precision (int or narrower
// floating point into wider floating point) and explicit otherwise, as in
// OpenUSD; floating point never converts to int vectors.
template <class S> struct Gf_ScalarRank;
template <> struct Gf_ScalarRank<int> { static constexpr int value = 0; };
template <> struct Gf_ScalarRank<GfHalf> { static constexpr int value = 1; };
template <> struct Gf_ScalarRank<float> { static constexpr int value = 2; };
template <> struct Gf_ScalarRank<double> { static constexpr int value = 3; };

template <class From, class To>
constexpr bool Gf_IsImplicitConversion =
    !std::is_same<From, To>::value && !std::is_same<To, int>::value &&
    Gf_ScalarRank<From>::value <= Gf_ScalarRank<To>::value;

template <class From, class To>
constexpr bool Gf_IsExplicitConversion =
    !std::is_same<To, int>::value && Gf_ScalarRank<From>::value > Gf_ScalarRank<To>::value;

PXR_NAMESPACE_CLOSE_SCOPE
