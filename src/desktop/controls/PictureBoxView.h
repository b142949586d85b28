// SPDX-License-Identifier: MIT
#pragma once

#include "ControlView.h"
#include "Widgets.h"

class QMouseEvent;

namespace desktop {

/// Shows a picture box. A bar that sizes what is above and below it is thin: it takes the mouse some pixels
/// beyond what shows of it, too.
class PictureBoxView final : public ControlView
{
public:
    PictureBoxView(const platform::Form& form, platform::PictureBox& box, QWidget* pParent);

    void Follow() override;
    bool eventFilter(QObject* pWatched, QEvent* pEvent) override;

protected:
    [[nodiscard]] QRect Place() const override;

private:
    /// How far the widget reaches above and below the box.
    [[nodiscard]] int Beyond() const;
    [[nodiscard]] bool Tell(const platform::MouseEvent& tell, const QMouseEvent& event) const;
    void Paint() const;

    platform::PictureBox& m_box;
};

} // namespace desktop
