// SPDX-License-Identifier: MIT
#pragma once

#include "RootFolders.h"
#include "ShellDialogs.h"

#include <QAbstractItemModel>
#include <QIcon>
#include <cstddef>
#include <string>
#include <vector>

namespace desktop {

/// The folders of the machine as a tree. Names are exact bytes. A folder is listed when its subfolders are
/// asked for the first time, and stays as it was then but for the folders that Add adds and Find meets. In
/// each folder the hidden ones come last.
class FolderModel final : public QAbstractItemModel
{
public:
    explicit FolderModel(const std::vector<tRootFolder>& rootFolders);

    /// The item at an index, 0 for an invalid one; and back.
    static platform::ItemId Item(const QModelIndex& index);
    [[nodiscard]] QModelIndex Index(platform::ItemId item) const;

    /// The full path of an item; empty for what is none.
    [[nodiscard]] std::string Path(platform::ItemId item) const;

    /// The folder of that path, listing the folders above it; invalid if they do not have it.
    QModelIndex Find(const std::string& sPath);

    /// Shows folder `sName`, which has just been made in `folder`, and returns it.
    QModelIndex Add(const QModelIndex& folder, const std::string& sName);

    /// Takes a look into a folder that is shown, once. True if it turns out to have nothing to open: the view
    /// then lays its rows out anew.
    bool LookInto(const QModelIndex& index);

    [[nodiscard]] QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    [[nodiscard]] QModelIndex parent(const QModelIndex& index) const override;
    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] bool hasChildren(const QModelIndex& parent = {}) const override;
    [[nodiscard]] bool canFetchMore(const QModelIndex& parent) const override;
    void fetchMore(const QModelIndex& parent) override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int nSection, Qt::Orientation orientation, int nRole) const override;

private:
    enum class Known { Nothing, LookedInto, Listed };

    /// A folder. Its number in m_nodes is its item.
    struct tNode {
        std::string sName;  ///< of a folder at the top, its path
        std::string sShown; ///< only of a folder at the top
        std::size_t nParent = 0;
        std::size_t nRow = 0;                ///< among the subfolders of its parent
        std::vector<std::size_t> children{}; ///< their numbers, as they are shown
        Known known = Known::Nothing;
    };

    static std::size_t Number(const QModelIndex& index) { return index.isValid() ? index.internalId() : 0; }
    [[nodiscard]] const tNode& Node(const QModelIndex& index) const { return m_nodes[Number(index)]; }
    [[nodiscard]] std::size_t RootOf(const std::string& sPath) const;
    void AddChildren(std::size_t nParent, std::vector<tNode> children);
    [[nodiscard]] std::size_t ChildNamed(std::size_t nParent, const std::string& sName) const;

    std::vector<tNode> m_nodes; ///< the first one holds the folders at the top
    QIcon m_icon;
};

} // namespace desktop
