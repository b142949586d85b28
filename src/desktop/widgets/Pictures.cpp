// SPDX-License-Identifier: MIT
#include "Pictures.h"

#include <QFile>

// The drawings are in a static library and would not be linked in without this call. The macro must be used
// outside any namespace.
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
