// SPDX-License-Identifier: MIT
#pragma once

#include "ControlView.h"
#include "Form.h"
#include "Widgets.h"

#include <QRect>

class QMouseEvent;

namespace desktop {

/// Shows a picture box. A splitter is thin, so it also reacts to the mouse some pixels above and below its
/// visible part.
class PictureBoxView final : public ViewOf<platform::PictureBox, QWidget>
{
public:
    PictureBoxView(const platform::Form& form, platform::PictureBox& box, QWidget* pParent);

    void Follow() override;
    bool eventFilter(QObject* pWatched, QEvent* pEvent) override;

protected:
    [[nodiscard]] QRect Place() const override;

private:
    /// How far the widget extends above and below the box, in pixels.
    [[nodiscard]] int Beyond() const;
    [[nodiscard]] bool Tell(const platform::MouseEvent& tell, const QMouseEvent& event) const;
    void Paint() const;
};

} // namespace desktop
