// SPDX-License-Identifier: MIT
#include "ShownText.h"

#include "Escaped.h"

#include <algorithm>

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

QString AsToolTip(const QString& sText)
{
    return QStringLiteral("<p style='white-space:pre-wrap'>%1</p>").arg(sText.toHtmlEscaped());
}

} // namespace desktop
