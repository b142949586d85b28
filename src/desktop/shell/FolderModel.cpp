// SPDX-License-Identifier: MIT
#include "FolderModel.h"

#include "AskAside.h"
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

using Milliseconds = std::chrono::milliseconds;

/// How long the window may stand still for a disk that is listed for display, and for one that has to answer
/// before a folder in it can be shown at all.
constexpr Milliseconds kToShow{100};
constexpr Milliseconds kToFind{1000};

/// How long a look into one of the visible folders may take.
constexpr Milliseconds kGlance{10};

constexpr Milliseconds kLatePace{50};

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
    m_late.setInterval(kLatePace);
    m_late.callOnTimeout(this, &FolderModel::InsertLate);
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
        List(folder, kToFind);
        const std::size_t nChild = ChildNamed(nFound, sName);
        const auto bCreated = [&] {
            auto found =
                AskAside([sParent = Path(Item(folder)), sName] { return IsSubfolder(sParent, sName); });
            return found.wait_for(kToFind) == std::future_status::ready && found.get();
        };
        if (nChild == 0 && Node(folder).known == Known::Listed && bCreated()) {
            nFound = Number(Add(folder, sName)); // created since the folder was listed
        } else {
            nFound = nChild;
        }
    }
    return Index(static_cast<platform::ItemId>(nFound));
}

QModelIndex FolderModel::Add(const QModelIndex& folder, const std::string& sName)
{
    List(folder, kToFind);
    const std::size_t nFolder = Number(folder);
    if (m_nodes[nFolder].known == Known::Awaited) {
        return folder; // the new one comes with the others
    }
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
    auto more = AskAside([sPath = Path(Item(index))] { return MayHaveSubfolders(sPath); });
    const bool bLeaf = more.wait_for(kGlance) == std::future_status::ready && !more.get();
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
    List(parent, kToShow);
}

/// Lists the subfolders of a folder that has not been listed. If that takes longer, they are awaited.
void FolderModel::List(const QModelIndex& folder, Milliseconds longest)
{
    const std::size_t nFolder = Number(folder);
    if (m_nodes[nFolder].known == Known::Listed) {
        return;
    }
    if (m_nodes[nFolder].known != Known::Awaited) {
        m_nodes[nFolder].known = Known::Awaited;
        m_awaited[nFolder] = AskAside([sPath = Path(Item(folder))] { return Subfolders(sPath); });
    }
    if (m_awaited[nFolder].wait_for(longest) == std::future_status::ready) {
        InsertListed(nFolder, m_awaited.extract(nFolder).mapped().get());
    } else {
        m_late.start();
    }
}

void FolderModel::InsertListed(std::size_t nFolder, std::vector<std::string> names)
{
    std::vector<tNode> children;
    children.reserve(names.size());
    for (std::string& sName : names) {
        children.push_back({.sName = std::move(sName), .sShown = {}});
    }
    if (children.empty()) {
        AddChildren(nFolder, {});
        return;
    }
    beginInsertRows(Index(static_cast<platform::ItemId>(nFolder)), 0, static_cast<int>(children.size()) - 1);
    AddChildren(nFolder, std::move(children));
    endInsertRows();
}

void FolderModel::InsertLate()
{
    std::vector<std::size_t> listed;
    for (const auto& [nFolder, answer] : m_awaited) {
        if (answer.wait_for(Milliseconds(0)) == std::future_status::ready) {
            listed.push_back(nFolder);
        }
    }
    for (const std::size_t nFolder : listed) {
        InsertListed(nFolder, m_awaited.extract(nFolder).mapped().get());
    }
    if (m_awaited.empty()) {
        m_late.stop();
    }
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
