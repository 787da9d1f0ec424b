#pragma once

// Token tables declared once and reached as `UsdGeomTokens->points`.
//
// A table is an X-macro list of (member, "text") pairs:
//
//     #define USDGEOM_TOKENS(X) X(points, "points") X(faceVertexCounts, "faceVertexCounts")
//     TF_DECLARE_PUBLIC_TOKENS(UsdGeomTokens, USDGEOM_TOKENS);   // header
//     TF_DEFINE_PUBLIC_TOKENS(UsdGeomTokens, USDGEOM_TOKENS);    // one .cpp
//
// TF_DEFINE_PRIVATE_TOKENS(name, LIST) declares and defines a table local to
// one source file.

#include "usdcore/pxr.h"
#include "usdcore/tf/staticData.h"
#include "usdcore/tf/token.h"

#define TF_STATIC_TOKEN_MEMBER_(member, text) const TfToken member;
#define TF_STATIC_TOKEN_INIT_(member, text) member(text),
#define TF_STATIC_TOKEN_LIST_(member, text) member,

#define TF_STATIC_TOKEN_STRUCT_(typeName, LIST)                               \
    struct typeName {                                                         \
        typeName();                                                           \
        LIST(TF_STATIC_TOKEN_MEMBER_)                                         \
        /* Every token of the table, in declaration order. */                 \
        const ::PXR_NS::TfTokenVector allTokens;                              \
    }

#define TF_STATIC_TOKEN_CONSTRUCTOR_(typeName, LIST)                          \
    typeName::typeName()                                                      \
        : LIST(TF_STATIC_TOKEN_INIT_) allTokens{LIST(TF_STATIC_TOKEN_LIST_)}  \
    {                                                                         \
    }

#define TF_DECLARE_PUBLIC_TOKENS(name, LIST)                                  \
    TF_STATIC_TOKEN_STRUCT_(name##_StaticTokenType, LIST);                    \
    extern ::PXR_NS::TfStaticData<name##_StaticTokenType> name

#define TF_DEFINE_PUBLIC_TOKENS(name, LIST)                                   \
    TF_STATIC_TOKEN_CONSTRUCTOR_(name##_StaticTokenType, LIST)                \
    ::PXR_NS::TfStaticData<name##_StaticTokenType> name

#define TF_DEFINE_PRIVATE_TOKENS(name, LIST)                                  \
    namespace {                                                               \
    TF_STATIC_TOKEN_STRUCT_(name##_PrivateTokenType, LIST);                   \
    TF_STATIC_TOKEN_CONSTRUCTOR_(name##_PrivateTokenType, LIST)               \
    ::PXR_NS::TfStaticData<name##_PrivateTokenType> name;                     \
    }                                                                         \
    static_assert(true, "")
