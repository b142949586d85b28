// SPDX-License-Identifier: MIT
#include "mFileGroups.h"

#include "GroupMarks.h"
#include "cGroupRows.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <string_view>

namespace results {
namespace {

using platform::ListItem;

constexpr std::uint32_t kNotAsked = std::numeric_limits<std::uint32_t>::max();

bool EndsGroup(int nMark)
{
    return platform::PositionMark(nMark) == platform::kMarkLast;
}

bool BeginsGroup(int nMark)
{
    return platform::PositionMark(nMark) == platform::kMarkFirst;
}

/// Reads groups from the rows of a list.
class RowReader
{
public:
    RowReader(platform::ListView& lv, std::span<const std::string> paths, platform::tFileGroups& groups)
        : m_rows(lv.ListItems), m_groups(groups), m_asked(m_rows.Count() + 1, kNotAsked)
    {
        m_groups.files.resize(paths.size());
        for (std::size_t n = 0; n < paths.size(); ++n) {
            if (const auto nRow = m_rows.Find(paths[n])) {
                m_asked[*nRow] = static_cast<std::uint32_t>(n);
            }
        }
    }

    void ReadAll()
    {
        std::size_t nFirst = 1;
        for (std::size_t n = 1; n <= m_rows.Count(); ++n) {
            const bool bLast = n == m_rows.Count() || EndsGroup(m_rows(n).SmallIcon()) ||
                               BeginsGroup(m_rows(n + 1).SmallIcon());
            if (bLast) {
                ReadGroup(nFirst, n);
                nFirst = n + 1;
            }
        }
    }

private:
    void ReadGroup(std::size_t nFirst, std::size_t nLast)
    {
        const auto isAsked = [&](std::uint32_t n) { return n != kNotAsked; };
        const auto first = m_asked.begin() + static_cast<std::ptrdiff_t>(nFirst);
        if (std::none_of(first, first + static_cast<std::ptrdiff_t>(nLast - nFirst + 1), isAsked)) {
            return;
        }
        auto& stays = m_groups.groups.emplace_back();
        for (std::size_t n = nFirst; n <= nLast; ++n) {
            const ListItem row = m_rows(n);
            if (m_asked[n] != kNotAsked) {
                m_groups.files[m_asked[n]] = {Shown(row), m_groups.groups.size() - 1};
            } else if (!row.Selected() && row.SmallIcon() <= platform::kMarkLast) {
                stays.push_back(Shown(row));
            }
        }
    }

    platform::tShownFile Shown(const ListItem& row)
    {
        // Adjacent rows often share their folder.
        const std::string_view sFolder = row.SubItems(search::kFolderColumn);
        if (sFolder != m_sFolder.View()) {
            m_sFolder = m_groups.texts.Add(sFolder);
        }
        return {m_sFolder, m_groups.texts.Add(row.Text()),
                m_groups.texts.Add(row.SubItems(search::kSizeColumn)),
                m_groups.texts.Add(row.SubItems(search::kDateColumn))};
    }

    platform::ListItems& m_rows;
    platform::tFileGroups& m_groups;
    std::vector<std::uint32_t> m_asked; ///< by row, counted from 1: the index of its path in the request
    platform::StoredText m_sFolder;     ///< of the row read last
};

} // namespace

platform::tFileGroups GroupsOf(platform::ListView& lv, platform::ComparedBy comparedBy,
                               std::span<const std::string> paths)
{
    platform::tFileGroups groups;
    groups.comparedBy = comparedBy;
    RowReader(lv, paths, groups).ReadAll();
    return groups;
}

} // namespace results
