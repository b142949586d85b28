#include "FolderModel.h"

#include "Escaped.h"
#include "Pictures.h"
#include "Subfolders.h"
#include "Texts.h"

#include <QApplication>
#include <QPalette>
#include <algorithm>
#include <iterator>
#include <string_view>
#include <tuple>
#include <utility>

namespace desktop {
namespace {

bool IsHidden(std::string_view sName)
{
    return sName.starts_with('.');
}

/// Orders names as they are shown, whatever their letter case, hidden ones last.
void SortNames(std::vector<std::string>& names)
{
    std::vector<std::tuple<bool, std::string, std::string>> keyed;
    keyed.reserve(names.size());
    for (std::string& sName : names) {
        keyed.emplace_back(IsHidden(sName), platform::FoldCase(platform::Escaped(sName)), std::move(sName));
    }
    std::sort(keyed.begin(), keyed.end());
    std::transform(keyed.begin(), keyed.end(), names.begin(),
                   [](auto& each) { return std::move(std::get<2>(each)); });
}

/// `sPath` without `sFolder` and the separators behind it; nothing if it does not lie there.
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
    m_nodes[nParent].nFirstChild = m_nodes.size();
    m_nodes[nParent].nChildren = children.size();
    m_nodes[nParent].known = Known::Listed;
    for (tNode& child : children) {
        child.nParent = nParent;
    }
    std::move(children.begin(), children.end(), std::back_inserter(m_nodes));
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
    return createIndex(static_cast<int>(n - m_nodes[m_nodes[n].nParent].nFirstChild), 0, n);
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
    const std::string sFolder = Path(static_cast<platform::ItemId>(node.nParent));
    return sFolder + (sFolder.ends_with('/') ? "" : "/") + node.sName;
}

/// The folder at the top by which `sPath` is reached by the shortest way, 0 if by none.
std::size_t FolderModel::RootOf(const std::string& sPath) const
{
    std::size_t nBest = 0;
    for (std::size_t n = 1; n <= m_nodes[0].nChildren; ++n) {
        std::string_view sRest = sPath;
        if (TakeFolder(sRest, m_nodes[n].sName) &&
            (nBest == 0 || m_nodes[n].sName.size() > m_nodes[nBest].sName.size())) {
            nBest = n;
        }
    }
    return nBest;
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
        const auto first = m_nodes.begin() + static_cast<std::ptrdiff_t>(m_nodes[nFound].nFirstChild);
        const auto last = first + static_cast<std::ptrdiff_t>(m_nodes[nFound].nChildren);
        const auto found = std::find_if(first, last, [&](const tNode& node) { return node.sName == sName; });
        nFound = found == last ? 0 : static_cast<std::size_t>(found - m_nodes.begin());
    }
    return Index(static_cast<platform::ItemId>(nFound));
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
    return createIndex(row, column, Node(parent).nFirstChild + static_cast<std::size_t>(row));
}

QModelIndex FolderModel::parent(const QModelIndex& index) const
{
    return Index(static_cast<platform::ItemId>(Node(index).nParent));
}

int FolderModel::rowCount(const QModelIndex& parent) const
{
    return static_cast<int>(Node(parent).nChildren);
}

int FolderModel::columnCount(const QModelIndex& /*parent*/) const
{
    return 1;
}

bool FolderModel::hasChildren(const QModelIndex& parent) const
{
    const tNode& node = Node(parent);
    return node.known != Known::Listed || node.nChildren > 0;
}

bool FolderModel::canFetchMore(const QModelIndex& parent) const
{
    return Node(parent).known != Known::Listed;
}

void FolderModel::fetchMore(const QModelIndex& parent)
{
    auto names = Subfolders(Path(Item(parent)));
    SortNames(names);
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

QVariant FolderModel::data(const QModelIndex& index, int role) const
{
    const tNode& node = Node(index);
    switch (role) {
    case Qt::DisplayRole:
        return QString::fromStdString(node.sShown.empty() ? platform::Escaped(node.sName) : node.sShown);
    case Qt::DecorationRole:
        return m_icon;
    case Qt::ForegroundRole:
        return IsHidden(node.sName) ? QVariant(QApplication::palette().placeholderText()) : QVariant();
    default:
        return {};
    }
}

} // namespace desktop
