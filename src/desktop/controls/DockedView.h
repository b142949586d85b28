// SPDX-License-Identifier: MIT
#pragma once

#include "ControlView.h"

namespace desktop {

/// A control docked to an edge of its form, over the full width.
class DockedView : public ControlView
{
public:
    using ControlView::ControlView;

    /// Docks the control inside a form of this size, in pixels. Its height is as designed, or larger if its
    /// texts need that.
    void Dock(QSize inside);

protected:
    [[nodiscard]] virtual bool AtBottom() const = 0;
};

} // namespace desktop
