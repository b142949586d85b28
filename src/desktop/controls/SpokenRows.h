// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessible>
#include <QTimer>

class QFocusEvent;
class QWidget;

namespace desktop {

/// A view of rows that tells assistive programs its current row when it gets the keyboard. The toolkit tells
/// of the view alone, so that nobody would hear where the next key acts.
template <typename View>
class SpokenRows : public View
{
public:
    explicit SpokenRows(QWidget* pParent = nullptr) : View(pParent)
    {
        m_tell.setSingleShot(true);
        QObject::connect(&m_tell, &QTimer::timeout, this, [this] { TellCurrentRow(); });
    }

protected:
    void focusInEvent(QFocusEvent* pEvent) override
    {
        View::focusInEvent(pEvent);
        // Behind what is told of the view: the last to be told of has the keyboard.
        m_tell.start(0);
    }

private:
    void TellCurrentRow()
    {
        QAccessibleInterface* const pView = QAccessible::isActive() && this->hasFocus()
                                                ? QAccessible::queryAccessibleInterface(this)
                                                : nullptr;
        if (QAccessibleInterface* const pRow = pView == nullptr ? nullptr : pView->focusChild()) {
            QAccessibleEvent event(pRow, QAccessible::Focus);
            QAccessible::updateAccessibility(&event);
        }
    }

    QTimer m_tell; ///< runs while the current row is still to be told of
};

} // namespace desktop
