// SPDX-License-Identifier: MIT
#include "Pictures.h"

#include <QFile>

// The drawings lie in a library, so nothing but this call would bring them into the program. The macro must
// stand outside any namespace.
static void BringInDrawings()
{
    Q_INIT_RESOURCE(pictures);
}

namespace desktop {

QIcon Picture(const std::string& sName)
{
    static const bool bThere = (BringInDrawings(), true);
    const QString sPath = QStringLiteral(":/pictures/%1.svg").arg(QString::fromStdString(sName));
    return bThere && QFile::exists(sPath) ? QIcon(sPath) : QIcon();
}

} // namespace desktop
