// SPDX-License-Identifier: MIT
#include "ShownLines.h"

#include "ShownText.h"

namespace desktop {

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

} // namespace desktop
