// SPDX-License-Identifier: MIT
#include "SaveChooser.h"

#include "CanonicalPath.h"
#include "NoticeLabel.h"
#include "Paths.h"
#include "Questions.h"
#include "ShownText.h"
#include "SpokenRows.h"
#include "Subfolders.h"
#include "Utf8.h"

#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <cerrno>
#include <sys/stat.h>
#include <unistd.h>

namespace desktop {
namespace {

constexpr QSize kSize{600, 440};

/// The parts of a filter, each terminated by a NUL.
std::vector<std::string> Texts(std::string_view sFilter)
{
    std::vector<std::string> texts;
    for (auto nEnd = sFilter.find('\0'); nEnd != std::string_view::npos && nEnd > 0;
         nEnd = sFilter.find('\0')) {
        texts.emplace_back(sFilter.substr(0, nEnd));
        sFilter.remove_prefix(nEnd + 1);
    }
    return texts;
}

/// The text up to the first NUL.
std::string UpToNul(const std::string& sText)
{
    return sText.substr(0, sText.find('\0'));
}

/// The reason why no file can be written at `sPath`, as far as that can be known in advance; empty if there
/// is none.
QString WhyNotWritable(const std::string& sPath, bool& bThere)
{
    struct stat status = {};
    bThere = stat(sPath.c_str(), &status) == 0;
    if (!bThere && errno != ENOENT) {
        return ErrorSentence(errno);
    }
    if (bThere && !S_ISREG(status.st_mode)) {
        return QStringLiteral("There is something of that name that is no file.");
    }
    const std::string sAsked = bThere ? sPath : platform::FolderPart(sPath);
    if (access(sAsked.c_str(), W_OK) == 0) {
        return {};
    }
    if (errno != EACCES && errno != EPERM) {
        return ErrorSentence(errno);
    }
    return bThere ? QStringLiteral("You are not permitted to write to this file.")
                  : QStringLiteral("You are not permitted to write to this folder.");
}

/// True if a name has an extension: a dot, not at the start, followed by letters and digits with at least one
/// letter. "v1.2 list" and "report.2024" have none.
bool HasExtension(const QString& sName)
{
    const qsizetype nDot = sName.lastIndexOf(QLatin1Char('.'));
    const QString sBehind = sName.mid(nDot + 1);
    const auto isLetter = [](QChar c) { return c.isLetter(); };
    return nDot > 0 && std::any_of(sBehind.begin(), sBehind.end(), isLetter) &&
           std::all_of(sBehind.begin(), sBehind.end(), [](QChar c) { return c.isLetterOrNumber(); });
}

} // namespace

SaveChooser::SaveChooser(const platform::OPENFILENAME& request)
    : DialogWindow(OwnerOf(request.hwndOwner), QStringLiteral("saveChooser"), ShownText(request.lpstrTitle)),
      m_request(request), m_pPane(new FolderPane), m_pFiles(new SpokenRows<QListWidget>),
      m_pName(new QLineEdit), m_pKind(new QComboBox), m_pFault(new NoticeLabel)
{
    m_pFiles->setObjectName(QStringLiteral("files"));
    m_pFiles->setAccessibleName(QStringLiteral("Files that are there"));
    m_pName->setObjectName(QStringLiteral("name"));
    const std::string sProposed = UpToNul(request.lpstrFile);
    m_pName->setText(platform::IsValidUtf8(sProposed) ? QString::fromStdString(sProposed) : QString());
    m_pKind->setObjectName(QStringLiteral("kind"));
    const std::vector<std::string> filter = Texts(request.lpstrFilter);
    for (std::size_t n = 0; n + 1 < filter.size(); n += 2) {
        m_pKind->addItem(ShownText(filter[n]));
        m_patterns.push_back(filter[n + 1]);
    }
    m_pKind->setCurrentIndex(static_cast<int>(request.nFilterIndex) - 1);
    m_pFault->setObjectName(QStringLiteral("fault"));
    auto* const pButtons = new QDialogButtonBox;
    QPushButton* const pSave =
        AddButton(*pButtons, QStringLiteral("&Save"), QDialogButtonBox::AcceptRole, QStringLiteral("save"));
    AddButton(*pButtons, QStringLiteral("Cancel"), QDialogButtonBox::RejectRole, QStringLiteral("cancel"));

    m_pPane->ShowBeside(*m_pFiles);
    auto* const pAnswer = new QFormLayout;
    pAnswer->addRow(QStringLiteral("File &name:"), m_pName);
    pAnswer->addRow(QStringLiteral("Save as &type:"), m_pKind);
    auto* const pLayout = new QVBoxLayout(this);
    pLayout->addWidget(m_pPane, 1);
    pLayout->addLayout(pAnswer);
    pLayout->addWidget(m_pFault);
    pLayout->addLayout(m_pPane->BottomRow(*pButtons));
    pSave->setDefault(true);

    connect(pButtons, &QDialogButtonBox::accepted, this, &SaveChooser::accept);
    connect(pButtons, &QDialogButtonBox::rejected, this, &SaveChooser::reject);
    connect(m_pPane->View().selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this] { ListFiles(); });
    connect(m_pKind, &QComboBox::currentIndexChanged, this, [this] { ListFiles(); });
    connect(m_pFiles, &QListWidget::currentItemChanged, this, [this](const QListWidgetItem* pItem) {
        if (pItem != nullptr) {
            m_pName->setText(pItem->text());
        }
    });
    connect(m_pFiles, &QListWidget::itemDoubleClicked, this, &SaveChooser::accept);
    connect(m_pName, &QLineEdit::textChanged, m_pFault, &QLabel::hide);
    ListFiles();
    SizeFor(kSize);
    m_pName->setFocus();
}

