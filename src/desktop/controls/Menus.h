// SPDX-License-Identifier: MIT
#pragma once

#include <QAction>
#include <QObject>
#include <memory>
#include <vector>

class QMenuBar;

namespace platform {
class Form;
class MenuItem;
} // namespace platform

namespace desktop {

/// Keeps the menus of a form and the actions of its menu bar in step. An action tells its item that it was
/// chosen, and changes nothing by itself, not even its check mark. From the end of this object on the menu
/// bar tells the items nothing any more.
class Menus
{
public:
    Menus(platform::Form& form, QMenuBar& bar);
    ~Menus();
    Menus(const Menus&) = delete;
    Menus& operator=(const Menus&) = delete;

private:
    class Item;

    /// Makes an item's action and those of the items below it.
    QAction* Add(platform::MenuItem& item, QWidget& parent);

    platform::Form& m_form;
    std::vector<std::unique_ptr<Item>> m_items;
};

} // namespace desktop
