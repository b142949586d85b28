// SPDX-License-Identifier: MIT
#pragma once

#include <QMouseEvent>
#include <QObject>
#include <QPointer>
#include <QWidget>

namespace platform {
class Form;
}

namespace desktop {

/// Blocks all input to a form's window while the form is disabled. The widgets keep their look and the focus.
/// A drag in progress is ended, since the release of the button may be missed. A click brings the window to
/// the front that the form is waiting for.
class InputGate final : public QObject
{
public:
    InputGate(const platform::Form& form, QWidget& window);

    /// The form has been enabled or disabled.
    void FormChanged();

    bool eventFilter(QObject* pWatched, QEvent* pEvent) override;

private:
    void NotePress(QWidget& widget, const QMouseEvent& event);
    void EndPress();
    void ShowOwned() const;

    const platform::Form& m_form;
    QWidget& m_window;
    QPointer<QWidget> m_pressed;             ///< the widget in which the held mouse button was pressed
    Qt::MouseButton m_button = Qt::NoButton; ///< the held button
    bool m_bEndsPress = false;
};

} // namespace desktop
