// SPDX-License-Identifier: MIT
#include "Breakable.h"

#include <QTextBoundaryFinder>

namespace desktop {

QString Breakable(const QString& sText)
{
    constexpr int kLongestRun = 24; // characters; even the widest ones fit into any window
    constexpr char16_t kZeroWidthSpace = 0x200B;
    QString sBreakable;
    int nRun = 0;
    qsizetype nStart = 0;
    QTextBoundaryFinder characters(QTextBoundaryFinder::Grapheme, sText);
    for (qsizetype nEnd = characters.toNextBoundary(); nEnd > 0; nEnd = characters.toNextBoundary()) {
        if (nRun == kLongestRun) {
            sBreakable += QChar(kZeroWidthSpace);
            nRun = 0;
        }
        sBreakable += QStringView(sText).sliced(nStart, nEnd - nStart);
        nRun = sText[nStart].isSpace() ? 0 : nRun + 1;
        nStart = nEnd;
    }
    return sBreakable;
}

} // namespace desktop
