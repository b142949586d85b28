#pragma once

#include <QObject>
#include <QWidget>

namespace platform {
class Form;
}

namespace desktop {

/// Keeps all input from a form's window while the form is not enabled. The widgets in it stay as they look,
/// and keep the focus that they have.
class InputGate final : public QObject
{
public:
    InputGate(const platform::Form& form, const QWidget& window);

    bool eventFilter(QObject* pWatched, QEvent* pEvent) override;

private:
    const platform::Form& m_form;
    const QWidget& m_window;
};

} // namespace desktop
