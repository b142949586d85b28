#pragma once

#include "IndexTable.h"
#include "TextStore.h"

#include <cstdint>
#include <string>
#include <vector>

namespace search {

/// Numbers texts so that two have one number exactly when they compare equal.
class cTextClasses
{
public:
    /// The number of the class of `sText`, from 0. The text must outlive its use here.
    std::uint32_t ClassOf(platform::StoredText sText);

private:
    platform::IndexTable m_byFoldedText;
    std::vector<platform::StoredText> m_members; ///< one text of each class
    std::string m_sFolded, m_sOtherFolded;
};

} // namespace search
