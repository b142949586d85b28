// SPDX-License-Identifier: MIT
#pragma once

#include "ControlView.h"
#include "Form.h"
#include "Observable.h"
#include "Widgets.h"

#include <QLabel>
#include <QRect>
#include <QStringList>
#include <QTimer>

namespace desktop {

/// A label with word wrap. The last line that fits completely shows all the rest of the text, ending in dots
/// if that is too long.
class LabelWidget final : public QLabel
{
public:
    explicit LabelWidget(QWidget* pParent);

    /// The height that the whole text needs at this width, in pixels.
    [[nodiscard]] int HeightNeeded(int nWidth) const;

protected:
    void paintEvent(QPaintEvent* pEvent) override;

private:
    [[nodiscard]] QStringList Lines(int nWidth, int nMost) const;
};

/// Shows a label. A caption is applied some milliseconds later, so that an operation can set a hundred
/// thousand of them a second. A label that needs more room than it has grows downwards over free space.
class LabelView final : public ViewOf<platform::Label, LabelWidget>
{
public:
    LabelView(const platform::Form& form, platform::Label& label, QWidget* pParent);

    void Flush() override;
    void StateChanged(platform::Observable& control) override;

protected:
    [[nodiscard]] QRect Place() const override;

private:
    QTimer m_wait;
    int m_nHeightNeeded = 0;
};

} // namespace desktop
