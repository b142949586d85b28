#pragma once

#include <QAccessible>
#include <QTimer>

class QFocusEvent;

namespace desktop {

/// A view of rows that tells assistive programs its current row when it gets the keyboard. The toolkit tells
/// of the view alone, so that nobody would hear where the next key acts.
template <typename View>
class SpokenRows : public View
{
public:
    using View::View;

protected:
    void focusInEvent(QFocusEvent* pEvent) override
    {
        View::focusInEvent(pEvent);
        // Behind what is told of the view: the last to be told of has the keyboard.
        QTimer::singleShot(0, this, [this] { TellCurrentRow(); });
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
};

} // namespace desktop
