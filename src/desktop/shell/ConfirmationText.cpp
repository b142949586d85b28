// SPDX-License-Identifier: MIT
#include "ConfirmationText.h"

#include "Paths.h"
#include "ShownText.h"
#include "SizeText.h"

#include <algorithm>

namespace desktop {
namespace {

/// The sentences for one file (%1 is its name), for several (%1 is "3 of them") and for all files. %2 is how
/// the search compared files, or the folder of a volume.
struct tSentences {
    Concern concern;
    const char* pOne;
    const char* pSome;
    const char* pAll;
};

constexpr tSentences kSentences[] = {
    {Concern::NoOtherCopy, "%1 has no other copy that stays.", "%1 have no other copy that stays.",
     "None of them has another copy that stays."},
    {Concern::FileChanged, "%1 has changed since the search.", "%1 have changed since the search.",
     "All of them have changed since the search."},
    {Concern::CopiesChanged, "Every copy of %1 that stays has changed since the search.",
     "Of %1, every copy that stays has changed since the search.",
     "Every copy of them that stays has changed since the search."},
    {Concern::OtherSize, "%1 differs in size from every file that stays; the search was by %2.",
     "%1 differ in size from every file that stays; the search was by %2.",
     "All of them differ in size from every file that stays; the search was by %2."},
    {Concern::NotCompared, "The contents of %1 were not compared: the search was by %2.",
     "The contents of %1 were not compared: the search was by %2.",
     "Their contents were not compared: the search was by %2."},
    {Concern::SameFileStays, "%1 is another name of a file that stays, and so do its contents.",
     "%1 are other names of files that stay, and so do their contents.",
     "All of them are other names of files that stay, and so do their contents."},
    {Concern::InTrash, "%1 cannot go: it lies in a trash already.",
     "%1 more cannot go: they lie in a trash already.", nullptr},
    {Concern::NoTrash, "%1 cannot go: the volume at %2 has no trash.",
     "%1 more cannot go: the volume at %2 has no trash.", nullptr},
};

QString Counted(std::size_t nCount)
{
    return NumberText(static_cast<std::int64_t>(nCount));
}

QString FilesText(std::size_t nCount)
{
    return CountText(static_cast<std::int64_t>(nCount), "File", "Files");
}

} // namespace

QString ConfirmationText::Question() const
{
    const tOperation& operation = m_confirmation.operation;
    return QStringLiteral("Move %1 (%2) to the trash?")
        .arg(!m_confirmation.sOnly.empty()
                 ? Named(m_confirmation.sOnly)
                 : CountText(static_cast<std::int64_t>(operation.nFiles), "file", "files"),
             FullSize(operation.cyTotal));
}

QStringList ConfirmationText::Concerns() const
{
    QStringList sentences;
    for (const tConcern& concern : m_confirmation.concerns) {
        sentences << Sentence(concern);
    }
    return sentences;
}

/// The name of a file, or its path if another file in the text has the same name.
QString ConfirmationText::Named(const std::string& sPath) const
{
    const std::string sName = platform::NameIn(sPath);
    const auto isLike = [&](const std::string& sOther) {
        return sOther != sPath && platform::NameIn(sOther) == sName;
    };
    const bool bAmbiguous = std::any_of(
        m_confirmation.concerns.begin(), m_confirmation.concerns.end(),
        [&](const tConcern& each) { return std::any_of(each.paths.begin(), each.paths.end(), isLike); });
    return QStringLiteral("\u201c%1\u201d").arg(ShownText(bAmbiguous ? sPath : sName));
}

QString ConfirmationText::Sentence(const tConcern& concern) const
{
    const auto& words =
        *std::find_if(std::begin(kSentences), std::end(kSentences),
                      [&](const tSentences& each) { return each.concern == concern.concern; });
    const QString sHow = concern.concern == Concern::NoTrash ? ShownText(concern.sVolume)
                         : m_confirmation.comparedBy == platform::ComparedBy::Name
                             ? QStringLiteral("name")
                             : QStringLiteral("name and size");
    const auto filled = [&](const char* pText, const QString& sWho) {
        const QString sText = QLatin1String(pText);
        return sText.contains(QLatin1String("%2")) ? sText.arg(sWho, sHow) : sText.arg(sWho);
    };
    if (concern.paths.size() == 1) {
        return filled(words.pOne, Named(concern.paths.front()));
    }
    if (words.pAll == nullptr) {
        return filled(words.pSome, Counted(concern.paths.size()));
    }
    if (concern.paths.size() == m_confirmation.operation.nFiles) {
        const QString sText = QLatin1String(words.pAll);
        return sText.contains(QLatin1String("%2")) ? QString(sText).replace(QLatin1String("%2"), sHow)
                                                   : sText;
    }
    return filled(words.pSome, QStringLiteral("%1 of them").arg(Counted(concern.paths.size())));
}

QString ConfirmationText::Names(std::size_t nMost) const
{
    QString sNames;
    for (const tConcern& concern : m_confirmation.concerns) {
        sNames += Sentence(concern) + QLatin1Char('\n');
        const std::size_t nShown = std::min(nMost, concern.paths.size());
        for (std::size_t n = 0; n < nShown; ++n) {
            sNames += QLatin1String("    ") + ShownText(concern.paths[n]) + QLatin1Char('\n');
        }
        if (nShown < concern.paths.size()) {
            sNames += QStringLiteral("    and %1 more\n").arg(Counted(concern.paths.size() - nShown));
        }
        nMost -= nShown;
    }
    return sNames;
}

/// True if the files have to be compared with their copies first, so that the number of files with a copy is
/// not final.
bool ConfirmationText::IsToBeCompared() const
{
    return std::any_of(m_confirmation.concerns.begin(), m_confirmation.concerns.end(),
                       [](const tConcern& each) { return each.concern == Concern::NotCompared; });
}

QString ConfirmationText::WithCopyButton() const
{
    if (m_confirmation.nWithCopy == 0) {
        return {};
    }
    return QStringLiteral("&Move %1").arg(FilesText(m_confirmation.nWithCopy)) +
           QLatin1String(IsToBeCompared() ? " If Identical" : "");
}

QString ConfirmationText::AllButton() const
{
    const std::size_t nFiles = m_confirmation.operation.nFiles;
    if (nFiles == m_confirmation.nWithCopy && !IsToBeCompared()) {
        return {};
    }
    return nFiles == 1 ? QStringLiteral("Move &1 File")
                       : QStringLiteral("Move &All %1").arg(FilesText(nFiles));
}

} // namespace desktop
