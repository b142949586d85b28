// SPDX-License-Identifier: MIT
#include "SpokenRole.h"

#include <QAccessibleWidget>
#include <QVariant>

namespace desktop {
namespace {

constexpr const char* kProperty = "spokenRole";

QAccessibleInterface* WithItsRole(const QString& /*sClass*/, QObject* pObject)
{
    const QVariant role = pObject == nullptr ? QVariant() : pObject->property(kProperty);
    // The toolkit takes ownership of the returned object.
    return role.isValid() ? new QAccessibleWidget(static_cast<QWidget*>(pObject),
                                                  static_cast<QAccessible::Role>(role.toInt()))
                          : nullptr;
}

} // namespace

void GiveSpokenRole(QWidget& widget, QAccessible::Role role)
{
    static const bool bInstalled = (QAccessible::installFactory(&WithItsRole), true);
    static_cast<void>(bInstalled);
    widget.setProperty(kProperty, static_cast<int>(role));
}

} // namespace desktop
