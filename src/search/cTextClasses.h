// SPDX-License-Identifier: MIT
#pragma once

#include "IndexTable.h"
#include "TextStore.h"
#include "mTextCompare.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace search {

/// Assigns numbers to texts: two texts get the same number exactly if their folded forms are equal.
class cTextClasses
{
public:
    /// Converts a text to the form that is compared.
    using Fold = void (*)(std::string_view sText, std::string& sFolded);

    explicit cTextClasses(Fold fold = FoldText) : m_fold(fold) {}

    /// The class number of `sText`, from 0. The text must outlive this object.
    std::uint32_t ClassOf(platform::StoredText sText);

private:
    Fold m_fold;
    platform::IndexTable m_byFoldedText;
    std::vector<platform::StoredText> m_members; ///< one text for each class
    std::string m_sFolded, m_sOtherFolded;
};

} // namespace search
