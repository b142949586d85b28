// SPDX-License-Identifier: MIT
#include "FolderModel.h"

#include "Escaped.h"
#include "Paths.h"
#include "Pictures.h"
#include "Subfolders.h"

#include <QApplication>
#include <QPalette>
#include <algorithm>
#include <string_view>
#include <utility>

namespace desktop {
namespace {

/// Removes `sFolder` and the following separators from the start of `sPath`; empty if `sPath` is not inside
/// it.
bool TakeFolder(std::string_view& sPath, std::string_view sFolder)
{
    if (!sPath.starts_with(sFolder)) {
        return false;
    }
    const std::string_view sRest = sPath.substr(sFolder.size());
    if (!sRest.empty() && sRest[0] != '/' && !sFolder.ends_with('/')) {
        return false;
    }
    sPath = sRest.substr(std::min(sRest.find_first_not_of('/'), sRest.size()));
    return true;
}

} // namespace

FolderModel::FolderModel(const std::vector<tRootFolder>& rootFolders) : m_nodes(1), m_icon(Picture("folder"))
{
    std::vector<tNode> nodes;
    nodes.reserve(rootFolders.size());
    for (const tRootFolder& folder : rootFolders) {
        nodes.push_back({.sName = folder.sPath, .sShown = folder.sName});
    }
    AddChildren(0, std::move(nodes));
}

void FolderModel::AddChildren(std::size_t nParent, std::vector<tNode> children)
{
    m_nodes[nParent].known = Known::Listed;
    for (tNode& child : children) {
        child.nParent = nParent;
        child.nRow = m_nodes[nParent].children.size();
        m_nodes[nParent].children.push_back(m_nodes.size());
        m_nodes.push_back(std::move(child));
    }
}

platform::ItemId FolderModel::Item(const QModelIndex& index)
{
    return static_cast<platform::ItemId>(Number(index));
}

QModelIndex FolderModel::Index(platform::ItemId item) const
{
    const auto n = static_cast<std::size_t>(item);
    if (item <= 0 || n >= m_nodes.size()) {
        return {};
    }
    return createIndex(static_cast<int>(m_nodes[n].nRow), 0, n);
}

std::string FolderModel::Path(platform::ItemId item) const
{
    if (!Index(item).isValid()) {
        return {};
    }
    const tNode& node = m_nodes[static_cast<std::size_t>(item)];
    if (node.nParent == 0) {
        return node.sName;
    }
    return platform::PathIn(Path(static_cast<platform::ItemId>(node.nParent)), node.sName);
}

/// The top-level folder from which the path to `sPath` is shortest, 0 if there is none.
std::size_t FolderModel::RootOf(const std::string& sPath) const
{
    std::size_t nBest = 0;
    for (const std::size_t n : m_nodes[0].children) {
        std::string_view sRest = sPath;
        if (TakeFolder(sRest, m_nodes[n].sName) &&
            (nBest == 0 || m_nodes[n].sName.size() > m_nodes[nBest].sName.size())) {
            nBest = n;
        }
    }
    return nBest;
}

/// The subfolder with that name in a listed folder, 0 if there is none.
std::size_t FolderModel::ChildNamed(std::size_t nParent, const std::string& sName) const
{
    const auto& children = m_nodes[nParent].children;
    const auto found = std::find_if(children.begin(), children.end(),
                                    [&](std::size_t n) { return m_nodes[n].sName == sName; });
    return found == children.end() ? 0 : *found;
}

QModelIndex FolderModel::Find(const std::string& sPath)
{
    std::size_t nFound = RootOf(sPath);
    std::string_view sRest = sPath;
    TakeFolder(sRest, m_nodes[nFound].sName);
    while (nFound != 0 && !sRest.empty()) {
        const std::string sName(sRest.substr(0, sRest.find('/')));
        TakeFolder(sRest, sName);
        const QModelIndex folder = Index(static_cast<platform::ItemId>(nFound));
        if (canFetchMore(folder)) {
            fetchMore(folder);
        }
        const std::size_t nChild = ChildNamed(nFound, sName);
        if (nChild == 0 && IsSubfolder(Path(Item(folder)), sName)) {
            nFound = Number(Add(folder, sName)); // created since the folder was listed
        } else {
            nFound = nChild;
        }
    }
    return Index(static_cast<platform::ItemId>(nFound));
}

QModelIndex FolderModel::Add(const QModelIndex& folder, const std::string& sName)
{
    if (canFetchMore(folder)) {
        fetchMore(folder);
    }
    const std::size_t nFolder = Number(folder);
    const std::size_t nThere = ChildNamed(nFolder, sName);
    if (nThere != 0) {
        return Index(static_cast<platform::ItemId>(nThere));
    }
    const auto& siblings = m_nodes[nFolder].children;
    const auto before =
        std::find_if(siblings.begin(), siblings.end(), [&, order = ReadingOrder(sName)](std::size_t n) {
            return order < ReadingOrder(m_nodes[n].sName);
        });
    const auto nRow = before - siblings.begin();
    beginInsertRows(folder, static_cast<int>(nRow), static_cast<int>(nRow));
    m_nodes.push_back({.sName = sName, .sShown = {}, .nParent = nFolder});
    auto& children = m_nodes[nFolder].children;
    children.insert(children.begin() + nRow, m_nodes.size() - 1);
    for (auto n = static_cast<std::size_t>(nRow); n < children.size(); ++n) {
        m_nodes[children[n]].nRow = n;
    }
    endInsertRows();
    return Index(static_cast<platform::ItemId>(m_nodes.size() - 1));
}

bool FolderModel::LookInto(const QModelIndex& index)
{
    tNode& node = m_nodes[Number(index)];
    if (node.known != Known::Nothing) {
        return false;
    }
    const bool bLeaf = !MayHaveSubfolders(Path(Item(index)));
    node.known = bLeaf ? Known::Listed : Known::LookedInto;
    return bLeaf;
}

QModelIndex FolderModel::index(int row, int column, const QModelIndex& parent) const
{
    if (!hasIndex(row, column, parent)) {
        return {};
    }
    return createIndex(row, column, Node(parent).children[static_cast<std::size_t>(row)]);
}

bool FolderModel::hasChildren(const QModelIndex& parent) const
{
    const tNode& node = Node(parent);
    return node.known != Known::Listed || !node.children.empty();
}

void FolderModel::fetchMore(const QModelIndex& parent)
{
    auto names = Subfolders(Path(Item(parent)));
    std::vector<tNode> children;
    children.reserve(names.size());
    for (std::string& sName : names) {
        children.push_back({.sName = std::move(sName), .sShown = {}});
    }
    if (children.empty()) {
        AddChildren(Number(parent), {});
        return;
    }
    beginInsertRows(parent, 0, static_cast<int>(children.size()) - 1);
    AddChildren(Number(parent), std::move(children));
    endInsertRows();
}

QVariant FolderModel::headerData(int /*nSection*/, Qt::Orientation /*orientation*/, int nRole) const
{
    // The header is hidden, but assistive programs read it.
    return nRole == Qt::DisplayRole ? QVariant(QStringLiteral("Folder")) : QVariant();
}

QVariant FolderModel::data(const QModelIndex& index, int role) const
{
    const tNode& node = Node(index);
    switch (role) {
    case Qt::DisplayRole:
        return QString::fromStdString(node.sShown.empty() ? platform::Escaped(node.sName) : node.sShown);
    case Qt::DecorationRole:
        return m_icon;
    case Qt::ForegroundRole:
        return node.sName.starts_with('.') ? QVariant(QApplication::palette().placeholderText()) : QVariant();
    default:
        return {};
    }
}

} // namespace desktop
