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

/// Numbers texts so that two have one number exactly when they are equal in the form in which they
/// are compared.
class cTextClasses
{
public:
    /// How a text is brought into the form in which it is compared.
    using Fold = void (*)(std::string_view sText, std::string& sFolded);

    explicit cTextClasses(Fold fold = FoldText) : m_fold(fold) {}

    /// The number of the class of `sText`, from 0. The text must outlive its use here.
    std::uint32_t ClassOf(platform::StoredText sText);

private:
    Fold m_fold;
    platform::IndexTable m_byFoldedText;
    std::vector<platform::StoredText> m_members; ///< one text of each class
    std::string m_sFolded, m_sOtherFolded;
};

} // namespace search
