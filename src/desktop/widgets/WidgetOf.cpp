// SPDX-License-Identifier: MIT
#include "WidgetOf.h"

#include <unordered_map>

namespace desktop {
namespace {

std::unordered_map<const platform::Control*, QWidget*>& Widgets()
{
    static std::unordered_map<const platform::Control*, QWidget*> widgets;
    return widgets;
}

} // namespace

QWidget* WidgetOf(const platform::Control* pControl)
{
    const auto found = Widgets().find(pControl);
    return found == Widgets().end() ? nullptr : found->second;
}

void EnterWidget(const platform::Control& control, QWidget* pWidget)
{
    Widgets()[&control] = pWidget;
}

void RemoveWidget(const platform::Control& control)
{
    Widgets().erase(&control);
}

} // namespace desktop
