// SPDX-License-Identifier: MIT
#pragma once

#include "ControlView.h"
#include "Form.h"
#include "Toolbar.h"

#include <QToolBar>
#include <cstddef>

namespace desktop {

/// Shows a toolbar along the top of its form, its buttons flat if the native window's style says so.
class ToolbarView final : public ViewOf<platform::Toolbar, QToolBar, DockedView>
{
public:
    ToolbarView(const platform::Form& form, platform::Toolbar& toolbar, QWidget* pParent);
    ToolbarView(const ToolbarView&) = delete;
    ToolbarView& operator=(const ToolbarView&) = delete;
    ~ToolbarView() override;

    void Follow() override;

protected:
    [[nodiscard]] bool AtBottom() const override { return false; }

private:
    void AddButton(std::size_t n);
};

} // namespace desktop
