// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessible>
#include <QTimer>

class QFocusEvent;
class QWidget;

namespace desktop {

/// A view of rows that reports its current row to assistive programs when it gets the focus. The toolkit
/// reports only the view, so that users would not hear which row the next key applies to.
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
        // After the toolkit's report of the view, since assistive programs take the object reported last as
        // the focus.
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

    QTimer m_tell; ///< runs while the report of the current row is pending
};

} // namespace desktop
