// SPDX-License-Identifier: MIT
#pragma once

#include "RootFolders.h"
#include "ShellDialogs.h"

#include <QAbstractItemModel>
#include <QIcon>
#include <QTimer>
#include <chrono>
#include <cstddef>
#include <future>
#include <map>
#include <string>
#include <vector>

namespace desktop {

/// The folders of the machine as a tree model. Names are exact bytes. The subfolders of a folder are listed
/// when they are first requested, and afterwards change only by Add and Find. If a disk does not answer at
/// once, they appear when it does. Hidden folders come last.
class FolderModel final : public QAbstractItemModel
{
public:
    explicit FolderModel(const std::vector<tRootFolder>& rootFolders);

    /// The item at an index, 0 for an invalid one; and the reverse.
    static platform::ItemId Item(const QModelIndex& index);
    [[nodiscard]] QModelIndex Index(platform::ItemId item) const;

    /// The full path of an item; empty for an invalid item.
    [[nodiscard]] std::string Path(platform::ItemId item) const;

    /// The index of the folder with that path, listing its parents as needed; invalid if it does not exist.
    QModelIndex Find(const std::string& sPath);

    /// Adds folder `sName`, which has just been created in `folder`, and returns its index; that of `folder`
    /// if its disk does not answer yet.
    QModelIndex Add(const QModelIndex& folder, const std::string& sName);

    /// Checks once whether a displayed folder has subfolders. True if it turns out to have none: the view
    /// then has to lay out its rows again.
    bool LookInto(const QModelIndex& index);

    [[nodiscard]] QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    [[nodiscard]] QModelIndex parent(const QModelIndex& index) const override
    {
        return Index(static_cast<platform::ItemId>(Node(index).nParent));
    }
    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override
    {
        return static_cast<int>(Node(parent).children.size());
    }
    [[nodiscard]] int columnCount(const QModelIndex& /*parent*/) const override { return 1; }
    [[nodiscard]] bool hasChildren(const QModelIndex& parent = {}) const override;
    [[nodiscard]] bool canFetchMore(const QModelIndex& parent) const override
    {
        return Node(parent).known < Known::Awaited;
    }
    void fetchMore(const QModelIndex& parent) override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int nSection, Qt::Orientation orientation, int nRole) const override;

private:
    enum class Known { Nothing, LookedInto, Awaited, Listed };

    /// A folder. Its index in m_nodes is its item number.
    struct tNode {
        std::string sName;  ///< for a top-level folder, its path
        std::string sShown; ///< only for a top-level folder
        std::size_t nParent = 0;
        std::size_t nRow = 0;                ///< position in its parent
        std::vector<std::size_t> children{}; ///< item numbers, in display order
        Known known = Known::Nothing;
    };

    static std::size_t Number(const QModelIndex& index) { return index.isValid() ? index.internalId() : 0; }
    [[nodiscard]] const tNode& Node(const QModelIndex& index) const { return m_nodes[Number(index)]; }
    [[nodiscard]] std::size_t RootOf(const std::string& sPath) const;
    void AddChildren(std::size_t nParent, std::vector<tNode> children);
    void List(const QModelIndex& folder, std::chrono::milliseconds longest);
    void InsertListed(std::size_t nFolder, std::vector<std::string> names);
    void InsertLate();
    [[nodiscard]] std::size_t ChildNamed(std::size_t nParent, const std::string& sName) const;

    std::vector<tNode> m_nodes; ///< the first one is the parent of the top-level folders
    QIcon m_icon;

    /// Folders whose subfolders are awaited, by item number.
    std::map<std::size_t, std::future<std::vector<std::string>>> m_awaited;
    QTimer m_late; ///< active while there are any
};

} // namespace desktop
