// SPDX-License-Identifier: MIT
#include "SpokenHeader.h"

#include <QAccessible>
#include <QAccessibleActionInterface>
#include <QHeaderView>
#include <QPointer>
#include <QScopedValueRollback>
#include <QTreeView>
#include <QVariant>
#include <map>

namespace desktop {
namespace {

constexpr const char* kProperty = "pressableHeader";

class PressableHeader final : public QAccessibleInterface, private QAccessibleActionInterface
{
public:
    PressableHeader(QTreeView& view, int nColumn) : m_view(view), m_nColumn(nColumn) {}

    [[nodiscard]] bool isValid() const override
    {
        return m_view.model() != nullptr && m_nColumn < m_view.model()->columnCount();
    }
    [[nodiscard]] QObject* object() const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface* parent() const override
    {
        return QAccessible::queryAccessibleInterface(&m_view);
    }
    [[nodiscard]] QAccessibleInterface* child(int /*n*/) const override { return nullptr; }
    [[nodiscard]] int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface* /*pChild*/) const override { return -1; }
    [[nodiscard]] QString text(QAccessible::Text text) const override
    {
        return isValid() && text == QAccessible::Name
                   ? m_view.model()->headerData(m_nColumn, Qt::Horizontal).toString()
                   : QString();
    }
    void setText(QAccessible::Text /*text*/, const QString& /*sText*/) override {}
    [[nodiscard]] QRect rect() const override
    {
        if (!isValid()) {
            return {};
        }
        const QHeaderView& header = *m_view.header();
        const QPoint corner(header.sectionViewportPosition(m_nColumn), 0);
        return {header.mapToGlobal(corner), QSize(header.sectionSize(m_nColumn), header.height())};
    }
    [[nodiscard]] QAccessible::Role role() const override { return QAccessible::ColumnHeader; }
    [[nodiscard]] QAccessible::State state() const override
    {
        QAccessible::State state;
        state.invisible = !isValid() || !m_view.header()->isVisible();
        state.disabled = !isValid() || !m_view.isEnabled();
        return state;
    }
    void* interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                                    : nullptr;
    }

private:
    [[nodiscard]] QStringList actionNames() const override
    {
        return isValid() && m_view.isEnabled() ? QStringList(pressAction()) : QStringList();
    }
    void doAction(const QString& sAction) override
    {
        if (actionNames().contains(sAction)) {
            Q_EMIT m_view.header()->sectionClicked(m_nColumn);
        }
    }
    [[nodiscard]] QStringList keyBindingsForAction(const QString& /*sAction*/) const override { return {}; }

    QTreeView& m_view; ///< lives longer: this goes with what describes the view
    int m_nColumn;
};

/// Describes a view as the toolkit's own object does, except for its first children, the headers.
class ViewWithHeader final : public QAccessibleInterface
{
public:
    ViewWithHeader(QAccessibleInterface& toolkits, QTreeView& view)
        : m_toolkits(toolkits), m_view(view), m_pView(&view)
    {
    }
    ViewWithHeader(const ViewWithHeader&) = delete;
    ViewWithHeader& operator=(const ViewWithHeader&) = delete;
    ~ViewWithHeader() override
    {
        for (const auto& [nColumn, nId] : m_headers) {
            QAccessible::deleteAccessibleInterface(nId);
        }
    }

    bool isValid() const override { return m_pView != nullptr && m_toolkits.isValid(); }
    // At the end of the program this is called when the toolkit's own object may no longer exist.
    QObject* object() const override { return m_pView; }
    QWindow* window() const override { return m_toolkits.window(); }
    QList<std::pair<QAccessibleInterface*, QAccessible::Relation>>
    relations(QAccessible::Relation match) const override
    {
        return m_toolkits.relations(match);
    }
    QAccessibleInterface* focusChild() const override { return m_toolkits.focusChild(); }
    QAccessibleInterface* parent() const override { return m_toolkits.parent(); }
    QString text(QAccessible::Text text) const override { return m_toolkits.text(text); }
    void setText(QAccessible::Text text, const QString& sText) override { m_toolkits.setText(text, sText); }
    QRect rect() const override { return m_toolkits.rect(); }
    QAccessible::Role role() const override { return m_toolkits.role(); }
    QAccessible::State state() const override { return m_toolkits.state(); }
    void* interface_cast(QAccessible::InterfaceType type) override { return m_toolkits.interface_cast(type); }
    int childCount() const override { return m_toolkits.childCount(); }

    QAccessibleInterface* child(int n) const override
    {
        QAccessibleInterface* const pToolkits = m_toolkits.child(n);
        if (pToolkits == nullptr || pToolkits->role() != QAccessible::ColumnHeader) {
            return pToolkits;
        }
        const auto [it, bNew] = m_headers.try_emplace(n);
        if (bNew) {
            it->second = QAccessible::registerAccessibleInterface(new PressableHeader(m_view, n));
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
        return m_toolkits.indexOfChild(pChild);
    }
    QAccessibleInterface* childAt(int x, int y) const override
    {
        const QHeaderView& header = *m_view.header();
        const QPoint inHeader = header.mapFromGlobal(QPoint(x, y));
        const int nColumn = header.rect().contains(inHeader) ? header.logicalIndexAt(inHeader) : -1;
        return nColumn >= 0 ? child(nColumn) : m_toolkits.childAt(x, y);
    }

private:
    QAccessibleInterface& m_toolkits;
    QTreeView& m_view;
    QPointer<QTreeView> m_pView;                      ///< the same, until it goes
    mutable std::map<int, QAccessible::Id> m_headers; ///< by column; owned by the toolkit
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
