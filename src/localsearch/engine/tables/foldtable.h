#pragma once

#include "localsearch/engine/tables/codepointtable.h"

/// Written at build time by make_fold.py.
namespace zel::localsearch::table {

struct VoicedKana
{
    char16_t base;
    char16_t mark;
    char16_t composed;
};

extern const CodePointTable foldedCharacter;         ///< where in the pool its text is; 0: stays as it is
extern const char foldPool[];                        ///< texts, each after a byte that has its length
extern const std::span<const VoicedKana> voicedKana; ///< by base and mark

} // namespace zel::localsearch::table
