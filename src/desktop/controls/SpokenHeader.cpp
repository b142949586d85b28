// SPDX-License-Identifier: MIT
#include "SpokenHeader.h"

#include <QAccessible>
#include <QAccessibleActionInterface>
#include <QHeaderView>
#include <QScopedValueRollback>
#include <QTreeView>
#include <QVariant>
#include <map>

namespace desktop {
namespace {

constexpr const char* kProperty = "pressableHeader";

/// Forwards everything to the toolkit's own accessible object.
class SpokenAs : public QAccessibleInterface
{
public:
    explicit SpokenAs(QAccessibleInterface& toolkits) : m_toolkits(toolkits) {}

    bool isValid() const override { return m_toolkits.isValid(); }
    QObject* object() const override { return m_toolkits.object(); }
    QWindow* window() const override { return m_toolkits.window(); }
    QList<std::pair<QAccessibleInterface*, QAccessible::Relation>>
    relations(QAccessible::Relation match) const override
    {
        return m_toolkits.relations(match);
    }
    QAccessibleInterface* focusChild() const override { return m_toolkits.focusChild(); }
    QAccessibleInterface* childAt(int x, int y) const override { return m_toolkits.childAt(x, y); }
    QAccessibleInterface* parent() const override { return m_toolkits.parent(); }
    QAccessibleInterface* child(int n) const override { return m_toolkits.child(n); }
    int childCount() const override { return m_toolkits.childCount(); }
    int indexOfChild(const QAccessibleInterface* pChild) const override
    {
        return m_toolkits.indexOfChild(pChild);
    }
    QString text(QAccessible::Text text) const override { return m_toolkits.text(text); }
    void setText(QAccessible::Text text, const QString& sText) override { m_toolkits.setText(text, sText); }
    QRect rect() const override { return m_toolkits.rect(); }
    QAccessible::Role role() const override { return m_toolkits.role(); }
    QAccessible::State state() const override { return m_toolkits.state(); }
    void* interface_cast(QAccessible::InterfaceType type) override { return m_toolkits.interface_cast(type); }

private:
    QAccessibleInterface& m_toolkits;
};

class PressableHeader final : public SpokenAs, private QAccessibleActionInterface
{
public:
    PressableHeader(QAccessibleInterface& toolkits, QTreeView& view, int nColumn)
        : SpokenAs(toolkits), m_view(view), m_nColumn(nColumn)
    {
    }

    void* interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                                    : SpokenAs::interface_cast(type);
    }

private:
    QStringList actionNames() const override
    {
        return m_view.isEnabled() ? QStringList(pressAction()) : QStringList();
    }
    void doAction(const QString& sAction) override
    {
        if (actionNames().contains(sAction)) {
            Q_EMIT m_view.header()->sectionClicked(m_nColumn);
        }
    }
    QStringList keyBindingsForAction(const QString& /*sAction*/) const override { return {}; }

    QTreeView& m_view;
    int m_nColumn;
};

/// A view whose first children, the column headers, can be pressed.
class ViewWithHeader final : public SpokenAs
{
public:
    ViewWithHeader(QAccessibleInterface& toolkits, QTreeView& view) : SpokenAs(toolkits), m_view(view) {}
    ViewWithHeader(const ViewWithHeader&) = delete;
    ViewWithHeader& operator=(const ViewWithHeader&) = delete;
    ~ViewWithHeader() override
    {
        for (const auto& [nColumn, nId] : m_headers) {
            QAccessible::deleteAccessibleInterface(nId);
        }
    }

    QAccessibleInterface* child(int n) const override
    {
        QAccessibleInterface* const pToolkits = SpokenAs::child(n);
        if (pToolkits == nullptr || pToolkits->role() != QAccessible::ColumnHeader) {
            return pToolkits;
        }
        const auto [it, bNew] = m_headers.try_emplace(n);
        if (bNew) {
            it->second = QAccessible::registerAccessibleInterface(new PressableHeader(*pToolkits, m_view, n));
        }
        return QAccessible::accessibleInterface(it->second);
    }
    int indexOfChild(const QAccessibleInterface* pChild) const override
    {
        for (const auto& [nColumn, nId] : m_headers) {
            if (QAccessible::accessibleInterface(nId) == pChild) {
                return nColumn;
            }
        }
        return SpokenAs::indexOfChild(pChild);
    }
    QAccessibleInterface* childAt(int x, int y) const override
    {
        const QPoint inHeader = m_view.header()->mapFromGlobal(QPoint(x, y));
        const int nColumn =
            m_view.header()->rect().contains(inHeader) ? m_view.header()->logicalIndexAt(inHeader) : -1;
        return nColumn >= 0 ? child(nColumn) : SpokenAs::childAt(x, y);
    }

private:
    QTreeView& m_view;
    mutable std::map<int, QAccessible::Id> m_headers; ///< by column; the toolkit owns them
};

QAccessibleInterface* WithHeader(const QString& /*sClass*/, QObject* pObject)
{
    static bool bAsksToolkit = false;
    auto* const pView = bAsksToolkit ? nullptr : qobject_cast<QTreeView*>(pObject);
    if (pView == nullptr || !pView->property(kProperty).isValid()) {
        return nullptr;
    }
    const QScopedValueRollback asksToolkit(bAsksToolkit, true);
    QAccessibleInterface* const pToolkits = QAccessible::queryAccessibleInterface(pView);
    return pToolkits != nullptr ? new ViewWithHeader(*pToolkits, *pView) : nullptr;
}

} // namespace

void GivePressableHeader(QTreeView& view)
{
    static const bool bInstalled = (QAccessible::installFactory(&WithHeader), true);
    static_cast<void>(bInstalled);
    view.setProperty(kProperty, true);
}

} // namespace desktop
