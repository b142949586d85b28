// SPDX-License-Identifier: MIT
#include "Menus.h"

#include "Form.h"
#include "Menu.h"
#include "ShownText.h"
#include "WidgetOf.h"

#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>

namespace desktop {

/// Keeps an item and its action in sync. The widget of a submenu is entered as that of its item.
class Menus::Item final : public QObject, public platform::Observer
{
public:
    Item(platform::MenuItem& item, QAction& action) : m_item(item), m_action(action)
    {
        if (m_action.menu() != nullptr) {
            EnterWidget(m_item, m_action.menu());
        }
        m_item.Observe(this);
        StateChanged(m_item);
    }
    Item(const Item&) = delete;
    Item& operator=(const Item&) = delete;
    ~Item() override
    {
        m_item.Observe(nullptr);
        RemoveWidget(m_item);
    }

    void StateChanged(platform::Observable& /*control*/) override
    {
        m_action.setEnabled(m_item.Enabled());
        // An unchecked item looks like any other, without an empty check box.
        m_action.setChecked(m_item.Checked());
        m_action.setCheckable(m_item.Checked());
        m_action.setChecked(m_item.Checked());
    }

private:
    platform::MenuItem& m_item;
    QAction& m_action;
};

Menus::Menus(platform::Form& form, QMenuBar& bar) : m_form(form)
{
    for (platform::MenuItem* pItem : form.menus) {
        bar.addAction(Add(*pItem, bar));
    }
}

Menus::~Menus() = default;

QAction* Menus::Add(platform::MenuItem& item, QWidget& parent)
{
    if (!item.items.empty()) {
        auto* const pMenu = new QMenu(ShownText(item.sCaption), &parent);
        for (platform::MenuItem* pItem : item.items) {
            pMenu->addAction(Add(*pItem, *pMenu));
        }
        m_items.push_back(std::make_unique<Item>(item, *pMenu->menuAction()));
        return pMenu->menuAction();
    }
    auto* const pAction = new QAction(&parent);
    if (item.sCaption == "-") {
        pAction->setSeparator(true); // without a text, which would be shown in the line
        return pAction;
    }
    pAction->setText(ShownText(item.sCaption));
    pAction->setShortcut(QKeySequence(QString::fromStdString(item.sShortcut)));
    m_items.push_back(std::make_unique<Item>(item, *pAction));
    Item* const pShown = m_items.back().get();
    QObject::connect(pAction, &QAction::triggered, pShown, [this, pShown, &item] {
        pShown->StateChanged(item); // reverts the check mark that the action has toggled itself
        if (m_form.Enabled() && item.Click) {
            item.Click();
        }
    });
    return pAction;
}

} // namespace desktop
