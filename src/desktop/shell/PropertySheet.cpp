// SPDX-License-Identifier: MIT
#include "PropertySheet.h"

#include "FileKind.h"
#include "FileTime.h"
#include "Paths.h"
#include "ShownText.h"
#include "SizeText.h"
#include "Texts.h"

#include <QFormLayout>
#include <QScrollArea>
#include <QVBoxLayout>
#include <array>
#include <climits>
#include <fcntl.h>
#include <grp.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace desktop {
namespace {

constexpr QSize kSize{420, 340};

QString Moment(const statx_timestamp& time)
{
    const auto stTime = platform::LocalTime({time.tv_sec});
    return stTime ? QString::fromStdString(platform::FormatDateTime(platform::DateValue(*stTime)))
                  : QStringLiteral("unknown");
}

/// "rw-r--r-- (0644)".
QString Permissions(unsigned nMode)
{
    QString sText;
    for (const unsigned nShift : {6U, 3U, 0U}) {
        const unsigned nPart = nMode >> nShift;
        sText += QLatin1Char((nPart & 4U) != 0 ? 'r' : '-');
        sText += QLatin1Char((nPart & 2U) != 0 ? 'w' : '-');
        sText += QLatin1Char((nPart & 1U) != 0 ? 'x' : '-');
    }
    constexpr unsigned nAll = 07777;
    return sText + QStringLiteral(" (%1)").arg(nMode & nAll, 4, 8, QLatin1Char('0'));
}

/// The name of a user or group, or its number if it has no name.
template <typename T>
QString NameOf(unsigned nId, int (*find)(unsigned, T*, char*, std::size_t, T**), char* T::* name)
{
    constexpr std::size_t kLongestEntry = std::size_t{16} * 1024;
    std::array<char, kLongestEntry> text{};
    T entry{};
    T* pFound = nullptr;
    find(nId, &entry, text.data(), text.size(), &pFound);
    return pFound == nullptr ? QString::number(nId) : ShownText(pFound->*name);
}

QString TargetOf(const std::string& sPath)
{
    std::array<char, PATH_MAX> target{};
    const ssize_t nLength = readlink(sPath.c_str(), target.data(), target.size());
    return nLength < 0 ? QString() : ShownText({target.data(), static_cast<std::size_t>(nLength)});
}

} // namespace

tProperties PropertiesOf(const std::string& sPath)
{
    struct statx status = {};
    if (!sPath.starts_with('/') ||
        statx(AT_FDCWD, sPath.c_str(), AT_SYMLINK_NOFOLLOW, STATX_BASIC_STATS | STATX_BTIME, &status) != 0) {
        return {};
    }
    tProperties properties = {{QStringLiteral("Name"), ShownText(platform::NameIn(sPath))},
                              {QStringLiteral("Folder"), ShownText(platform::FolderPart(sPath))}};
    const auto add = [&properties](const char* pWhat, const QString& sIs) {
        properties.emplace_back(QLatin1String(pWhat), sIs);
    };
    if (S_ISLNK(status.stx_mode)) {
        add("Kind", QStringLiteral("link"));
        add("Leads to", TargetOf(sPath));
    } else {
        const std::string sKind = FileKind(sPath);
        const QString sWords = QString::fromStdString(KindInWords(sKind));
        add("Kind", QStringLiteral("%1 (%2)").arg(sWords, QString::fromStdString(sKind)));
    }
    if (S_ISREG(status.stx_mode)) {
        add("Size", FullSize(static_cast<std::int64_t>(status.stx_size)));
        constexpr std::uint64_t cyBlock = 512;
        add("On the disk", FullSize(static_cast<std::int64_t>(status.stx_blocks * cyBlock)));
    }
    if ((status.stx_mask & STATX_BTIME) != 0) {
        add("Created", Moment(status.stx_btime));
    }
    add("Changed", Moment(status.stx_mtime));
    add("Last read", Moment(status.stx_atime));
    add("Permissions", Permissions(status.stx_mode));
    add("Owner", NameOf(status.stx_uid, &getpwuid_r, &passwd::pw_name));
    add("Group", NameOf(status.stx_gid, &getgrgid_r, &group::gr_name));
    if (S_ISREG(status.stx_mode) && status.stx_nlink > 1) {
        add("Hard links", NumberText(status.stx_nlink));
    }
    return properties;
}

void PropertySheet::Show(QWidget* pOpenedFrom, const std::string& sPath, const tProperties& properties)
{
    PropertySheet* pSheet = nullptr;
    for (StandingWindow* const pEach : All()) {
        auto* const pOpen = dynamic_cast<PropertySheet*>(pEach);
        pSheet = pOpen != nullptr && pOpen->m_sPath == sPath ? pOpen : pSheet;
    }
    if (pSheet == nullptr) {
        // Files with the same name are distinguished by their folders.
        pSheet = new PropertySheet(
            pOpenedFrom, sPath,
            QStringLiteral("%1 \u2013 %2 \u2013 Properties")
                .arg(ShownText(platform::NameIn(sPath)), ShownText(platform::FolderPart(sPath))));
    }
    pSheet->Fill(properties);
    pSheet->ShowUp();
}

PropertySheet::PropertySheet(QWidget* pOpenedFrom, std::string sPath, const QString& sTitle)
    : StandingWindow(pOpenedFrom, QStringLiteral("propertySheet"), sTitle), m_sPath(std::move(sPath)),
      m_pArea(new QScrollArea)
{
    m_pArea->setFrameShape(QFrame::NoFrame);
    m_pArea->setFocusPolicy(Qt::NoFocus); // its lines take the focus, and then scroll into view
    m_pArea->setWidgetResizable(true);
    auto* const pButtons = new QDialogButtonBox;
    QPushButton* const pClose = AddButton(*pButtons, QStringLiteral("Close"), QDialogButtonBox::RejectRole,
                                          QStringLiteral("close"), [this] { close(); });
    auto* const pLayout = new QVBoxLayout(this);
    pLayout->addWidget(m_pArea, 1);
    pLayout->addWidget(pButtons);
    pClose->setDefault(true);
    SizeFor(kSize);
    pClose->setFocus();
}

void PropertySheet::Fill(const tProperties& properties)
{
    auto* const pInside = new QWidget;
    auto* const pLines = new QFormLayout;
    pInside->setLayout(pLines);
    for (const auto& [sWhat, sIs] : properties) {
        QLabel* const pValue = Text(sIs, sWhat);
        pValue->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
        pValue->setFocusPolicy(Qt::StrongFocus);
        pLines->addRow(sWhat + QLatin1Char(':'), pValue);
    }
    m_pArea->setWidget(pInside);
}

} // namespace desktop
