// SPDX-License-Identifier: MIT
#include "WidgetOf.h"

#include <unordered_map>

namespace desktop {
namespace {

std::unordered_map<const platform::Observable*, QWidget*>& Widgets()
{
    static std::unordered_map<const platform::Observable*, QWidget*> widgets;
    return widgets;
}

} // namespace

QWidget* WidgetOf(const platform::Observable* pShown)
{
    const auto found = Widgets().find(pShown);
    return found == Widgets().end() ? nullptr : found->second;
}

void EnterWidget(const platform::Observable& shown, QWidget* pWidget)
{
    Widgets()[&shown] = pWidget;
}

void RemoveWidget(const platform::Observable& shown)
{
    Widgets().erase(&shown);
}

} // namespace desktop
