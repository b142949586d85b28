// SPDX-License-Identifier: MIT
#pragma once

#include "ControlView.h"
#include "Form.h"

#include <QLabel>
#include <memory>
#include <vector>

namespace platform {
class Panel;
class StatusBar;
} // namespace platform

namespace desktop {

/// Shows a status bar along the bottom of its form.
class StatusBarView final : public DockedView
{
public:
    StatusBarView(const platform::Form& form, platform::StatusBar& bar, QWidget* pParent);
    StatusBarView(const StatusBarView&) = delete;
    StatusBarView& operator=(const StatusBarView&) = delete;
    ~StatusBarView() override;

protected:
    [[nodiscard]] bool AtBottom() const override { return true; }

private:
    class PanelView;
    std::vector<std::unique_ptr<PanelView>> m_panels;
};

} // namespace desktop
