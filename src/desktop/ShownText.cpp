#include "ShownText.h"

#include "Utf8.h"

#include <QChar>

#include <algorithm>

namespace desktop {
namespace {

bool IsHexDigit(char c)
{
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

/// True if `sText` starts with what reads as an escape.
bool ReadsAsEscape(std::string_view sText)
{
    return sText.size() >= 4 && sText[0] == '\\' && sText[1] == 'x' && IsHexDigit(sText[2]) &&
           IsHexDigit(sText[3]);
}

bool CanBeSeen(QStringView sChar)
{
    const char32_t c = sChar.size() == 2 ? QChar::surrogateToUcs4(sChar[0], sChar[1]) : sChar[0].unicode();
    // Joiners are invisible, but Persian words and many pictures are written with them.
    constexpr char32_t kNonJoiner = 0x200C;
    constexpr char32_t kJoiner = 0x200D;
    const auto category = QChar::category(c);
    return c == kNonJoiner || c == kJoiner ||
           (QChar::isPrint(c) && category != QChar::Separator_Line && category != QChar::Separator_Paragraph);
}

bool IsPlain(char c)
{
    return c >= ' ' && c <= '~' && c != '\\';
}

void AppendEscaped(QString& sShown, std::string_view sBytes)
{
    constexpr char kDigits[] = "0123456789ABCDEF";
    for (const char c : sBytes) {
        const auto nByte = static_cast<unsigned char>(c);
        sShown += QLatin1String("\\x");
        sShown += QLatin1Char(kDigits[nByte >> 4U]);
        sShown += QLatin1Char(kDigits[nByte & 15U]);
    }
}

} // namespace

QString ShownText(std::string_view sText)
{
    if (std::all_of(sText.begin(), sText.end(), IsPlain)) {
        return QString::fromLatin1(sText.data(), static_cast<qsizetype>(sText.size()));
    }
    QString sShown;
    while (!sText.empty()) {
        const std::size_t nLength = platform::CharLength(sText);
        const std::string_view sBytes = sText.substr(0, nLength);
        const QString sChar = QString::fromUtf8(sBytes.data(), static_cast<qsizetype>(nLength));
        if (platform::ValidChar(sText) && CanBeSeen(sChar) && !ReadsAsEscape(sText)) {
            sShown += sChar;
        } else {
            AppendEscaped(sShown, sBytes);
        }
        sText.remove_prefix(nLength);
    }
    return sShown;
}

} // namespace desktop
