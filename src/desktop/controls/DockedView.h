// SPDX-License-Identifier: MIT
#pragma once

#include "ControlView.h"

namespace desktop {

/// A control that keeps to an edge of its form, at the form's full width.
class DockedView : public ControlView
{
public:
    using ControlView::ControlView;

    /// Gives the control its place inside a form of that size, in pixels. It is as high as designed, or
    /// higher where its texts need that.
    void Dock(QSize inside);

protected:
    [[nodiscard]] virtual bool AtBottom() const = 0;
};

} // namespace desktop