std::string SaveChooser::Choose()
{
    setModal(true);
    show();
    m_pPane->Select(m_request.lpstrInitialDir);
    return Ask() ? m_sChosen : std::string();
}

/// Lists the files in the selected folder that match the chosen file type and could be replaced.
void SaveChooser::ListFiles()
{
    m_pFault->hide();
    m_pFiles->clear();
    const auto nKind = static_cast<std::size_t>(m_pKind->currentIndex());
    auto names = FileNames(m_pPane->Folder(), nKind < m_patterns.size() ? m_patterns[nKind] : "*");
    // Names that are displayed with escapes cannot be typed; they can only be picked from this list.
    for (const std::string& sName : names) {
        const QString sShown = ShownText(sName);
        m_pFiles->addItem(sShown);
        if (sShown.toStdString() != sName) {
            m_pFiles->item(m_pFiles->count() - 1)->setFlags(Qt::NoItemFlags);
        }
    }
}

void SaveChooser::Say(const QString& sFault)
{
    m_pFault->Say(sFault);
    m_pName->setFocus();
    m_pName->selectAll();
}

/// Switches to folder `sPath` and clears the name. False if it is not a folder.
bool SaveChooser::GoInto(const std::string& sPath)
{
    const std::string sFolder = CanonicalFolder(sPath);
    if (!sFolder.empty()) {
        m_pName->clear();
        m_pPane->Select(sFolder);
    }
    return !sFolder.empty();
}

void SaveChooser::accept()
{
    // A name picked in the list stands for exactly that file. Typed text is a name in the folder, a path
    // relative to it, or a full path.
    const QListWidgetItem* const pPicked = m_pFiles->currentItem();
    const bool bPicked = pPicked != nullptr && pPicked->text() == m_pName->text();
    const QString sTyped = bPicked ? m_pName->text() : m_pName->text().trimmed();
    if (sTyped.isEmpty()) {
        Say(QStringLiteral("Please type a name for the file."));
        return;
    }
    if (!sTyped.isValidUtf16() || sTyped.contains(QChar::Null)) {
        Say(QStringLiteral("A file cannot have this name."));
        return;
    }
    const std::string sText = sTyped.toStdString();
    std::string sPath = sText.starts_with('/') ? sText : platform::PathIn(m_pPane->Folder(), sText);
    if (GoInto(sPath)) {
        return;
    }
    if (!bPicked && !HasExtension(sTyped.section(QLatin1Char('/'), -1)) && !m_request.lpstrDefExt.empty()) {
        sPath += "." + m_request.lpstrDefExt;
    }
    const std::string sFolder = CanonicalFolder(platform::FolderPart(sPath));
    if (sFolder.empty()) {
        Say(QStringLiteral("There is no such folder."));
        return;
    }
    sPath = platform::PathIn(sFolder, platform::NameIn(sPath));
    bool bThere = false;
    const QString sFault = WhyNotWritable(sPath, bThere);
    if (!sFault.isEmpty()) {
        Say(sFault);
        return;
    }
    const tQuestion question{.sName = QStringLiteral("replaceFile"),
                             .sTitle = windowTitle(),
                             .sText = QStringLiteral("\u201c%1\u201d is already there. Replace it?")
                                          .arg(ShownText(platform::NameIn(sPath))),
                             .sYes = QStringLiteral("&Replace")};
    if (bThere && (m_request.Flags & platform::OFN_OVERWRITEPROMPT) != 0 && !AskYesNo(this, question)) {
        return;
    }
    m_sChosen = sPath;
    DialogWindow::accept();
}

} // namespace desktop
