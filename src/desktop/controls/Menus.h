// SPDX-License-Identifier: MIT
#pragma once

#include <QAction>
#include <memory>
#include <vector>

class QMenuBar;

namespace platform {
class Form;
class MenuItem;
} // namespace platform

namespace desktop {

/// Keeps the menus of a form and the actions of its menu bar in sync. An action notifies its item when it is
/// triggered, and changes nothing itself, not even its check mark. After the destruction of this object the
/// menu bar no longer reports to the items.
class Menus
{
public:
    Menus(platform::Form& form, QMenuBar& bar);
    ~Menus();
    Menus(const Menus&) = delete;
    Menus& operator=(const Menus&) = delete;

private:
    class Item;

    /// Creates the action of an item and those of its submenu.
    QAction* Add(platform::MenuItem& item, QWidget& parent);

    platform::Form& m_form;
    std::vector<std::unique_ptr<Item>> m_items;
};

} // namespace desktop
