// SPDX-License-Identifier: MIT
#include "ShownText.h"

#include "Escaped.h"

#include <QTextBoundaryFinder>
#include <algorithm>
#include <cstring>

namespace desktop {
namespace {

bool IsPlain(char c)
{
    return c >= ' ' && c <= '~' && c != '\\';
}

} // namespace

QString ShownText(std::string_view sText)
{
    // A fast path for nearly all names, since a list asks for names with every paint.
    if (std::all_of(sText.begin(), sText.end(), IsPlain)) {
        return QString::fromLatin1(sText.data(), static_cast<qsizetype>(sText.size()));
    }
    return QString::fromStdString(platform::Escaped(sText));
}

QString ShownLines(std::string_view sText)
{
    constexpr std::string_view kBreak = "\r\n";
    QString sShown;
    for (auto nBreak = sText.find(kBreak); nBreak != std::string_view::npos; nBreak = sText.find(kBreak)) {
        sShown += ShownText(sText.substr(0, nBreak)) + QLatin1Char('\n');
        sText.remove_prefix(nBreak + kBreak.size());
    }
    return sShown + ShownText(sText);
}

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

QString ErrorSentence(int nError)
{
    return QString::fromLocal8Bit(std::strerror(nError)) + QLatin1Char('.');
}

QString AsTitle(QString sText)
{
    return sText.replace(QLatin1String("[*]"), QLatin1String("[*][*]"));
}

QString AsToolTip(const QString& sText)
{
    return QStringLiteral("<p style='white-space:pre-wrap'>%1</p>").arg(sText.toHtmlEscaped());
}

} // namespace desktop
