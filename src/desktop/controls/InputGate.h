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

/// Keeps all input from a form's window while the form is not enabled. The widgets in it stay as they look,
/// and keep the focus that they have; what the mouse is dragging there is let go of, as its button may come
/// up unseen. Who clicks there is led to the window that the form waits for.
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
    QPointer<QWidget> m_pressed;             ///< in which the mouse button has gone down that is held
    Qt::MouseButton m_button = Qt::NoButton; ///< that one
    bool m_bEndsPress = false;
};

} // namespace desktop
