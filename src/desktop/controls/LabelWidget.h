// SPDX-License-Identifier: MIT
#pragma once

#include "Control.h"
#include "ControlView.h"

#include <QLabel>
#include <QStringList>
#include <QTimer>

namespace platform {
class Label;
}

namespace desktop {

/// Text that breaks into lines at its width. The last line that fits whole takes all the rest, and ends in
/// dots where that is too long.
class LabelWidget final : public QLabel
{
public:
    explicit LabelWidget(QWidget* pParent);

    /// The height that the whole text needs at a width.
    [[nodiscard]] int HeightNeeded(int nWidth) const;

protected:
    void paintEvent(QPaintEvent* pEvent) override;

private:
    [[nodiscard]] QStringList Lines(int nWidth, int nMost) const;
};

/// Shows a label. A caption is taken over some milliseconds later, so that an operation can set a hundred
/// thousand of them a second, and grows downwards over free room where it needs more than the label has.
class LabelView final : public ControlView
{
public:
    LabelView(const platform::Form& form, platform::Label& label, QWidget* pParent);

    void Flush() override;
    void ControlChanged(platform::Control& control) override;

protected:
    [[nodiscard]] QRect Place() const override;

private:
    platform::Label& m_label;
    LabelWidget& m_text;
    QTimer m_wait;
    int m_nHeightNeeded = 0;
};

} // namespace desktop
